#pragma once

#include "document/ChannelDef.h"

#include <QString>

#include <vector>

/// Finds channels by a part of their names or unit, ignoring case. Lower-cases the texts once, at
/// construction, so that a search keeps up with typing.
class ChannelFilter
{
public:
    ChannelFilter() = default;
    explicit ChannelFilter(const std::vector<ChannelDef>& channels);

    /// Indices of the channels whose "long short unit" text contains the filter, which is trimmed
    /// first; all of them for an empty filter. In the channels' order.
    [[nodiscard]] std::vector<int> matching(const QString& filter) const;

private:
    std::vector<QString> m_haystacks;
};
