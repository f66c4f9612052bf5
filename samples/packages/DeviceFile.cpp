#include "samples/packages/DeviceFile.h"

#include "document/OverlaySchema.h"
#include "document/XmlTree.h"
#include "samples/packages/ChannelTable.h"
#include "samples/packages/ElementXml.h"

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;
using ElementXml::appendNumber;
using ElementXml::appendObject;
using XmlTree::appendProperty;

namespace {

void appendChannel(pugi::xml_node list, const ChannelDef& channel)
{
    const pugi::xml_node object = appendObject(list, Class::kChannel, {});
    appendNumber(object, Key::kChannelFid, channel.fid);
    appendProperty(object, Key::kChannelLongName, channel.longName);
    appendProperty(object, Key::kChannelShortName, channel.shortName);
    appendProperty(object, Key::kChannelLabelLongName, channel.labelLongName);
    appendProperty(object, Key::kChannelUnit, channel.uiv);
    appendNumber(object, "FREQUENCY", 20);
}

} // namespace

bool DeviceFile::write(const SampleLayout::Package& package, const QString& path)
{
    pugi::xml_document xml;
    const pugi::xml_node root = xml.append_child(OverlaySchema::kDeviceRoot);
    const pugi::xml_node container = appendObject(root, "Configuration", {});
    const pugi::xml_node device = appendObject(container, Class::kDevice, {});
    appendProperty(device, Key::kDeviceType, QString::fromStdString(package.deviceType));
    appendNumber(device, Key::kDeviceTypeCode, package.deviceTypeCode);
    appendProperty(device, "FIRMWARE", QStringLiteral("02.46.11"));
    const pugi::xml_node list = appendObject(container, Class::kChannelsList, {});
    for (const ChannelDef& channel : ChannelTable::channels())
        appendChannel(list, channel);
    appendNumber(appendObject(container, "Network", {}), "SPEED", 1000000);
    return xml.save_file(path.toLocal8Bit().constData(), "  ", pugi::format_indent);
}
