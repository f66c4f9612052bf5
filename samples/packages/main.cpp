// Writes the sample packages into the folder named by the one argument.
#include "document/DashboardPackage.h"
#include "samples/packages/SamplePackage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <pugixml.hpp>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <sstream>

using namespace Qt::StringLiterals;
using namespace SamplePackage;

namespace {

// The texts that a fixed or labelled tile shows.
QString labelsXml(const Tile& tile, int titleBand)
{
    const bool caption = tile.instrument->name == "Caption"_L1;
    const int size = std::max(8, titleBand * 5 / 8) + (caption ? 4 : 0); // pixels
    QString xml;
    for (const QString& text : tile.title.split(u'|'))
        xml += uR"(<e c="Label"><p n="CHARSET_DIM">%1</p><p n="CHAR_SET_ID_2">%2</p>
            <p n="COLORE">%3</p><p n="TEXT">%4</p></e>)"_s.arg(
            QString::number(size), caption ? kWideFont : kPlainFont,
            caption ? "0xffffc233"_L1 : "0xc8d7dee6"_L1, text.toHtmlEscaped());
    return xml;
}

// What an editor recognises the instrument by. The zone's text has characters that XML escapes.
QString partsXml(const Tile& tile)
{
    const Instrument& instrument = *tile.instrument;
    const QString title = tile.title.toHtmlEscaped();
    QString xml = instrument.gauge;
    if (!xml.isEmpty())
        xml += uR"(<e c="ZoneParam" i="alarm"><p n="FROM">%1</p><p n="TO">%2</p>
            <p n="TEXT">&lt;%3&gt; &amp; "Größe"</p></e></e>)"_s.arg(
            QString::number(tile.range.zoneFrom), QString::number(tile.range.zoneTo), title);
    if (instrument.hasIcon)
        xml += uR"(<e c="AiM_Icona"><p n="SYMBOL">%1</p></e>)"_s.arg(title);
    if (instrument.valueHeight > 0) {
        const double height = tile.field.height() * instrument.valueHeight;
        const int size = std::max(8, static_cast<int>(height)); // pixels
        xml += uR"(<e c="Digit" align="centre"><p n="CHARSET_DIM">%1</p><p n="CHAR_SET_ID_2">%2</p>
            <p n="COLORE">%3</p><p n="DECIMALS">1</p></e>)"_s.arg(
            QString::number(size), size >= 48 ? "Huge Basic Sans Heavy SF"_L1 : tile.tone->font,
            tile.tone->color);
    }
    return xml;
}

QString axisXml(const Channel& channel, const Range& range)
{
    return uR"(<e c="Axis"><p n="FID_OK">%1</p><p n="FID_PREF">%2</p><p n="MAX">%3</p><p n="MIN">%4</p>
        <p n="UDM">%5</p><p n="fid">%2</p><p n="lnm">%1</p><p n="shn">%6</p></e>)"_s.arg(
        channel.longName, QString::number(channel.fid), QString::number(range.maximum),
        QString::number(range.minimum), channel.uiv, channel.shortName);
}

QString elementXml(const Tile& tile, int titleBand, int number)
{
    return QString::asprintf(R"(<e c="GMaskParam" i="%s.%02d" layer="%d"><p n="HEIGHT">%d</p>
        <p n="VISIBLE">1</p><p n="WIDTH">%d</p><p n="XPOS">%d</p><p n="YPOS">%d</p>)",
                             tile.instrument->element.data(), number, number, tile.field.height(),
                             tile.field.width(), tile.field.x(), tile.field.y()) +
           (tile.channel ? axisXml(*tile.channel, tile.range) : QString()) + partsXml(tile) +
           (tile.labelled ? labelsXml(tile, titleBand) : QString()) + "</e>"_L1;
}

QString pageXml(const Package& package, int index)
{
    const Page& page = package.pages[static_cast<std::size_t>(index)];
    QString elements;
    int number = 0;
    for (const Tile& tile : page.tiles) {
        if (!tile.instrument->element.isEmpty())
            elements += elementXml(tile, package.titleBand, ++number);
    }
    const QString image =
        uR"(<p n="PATH_IMAGE">user/%1/%2.png</p>)"_s.arg(package.title).arg(index);
    return uR"(<e c="GPageParam" i="%1"><p n="BKGCOL">0</p><p n="BTNXPG">0</p><p n="HEIGHT">%2</p>
        <p n="NOMEEXT_FILE_RESOURCE"/><p n="ORDINE">%3</p><p n="PAGE_IDX"/><p n="PAGE_NAME">%4</p>%5
        <p n="SET_IMAGE_xDISABLE">0</p><p n="USA_MASK_COL_E_THICKNESS">1</p><p n="VERSION">1.1</p>
        <p n="WIDTH">%6</p><e c="PageKeys" i="buttons"><p n="NEXT">right</p></e>%7<e c="PageNotes">
        <p n="TEXT">Drawn for daylight; see the night variant.</p></e></e>)"_s.arg(
        QString::number(index), QString::number(package.size.height()), QString::number(index + 1),
        page.name, page.hasBackground ? image : QString(), QString::number(package.size.width()),
        elements);
}

