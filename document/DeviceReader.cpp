// The part of DashboardDocument that reads the device definition file.

#include "document/DashboardDocument.h"
#include "document/OverlaySchema.h"
#include "document/XmlFile.h"
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

void readIdentity(pugi::xml_node device, QString& type, int& typeCode)
{
    for (const pugi::xml_node property : XmlTree::properties(device)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kDeviceType))
            type = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kDeviceTypeCode))
            typeCode = XmlTree::number(property);
    }
}

} // namespace

bool DashboardDocument::loadDeviceFile(const QString& path)
{
    pugi::xml_document parsed;
    if (!loadXmlFile(path, parsed))
        return false;
    const pugi::xml_node container =
        parsed.child(OverlaySchema::kDeviceRoot).child(XmlTree::kObject);
    if (!container)
        return false;
    for (const pugi::xml_node child : XmlTree::objects(container)) {
        if (XmlTree::hasClass(child, Class::kDevice))
            readIdentity(child, m_deviceType, m_deviceTypeCode);
        else if (XmlTree::hasClass(child, Class::kChannelsList))
            appendChannels(child, m_channels);
    }
    m_deviceXml = std::move(parsed);
    readDisplaySize();
    return true;
}

void DashboardDocument::readDisplaySize()
{
    for (const pugi::xml_node property : XmlTree::properties(confNode())) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kDisplayWidth))
            m_displayWidth = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kDisplayHeight))
            m_displayHeight = XmlTree::number(property);
    }
}
