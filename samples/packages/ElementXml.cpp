#include "samples/packages/ElementXml.h"

#include "document/ColorText.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"
#include "samples/packages/ChannelTable.h"
#include "samples/packages/ElementLook.h"

#include <QStringList>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;
using SampleLayout::Instrument;
using SampleLayout::PlacedTile;
using SampleLayout::Sheet;
using SampleLayout::Tile;
using XmlTree::appendProperty;

namespace {

void appendStyle(pugi::xml_node object, const ElementLook::TextStyle& style)
{
    ElementXml::appendNumber(object, Key::kFontSize, style.size);
    appendProperty(object, Key::kFont, style.font);
    appendProperty(object, Key::kColor, ColorText::format(style.color));
}

void appendAxis(pugi::xml_node element, const Tile& tile)
{
    const ChannelDef& channel = ChannelTable::channel(tile.channel);
    const pugi::xml_node axis = ElementXml::appendObject(element, Class::kAxis, {});
    appendProperty(axis, Key::kFidOk, channel.longName);
    ElementXml::appendNumber(axis, Key::kFidPreferred, channel.fid);
    appendProperty(axis, "MAX", QString::number(tile.range.maximum));
    appendProperty(axis, "MIN", QString::number(tile.range.minimum));
    appendProperty(axis, Key::kUnit, channel.uiv);
    ElementXml::appendNumber(axis, Key::kFid, channel.fid);
    appendProperty(axis, Key::kLongName, channel.longName);
    appendProperty(axis, Key::kShortName, channel.shortName);
}

void appendDigit(pugi::xml_node element, const PlacedTile& placed)
{
    pugi::xml_node digit = ElementXml::appendObject(element, Class::kDigit, {});
    digit.append_attribute("align") = "centre"; // known to the device alone
    appendStyle(digit, ElementLook::valueStyle(placed));
    ElementXml::appendNumber(digit, "DECIMALS", 1);
}

void appendLabel(pugi::xml_node element, const QString& text, const ElementLook::TextStyle& style)
{
    const pugi::xml_node label = ElementXml::appendObject(element, Class::kLabel, {});
    appendStyle(label, style);
    appendProperty(label, Key::kLabelText, text);
}

// Known to the device alone; the text holds characters that XML has to escape.
void appendZone(pugi::xml_node part, const Tile& tile)
{
    const pugi::xml_node zone =
        ElementXml::appendObject(part, "ZoneParam", QStringLiteral("alarm"));
    appendProperty(zone, "FROM", QString::number(tile.range.zoneFrom));
    appendProperty(zone, "TO", QString::number(tile.range.zoneTo));
    appendProperty(zone, "TEXT",
                   u'<' + QString::fromStdString(tile.title) + QStringLiteral("> & \"Größe\""));
}

void appendGauge(pugi::xml_node element, const Tile& tile)
{
    const pugi::xml_node analog = ElementXml::appendObject(element, Class::kAnalog, {});
    ElementXml::appendNumber(analog, "START_ANGLE", 225);
    ElementXml::appendNumber(analog, "SWEEP", 270);
    appendZone(analog, tile);
}

void appendPictogram(pugi::xml_node element, const Tile& tile)
{
    appendProperty(ElementXml::appendObject(element, Class::kPictogram, {}), "SYMBOL",
                   QString::fromStdString(tile.title));
}

void appendParts(pugi::xml_node element, const PlacedTile& placed)
{
    switch (placed.tile.instrument) {
    case Instrument::Dial:
        appendGauge(element, placed.tile);
        return appendDigit(element, placed);
    case Instrument::Bar:
        return appendZone(ElementXml::appendObject(element, Class::kBar, {}), placed.tile);
    case Instrument::BarReadout:
        appendZone(ElementXml::appendObject(element, Class::kBar, {}), placed.tile);
        return appendDigit(element, placed);
    case Instrument::Readout:
        return appendDigit(element, placed);
    case Instrument::IconReadout:
        appendPictogram(element, placed.tile);
        return appendDigit(element, placed);
    case Instrument::Lamp:
        appendZone(ElementXml::appendObject(element, Class::kIcon, {}), placed.tile);
        return appendPictogram(element, placed.tile);
    case Instrument::Caption:
    case Instrument::Strip:
    case Instrument::TrackMap:
    case Instrument::CarPlan:
        break;
    }
}

void appendLabels(pugi::xml_node element, const PlacedTile& placed, const Sheet& sheet)
{
    const QString title = QString::fromStdString(placed.tile.title);
    const ElementLook::TextStyle style = ElementLook::labelStyle(placed, sheet);
    if (placed.tile.instrument == Instrument::Strip) {
        for (const QString& text : title.split(u'|'))
            appendLabel(element, text, style);
    } else if (placed.tile.instrument == Instrument::Caption || placed.tile.labelled) {
        appendLabel(element, title, style);
    }
}

} // namespace

pugi::xml_node ElementXml::appendObject(pugi::xml_node parent, const char* className,
                                        const QString& name)
{
    pugi::xml_node object = parent.append_child(XmlTree::kObject);
    object.append_attribute(XmlTree::kClass) = className;
    if (!name.isEmpty())
        object.append_attribute(XmlTree::kName) = name.toUtf8().constData();
    return object;
}

void ElementXml::appendNumber(pugi::xml_node object, const char* key, int value)
{
    appendProperty(object, key, QString::number(value));
}

void ElementXml::appendElement(pugi::xml_node page, const PlacedTile& placed, const Sheet& sheet,
                               int number)
{
    const QString name = ElementLook::namePrefix(placed.tile.instrument) +
                         QStringLiteral(".%1").arg(number, 2, 10, QLatin1Char('0'));
    pugi::xml_node element = appendObject(page, Class::kElement, name);
    element.append_attribute("layer") = number; // known to the device alone
    appendNumber(element, Key::kHeight, placed.element.height());
    appendNumber(element, "VISIBLE", 1);
    appendNumber(element, Key::kWidth, placed.element.width());
    appendNumber(element, Key::kXPos, placed.element.x());
    appendNumber(element, Key::kYPos, placed.element.y());
    if (!placed.tile.channel.empty())
        appendAxis(element, placed.tile);
    appendParts(element, placed);
    appendLabels(element, placed, sheet);
}