// Indented as by the logger maker's tools.
QByteArray indented(const QString& text)
{
    pugi::xml_document xml;
    if (!xml.load_string(qUtf8Printable(text)))
        qFatal("a sample is no XML");
    std::ostringstream out;
    xml.save(out, "  ");
    return QByteArray::fromStdString(out.str());
}

QByteArray overlayXml(const Package& package)
{
    QString lights;
    for (int i = 0; i < 10; ++i)
        lights += QString::asprintf(
            R"(<e c="Light" i="%d"><p n="FROM_RPM">%d</p><p n="COLOUR">GREEN</p></e>)", i,
            6000 + 200 * i);
    QString pages;
    for (int index = 0; index < static_cast<int>(package.pages.size()); ++index)
        pages += pageXml(package, index);
    return indented(uR"(<overlay_cli build="2026.1"><e c="Overlay" i="dash">
        <p n="AUTHOR">Sample maker, Saint-Étienne</p><e c="Palette"><p n="NIGHT">0xff102030</p></e>
        <e c="GConfParam" i="conf"><p n="DIMENSIONE_X">%1</p><p n="DIMENSIONE_Y">%2</p>
        <e c="ShiftLights" i="row" count="10">%3</e>%4<e c="AlarmList"><p n="COUNT">4</p></e></e></e>
        <e c="History"><p n="LAST">2026-03-01</p></e></overlay_cli>)"_s.arg(
        QString::number(package.size.width()), QString::number(package.size.height()), lights,
        pages));
}

QByteArray deviceXml(const Package& package)
{
    QString list;
    for (const Channel& channel : channels())
        list += uR"(<e c="Canale"><p n="FID">%1</p><p n="LongName">%2</p><p n="ShortName">%3</p>
            <p n="LabelLongName">%2</p><p n="UIV">%4</p><p n="FREQUENCY">20</p></e>)"_s.arg(
            QString::number(channel.fid), channel.longName, channel.shortName, channel.uiv);
    return indented(uR"(<CfgFileFormat><e c="Configuration"><e c="Device"><p n="Type">%1</p>
        <p n="TypeCode">%2</p><p n="FIRMWARE">02.46.11</p></e><e c="ChannelsList">%3</e>
        <e c="Network"><p n="SPEED">1000000</p></e></e></CfgFileFormat>)"_s.arg(
        package.deviceType, QString::number(package.deviceTypeCode), list));
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size() && file.flush();
}

// Overlay, backgrounds and device file, and what else a package may hold: an older layout of an
// add-on and the definition of a spare device, which an editor must skip, a text, and every byte.
bool writeFolder(const Package& package, const QString& folder)
{
    Package addOn = package;
    addOn.pages.resize(1);
    QByteArray bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    const QString layout = QDir::cleanPath(folder + u'/' + package.layoutFolder) + u'/';
    bool written = writeFile(layout + "overlay.ov3.xml"_L1, overlayXml(package)) &&
                   writeFile(folder + "/expansions/keypad/overlay.ov3.xml"_L1, overlayXml(addOn)) &&
                   writeFile(folder + "/dash.aimcfg"_L1, deviceXml(package)) &&
                   writeFile(folder + "/devices/spare.aimcfg"_L1, deviceXml(package)) &&
                   writeFile(folder + u"/notes/setup für Regen.txt"_s,
                             "Rear wing +2, tyre pressures 1.65 bar cold.\r\n") &&
                   writeFile(folder + "/resources/shift-lights.bin"_L1, bytes);
    for (int i = 0; const Page& page : package.pages) {
        const QString image = layout + QString::number(i++) + ".png"_L1;
        written = written && (!page.hasBackground || paintBackground(package, page).save(image));
    }
    return written;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // painting needs fonts, not a display
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        qCritical("usage: %s FOLDER", qPrintable(arguments.value(0)));
        return EXIT_FAILURE;
    }
    for (const Package& package : all()) {
        const QTemporaryDir folder;
        const QString archive = arguments[1] + u'/' + package.fileName;
        if (!folder.isValid() || !writeFolder(package, folder.path()) ||
            !DashboardPackage::packDirectory(folder.path(), archive)) {
            qCritical("cannot write %s", qPrintable(archive));
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
