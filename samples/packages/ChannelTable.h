#pragma once

#include "document/ChannelDef.h"

#include <string>
#include <vector>

/// The channels that the sample devices can show.
namespace ChannelTable {

/// All channels with their identifiers, long and short names, labels and units. Long names are
/// unique.
[[nodiscard]] const std::vector<ChannelDef>& channels();

/// The channel of that long name, which must exist.
[[nodiscard]] const ChannelDef& channel(const std::string& longName);

} // namespace ChannelTable
