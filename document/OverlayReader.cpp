#include "document/OverlayReader.h"

#include "document/ElementFields.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <algorithm>
#include <optional>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

std::optional<ElementKind> kindByClass(const char* className)
{
    if (XmlTree::same(className, Class::kAnalog))
        return ElementKind::Analog;
    if (XmlTree::same(className, Class::kDigit))
        return ElementKind::Digit;
    if (XmlTree::same(className, Class::kIcon))
        return ElementKind::Icon;
    return std::nullopt;
}

/// What counts among the objects of an element.
struct Parts
{
    std::optional<ElementKind> kind; // by the first of the three classes
    pugi::xml_node firstAxis;
    pugi::xml_node lastDigit; // decides the style as a whole, like the last label
    pugi::xml_node lastLabel;
};

Parts partsOf(pugi::xml_node element)
{
    Parts parts;
    for (const pugi::xml_node child : XmlTree::objects(element)) {
        const char* const className = XmlTree::classOf(child);
        if (!parts.kind)
            parts.kind = kindByClass(className);
        if (XmlTree::same(className, Class::kAxis)) {
            if (!parts.firstAxis)
                parts.firstAxis = child;
        } else if (XmlTree::same(className, Class::kDigit)) {
            parts.lastDigit = child;
        } else if (XmlTree::same(className, Class::kLabel)) {
            parts.lastLabel = child;
        }
    }
    return parts;
}

DashElement readEditable(pugi::xml_node node, const Parts& parts)
{
    DashElement element;
    element.kind = parts.kind.value_or(ElementKind::Other);
    element.hasLabel = !parts.lastLabel.empty();
    ElementFields::read(node, ElementFields::rectangle(), element);
    ElementFields::read(parts.lastDigit, ElementFields::valueStyle(), element);
    ElementFields::read(parts.lastLabel, ElementFields::labelStyle(), element);
    return element;
}

} // namespace

pugi::xml_node OverlayReader::confNode(const pugi::xml_document& overlayXml)
{
    const pugi::xml_node container =
        overlayXml.child(OverlaySchema::kOverlayRoot).child(XmlTree::kObject);
    return XmlTree::firstObject(container, Class::kConf);
}

DashPage OverlayReader::readPage(pugi::xml_node node, int ordinal)
{
    DashPage page;
    page.index = ordinal;
    for (const pugi::xml_node property : XmlTree::properties(node)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kPageName))
            page.name = XmlTree::text(property);
        else if (XmlTree::same(key, Key::kWidth))
            page.width = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kHeight))
            page.height = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kPathImage))
            page.imagePath = XmlTree::text(property);
    }
    page.elements = readElements(node);
    return page;
}

QString OverlayReader::readImagePath(pugi::xml_node page)
{
    return XmlTree::text(XmlTree::lastProperty(page, Key::kPathImage));
}

std::vector<DashElement> OverlayReader::readElements(pugi::xml_node page)
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

DashElement OverlayReader::readElement(pugi::xml_node node)
{
    const Parts parts = partsOf(node);
    DashElement element = ::readEditable(node, parts);
    element.node = node;
    element.name = XmlTree::decoded(node.attribute(XmlTree::kName).as_string());
    ElementFields::read(parts.firstAxis, ElementFields::channel(), element);
    return element;
}

DashElement OverlayReader::readEditable(pugi::xml_node node)
{
    return ::readEditable(node, partsOf(node));
}

void OverlayReader::readDisplaySize(pugi::xml_node conf, TargetDevice& device)
{
    for (const pugi::xml_node property : XmlTree::properties(conf)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kDisplayWidth))
            device.displayWidth = XmlTree::number(property);
        else if (XmlTree::same(key, Key::kDisplayHeight))
            device.displayHeight = XmlTree::number(property);
    }
}
