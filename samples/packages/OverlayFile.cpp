#include "samples/packages/OverlayFile.h"

#include "document/OverlaySchema.h"
#include "document/XmlTree.h"
#include "samples/packages/ElementXml.h"
#include "samples/packages/Placement.h"

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;
using ElementXml::appendNumber;
using ElementXml::appendObject;
using SampleLayout::Package;
using SampleLayout::Page;
using SampleLayout::PlacedTile;
using XmlTree::appendProperty;

namespace {

void appendPageProperties(pugi::xml_node object, const Package& package, int index)
{
    const Page& page = package.pages[static_cast<std::size_t>(index)];
    appendNumber(object, "BKGCOL", 0);
    appendNumber(object, "BTNXPG", 0);
    appendNumber(object, Key::kHeight, package.sheet.size.height());
    appendProperty(object, "NOMEEXT_FILE_RESOURCE", {});
    appendNumber(object, "ORDINE", index + 1);
    appendProperty(object, "PAGE_IDX", {});
    appendProperty(object, Key::kPageName, QString::fromStdString(page.name));
    if (page.hasBackground) {
        appendProperty(object, Key::kPathImage,
                       QStringLiteral("user/%1/%2.png")
                           .arg(QString::fromStdString(package.title), QString::number(index)));
    }
    appendNumber(object, "SET_IMAGE_xDISABLE", 0);
    appendNumber(object, "USA_MASK_COL_E_THICKNESS", 1);
    appendProperty(object, "VERSION", QStringLiteral("1.1"));
    appendNumber(object, Key::kWidth, package.sheet.size.width());
}

// A page with its elements between two objects that are known to the device alone.
void appendPage(pugi::xml_node conf, const Package& package, int index)
{
    const pugi::xml_node object = appendObject(conf, Class::kPage, QString::number(index));
    appendPageProperties(object, package, index);
    appendProperty(appendObject(object, "PageKeys", QStringLiteral("buttons")), "NEXT",
                   QStringLiteral("right"));
    int number = 0;
    const Page& page = package.pages[static_cast<std::size_t>(index)];
    for (const PlacedTile& placed : Placement::placeTiles(package.sheet, page)) {
        if (Placement::isElement(placed.tile.instrument))
            ElementXml::appendElement(object, placed, package.sheet, ++number);
    }
    appendProperty(appendObject(object, "PageNotes", {}), "TEXT",
                   QStringLiteral("Drawn for daylight; see the night variant."));
}

// Known to the device alone.
void appendShiftLights(pugi::xml_node conf)
{
    constexpr int kCount = 10;
    pugi::xml_node lights = appendObject(conf, "ShiftLights", QStringLiteral("row"));
    lights.append_attribute("count") = kCount;
    for (int i = 0; i < kCount; ++i) {
        const pugi::xml_node light = appendObject(lights, "Light", QString::number(i));
        appendNumber(light, "FROM_RPM", 6000 + 200 * i);
        appendProperty(light, "COLOUR", QStringLiteral("GREEN"));
    }
}

} // namespace

bool OverlayFile::write(const Package& package, const QString& path)
{
    pugi::xml_document xml;
    pugi::xml_node root = xml.append_child(OverlaySchema::kOverlayRoot);
    root.append_attribute("build") = "2026.1";
    const pugi::xml_node container = appendObject(root, "Overlay", QStringLiteral("dash"));
    appendProperty(container, "AUTHOR", QStringLiteral("Sample maker, Saint-Étienne"));
    appendProperty(appendObject(container, "Palette", {}), "NIGHT", QStringLiteral("0xff102030"));

    const pugi::xml_node conf = appendObject(container, Class::kConf, QStringLiteral("conf"));
    appendNumber(conf, Key::kDisplayWidth, package.sheet.size.width());
    appendNumber(conf, Key::kDisplayHeight, package.sheet.size.height());
    appendShiftLights(conf);
    for (int index = 0; index < static_cast<int>(package.pages.size()); ++index)
        appendPage(conf, package, index);
    appendNumber(appendObject(conf, "AlarmList", {}), "COUNT", 4);
    appendProperty(appendObject(root, "History", {}), "LAST", QStringLiteral("2026-03-01"));
    return xml.save_file(path.toLocal8Bit().constData(), "  ", pugi::format_indent);
}
