// The part of DashboardDocument that turns overlay XML into records.

#include "document/ColorText.h"
#include "document/DashboardDocument.h"
#include "document/FixedPaths.h"
#include "document/OverlaySchema.h"
#include "document/XmlFile.h"
#include "document/XmlTree.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <optional>
#include <utility>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

struct TextStyle
{
    QString font;
    int size = 0;
    QColor color;
};

TextStyle readStyle(pugi::xml_node object)
{
    TextStyle style;
    for (const pugi::xml_node property : XmlTree::properties(object)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kFontSize))
            style.size = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kFont))
            style.font = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kColor))
            style.color = ColorText::parse(XmlTree::text(property));
    }
    return style;
}

std::optional<ElementKind> kindByClass(pugi::xml_node object)
{
    if (XmlTree::hasClass(object, Class::kAnalog))
        return ElementKind::Analog;
    if (XmlTree::hasClass(object, Class::kDigit))
        return ElementKind::Digit;
    if (XmlTree::hasClass(object, Class::kIcon))
        return ElementKind::Icon;
    return std::nullopt;
}

void readRectangle(pugi::xml_node node, DashElement& element)
{
    for (const pugi::xml_node property : XmlTree::properties(node)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kXPos))
            element.x = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kYPos))
            element.y = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kWidth))
            element.w = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kHeight))
            element.h = XmlTree::number(property);
    }
}

void readChannel(pugi::xml_node node, DashElement& element)
{
    const pugi::xml_node axis = XmlTree::firstObject(node, Class::kAxis);
    for (const pugi::xml_node property : XmlTree::properties(axis)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kLongName))
            element.channelLongName = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kShortName))
            element.channelShortName = XmlTree::text(property);
    }
}

/// The first of the three classes decides the kind; the last object of a class decides its style.
void readKindAndStyles(pugi::xml_node node, DashElement& element)
{
    std::optional<ElementKind> kind;
    for (const pugi::xml_node child : XmlTree::objects(node)) {
        if (!kind)
            kind = kindByClass(child);
        if (XmlTree::hasClass(child, Class::kDigit)) {
            const TextStyle style = readStyle(child);
            element.valueFont = style.font;
            element.valueFontSize = style.size;
            element.valueColor = style.color;
        } else if (XmlTree::hasClass(child, Class::kLabel)) {
            const TextStyle style = readStyle(child);
            element.labelFont = style.font;
            element.labelFontSize = style.size;
            element.labelColor = style.color;
            element.hasLabel = true;
        }
    }
    element.kind = kind.value_or(ElementKind::Other);
}

bool guiApplicationExists()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

bool DashboardDocument::loadOverlay(const QString& path)
{
    // A failed parse leaves a partial tree behind, so it must not touch the open one.
    pugi::xml_document parsed;
    if (!loadXmlFile(path, parsed))
        return false;
    m_pages.clear();
    m_overlayXml = std::move(parsed);
    m_indented = !XmlTree::levelsExceed(m_overlayXml, kMostIndentedLevels);
    m_imagePixelsLeft = kMostImagePixels;

    int ordinal = 0;
    for (const pugi::xml_node child : XmlTree::objects(confNode())) {
        if (XmlTree::hasClass(child, Class::kPage))
            readPage(child, ordinal++);
    }
    return !m_pages.empty();
}

void DashboardDocument::readPage(pugi::xml_node node, int ordinal)
{
    DashPage page;
    page.index = ordinal;
    QString rawImagePath;
    for (const pugi::xml_node property : XmlTree::properties(node)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kPageName))
            page.name = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kWidth))
            page.width = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kHeight))
            page.height = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kPathImage))
            rawImagePath = XmlTree::text(property);
    }
    if (guiApplicationExists())
        resolveImage(page, rawImagePath);
    page.elements = readElements(node);
    m_pages.push_back(std::move(page));
}

void DashboardDocument::resolveImage(DashPage& page, const QString& rawImagePath)
{
    if (!rawImagePath.isEmpty())
        loadImage(page, FixedPaths::imageRoot() + rawImagePath);
    if (page.image.isNull()) {
        loadImage(page, QFileInfo(m_overlayPath).path() + u'/' + QString::number(page.index) +
                            QStringLiteral(".png"));
    }
}

void DashboardDocument::loadImage(DashPage& page, const QString& candidate)
{
    if (!QFileInfo(candidate).isFile())
        return;
    page.imagePath = candidate;
    QImageReader reader(candidate);
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > m_imagePixelsLeft)
        return;
    page.image = QPixmap::fromImageReader(&reader);
    m_imagePixelsLeft -= qint64{page.image.width()} * page.image.height();
}

std::vector<DashElement> DashboardDocument::readElements(pugi::xml_node page)
{
    const auto children = XmlTree::objects(page);
    std::vector<DashElement> elements;
    elements.reserve( // a million records that move take three times their memory
        static_cast<std::size_t>(
            std::count_if(children.begin(), children.end(), OverlaySchema::isElement)));
    for (const pugi::xml_node child : children) {
        if (OverlaySchema::isElement(child))
            elements.push_back(readElement(child));
    }
    return elements;
}

DashElement DashboardDocument::readElement(pugi::xml_node node)
{
    DashElement element;
    element.node = node;
    element.name = QString::fromUtf8(node.attribute(XmlTree::kName).as_string());
    readRectangle(node, element);
    readChannel(node, element);
    readKindAndStyles(node, element);
    return element;
}
