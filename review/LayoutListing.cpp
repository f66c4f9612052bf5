#include "review/LayoutListing.h"

#include "document/DashboardDocument.h"
#include "document/OverlayReader.h"
#include "review/ElementFacts.h"
#include "review/FactText.h"
#include "review/OtherFiles.h"
#include "review/PageNodes.h"

namespace {

using FactText::quoted;

QString deviceLine(const DashboardDocument& document)
{
    if (document.deviceType().isEmpty() && document.deviceTypeCode() < 0)
        return QStringLiteral("device: none");
    return QStringLiteral("device: ") + FactText::device(document);
}

void appendElement(const DashElement& element, QStringList& lines)
{
    const auto fact = [&lines](const char* name, const QString& value) {
        lines.append(QStringLiteral("    ") + QLatin1String(name) + QStringLiteral(": ") + value);
    };
    lines.append(QStringLiteral("  element: ") + quoted(element.name));
    fact("kind", ElementFacts::kindName(element));
    fact("channel", ElementFacts::channel(element));
    fact("position", FactText::position(element.x, element.y));
    fact("size", FactText::size(element.w, element.h));
    if (!element.valueFont.isEmpty())
        fact("value", ElementFacts::valueStyle(element));
    if (element.hasLabel)
        fact("label", ElementFacts::labelStyle(element));
    for (const QString& text : ElementFacts::texts(element))
        fact("text", quoted(text));
}

void appendPage(const DashPage& page, pugi::xml_node node, QStringList& lines)
{
    lines.append(QStringLiteral("page: ") + quoted(page.name));
    lines.append(QStringLiteral("  size: ") + FactText::size(page.width, page.height));
    const QString image = OverlayReader::readImagePath(node);
    if (!image.isEmpty())
        lines.append(QStringLiteral("  image: ") + quoted(image));
    for (const DashElement& element : page.elements)
        appendElement(element, lines);
}

} // namespace

QStringList layoutListing(const DashboardDocument& document)
{
    QStringList lines{deviceLine(document),
                      QStringLiteral("display: ") +
                          FactText::size(document.displayWidth(), document.displayHeight())};
    for (const ChannelDef& channel : document.channels())
        lines.append(QStringLiteral("channel: ") + quoted(channel.longName) + u' ' +
                     FactText::facts(channel));
    const std::vector<pugi::xml_node> nodes = pageNodes(document);
    for (std::size_t i = 0; i < nodes.size(); ++i)
        appendPage(document.pages()[i], nodes[i], lines);
    for (const PackageFile& file : otherFiles(document))
        lines.append(QStringLiteral("file: ") + quoted(file.path) + u' ' + FactText::facts(file));
    return lines;
}
