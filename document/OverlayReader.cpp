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

/// Of several objects with a style, the last one decides it as a whole.
void readStyle(pugi::xml_node object, ElementFields::Fields style, DashElement& element)
{
    static const DashElement plain;
    ElementFields::copy(style, plain, element);
    ElementFields::read(object, style, element);
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
    DashElement element = readEditable(node);
    element.node = node;
    element.name = XmlTree::decoded(node.attribute(XmlTree::kName).as_string());
    ElementFields::read(XmlTree::firstObject(node, Class::kAxis), ElementFields::channel(),
                        element);
    return element;
}

DashElement OverlayReader::readEditable(pugi::xml_node node)
{
    DashElement element;
    ElementFields::read(node, ElementFields::rectangle(), element);
    std::optional<ElementKind> kind; // by the first of its classes
    for (const pugi::xml_node child : XmlTree::objects(node)) {
        const char* const className = XmlTree::classOf(child);
        if (!kind)
            kind = kindByClass(className);
        if (XmlTree::same(className, Class::kDigit)) {
            readStyle(child, ElementFields::valueStyle(), element);
        } else if (XmlTree::same(className, Class::kLabel)) {
            readStyle(child, ElementFields::labelStyle(), element);
            element.hasLabel = true;
        }
    }
    element.kind = kind.value_or(ElementKind::Other);
    return element;
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
