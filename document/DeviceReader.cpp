#include "document/DeviceReader.h"

#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <utility>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

ChannelDef readChannelRow(pugi::xml_node node)
{
    ChannelDef channel;
    for (const pugi::xml_node property : XmlTree::properties(node)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kChannelFid))
            channel.fid = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kChannelLongName))
            channel.longName = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kChannelShortName))
            channel.shortName = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kChannelLabelLongName))
            channel.labelLongName = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kChannelUnit))
            channel.uiv = XmlTree::text(property);
    }
    return channel;
}

/// Rows without a positive identifier or without a name cannot be bound to and are dropped.
void appendChannels(pugi::xml_node list, std::vector<ChannelDef>& channels)
{
    for (const pugi::xml_node child : XmlTree::objects(list)) {
        if (!XmlTree::hasClass(child, Class::kChannel))
            continue;
        ChannelDef channel = readChannelRow(child);
        if (channel.fid > 0 && !channel.longName.isEmpty())
            channels.push_back(std::move(channel));
    }
}

void readIdentity(pugi::xml_node node, TargetDevice& device)
{
    for (const pugi::xml_node property : XmlTree::properties(node)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kDeviceType))
            device.type = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kDeviceTypeCode))
            device.typeCode = XmlTree::number(property);
    }
}

} // namespace

bool DeviceReader::readDevice(const pugi::xml_document& deviceXml, TargetDevice& device)
{
    const pugi::xml_node container =
        deviceXml.child(OverlaySchema::kDeviceRoot).child(XmlTree::kObject);
    if (!container)
        return false;
    for (const pugi::xml_node child : XmlTree::objects(container)) {
        if (XmlTree::hasClass(child, Class::kDevice))
            readIdentity(child, device);
        else if (XmlTree::hasClass(child, Class::kChannelsList))
            appendChannels(child, device.channels);
    }
    return true;
}
