#include "cli/Arguments.h"
#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/Workspace.h"
#include "document/ColorText.h"
#include "document/DashboardDocument.h"
#include "document/ElementKinds.h"
#include "document/OverlayReader.h"
#include "review/ElementFacts.h"
#include "review/FactText.h"
#include "review/LayoutListing.h"
#include "review/OtherFiles.h"
#include "review/PageNodes.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QJsonObject styleOf(const QString& font, int size, const QColor& color)
{
    return {{QStringLiteral("font"), font},
            {QStringLiteral("size"), size},
            {QStringLiteral("color"),
             color.isValid() ? QJsonValue(ColorText::format(color)) : QJsonValue()}};
}

QJsonObject objectOf(const DashElement& element)
{
    QJsonObject object{
        {QStringLiteral("name"), element.name},
        {QStringLiteral("x"), element.x},
        {QStringLiteral("y"), element.y},
        {QStringLiteral("width"), element.w},
        {QStringLiteral("height"), element.h},
        {QStringLiteral("texts"), QJsonArray::fromStringList(ElementFacts::texts(element))}};
    if (const auto kind = ElementKinds::classify(element.node))
        object.insert(QStringLiteral("kind"), ElementKinds::id(*kind));
    if (!element.channelLongName.isEmpty()) {
        object.insert(QStringLiteral("channel"),
                      QJsonObject{{QStringLiteral("longName"), element.channelLongName},
                                  {QStringLiteral("shortName"), element.channelShortName}});
    }
    if (!element.valueFont.isEmpty()) {
        object.insert(QStringLiteral("valueStyle"),
                      styleOf(element.valueFont, element.valueFontSize, element.valueColor));
    }
    if (element.hasLabel) {
        object.insert(QStringLiteral("labelStyle"),
                      styleOf(element.labelFont, element.labelFontSize, element.labelColor));
    }
    return object;
}

QJsonObject objectOf(const DashPage& page, pugi::xml_node node)
{
    QJsonArray elements;
    for (const DashElement& element : page.elements)
        elements.append(objectOf(element));
    return {{QStringLiteral("name"), page.name},
            {QStringLiteral("width"), page.width},
            {QStringLiteral("height"), page.height},
            {QStringLiteral("image"), OverlayReader::readImagePath(node)},
            {QStringLiteral("elements"), elements}};
}

QJsonObject objectOf(const ChannelDef& channel)
{
    return {{QStringLiteral("id"), channel.fid},
            {QStringLiteral("longName"), channel.longName},
            {QStringLiteral("shortName"), channel.shortName},
            {QStringLiteral("unit"), channel.uiv}};
}

QJsonObject objectOf(const PackageFile& file)
{
    return {{QStringLiteral("path"), file.path},
            {QStringLiteral("size"), file.size},
            {QStringLiteral("crc"), FactText::crc(file.crc)}};
}

template <typename Items>
QJsonArray arrayOf(const Items& items)
{
    QJsonArray array;
    for (const auto& item : items)
        array.append(objectOf(item));
    return array;
}

QJsonArray pagesOf(const DashboardDocument& document)
{
    const std::vector<pugi::xml_node> nodes = pageNodes(document);
    QJsonArray pages;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        pages.append(objectOf(document.pages()[i], nodes[i]));
    return pages;
}

QJsonObject objectOf(const DashboardDocument& document, const QString& package)
{
    return {{QStringLiteral("package"), package},
            {QStringLiteral("device"),
             QJsonObject{{QStringLiteral("type"), document.deviceType()},
                         {QStringLiteral("typeCode"), document.deviceTypeCode()}}},
            {QStringLiteral("display"),
             QJsonObject{{QStringLiteral("width"), document.displayWidth()},
                         {QStringLiteral("height"), document.displayHeight()}}},
            {QStringLiteral("channels"), arrayOf(document.channels())},
            {QStringLiteral("pages"), pagesOf(document)},
            {QStringLiteral("files"), arrayOf(otherFiles(document))}};
}

} // namespace

ExitStatus Subcommands::show(const QStringList& arguments, Console& console)
{
    Arguments parsed(QStringLiteral("show"),
                     CliText::tr("Lists what is in a package, one fact a line: device, display, "
                                 "channels, pages, elements, other files."));
    parsed.addFile(QStringLiteral("PACKAGE"), CliText::tr("The package."));
    if (const auto status = parsed.parse(arguments, console))
        return *status;

    const Workspace workspace;
    DashboardDocument document;
    if (!workspace.open(document, parsed.file(0), console))
        return ExitStatus::Trouble;
    if (parsed.wantsJson()) {
        console.print(parsed.framed(objectOf(document, parsed.file(0))));
        return ExitStatus::Clean;
    }
    for (const QString& line : layoutListing(document))
        console.print(line);
    return ExitStatus::Clean;
}
