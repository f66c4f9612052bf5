#include "dialogs/ChannelFilter.h"

ChannelFilter::ChannelFilter(const std::vector<ChannelDef>& channels)
{
    m_haystacks.reserve(channels.size());
    for (const ChannelDef& channel : channels) {
        const QString text = channel.longName + u' ' + channel.shortName + u' ' + channel.uiv;
        m_haystacks.push_back(text.toLower());
    }
}

std::vector<int> ChannelFilter::matching(const QString& filter) const
{
    const QString key = filter.trimmed().toLower();
    std::vector<int> indices;
    int index = 0;
    for (const QString& haystack : m_haystacks) {
        if (haystack.contains(key)) // any text contains an empty key
            indices.push_back(index);
        ++index;
    }
    return indices;
}
