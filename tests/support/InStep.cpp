#include "tests/support/InStep.h"

#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <QDebug>

#include <sstream>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

std::vector<pugi::xml_node> objectsOf(pugi::xml_node parent, const char* className)
{
    std::vector<pugi::xml_node> result;
    for (const pugi::xml_node child : XmlTree::objects(parent)) {
        if (XmlTree::hasClass(child, className))
            result.push_back(child);
    }
    return result;
}

bool holds(pugi::xml_node object, const char* key)
{
    return bool(object.find_child_by_attribute(XmlTree::kProperty, XmlTree::kKey, key));
}

const char* elementDisagreement(const DashElement& element, pugi::xml_node node)
{
    if (element.node != node)
        return "handle";
    const DashElement read = DashboardDocument::readElement(node);
    // A record of an inserted element holds what was asked for, also where its donor had no place
    // to write it to.
    if (node.attribute(XmlTree::kName) && element.name != read.name)
        return "name";
    const pugi::xml_node axis = XmlTree::firstObject(node, Class::kAxis);
    if (holds(axis, Key::kLongName) && element.channelLongName != read.channelLongName)
        return "channel long name";
    if (holds(axis, Key::kShortName) && element.channelShortName != read.channelShortName)
        return "channel short name";
    if (element.kind != read.kind)
        return "kind";
    return element.hasLabel != read.hasLabel ? "label" : nullptr;
}

QByteArray pageDisagreement(const DashPage& page, pugi::xml_node node)
{
    QString name;
    for (const pugi::xml_node property : XmlTree::properties(node)) {
        if (XmlTree::same(XmlTree::keyOf(property), Key::kPageName))
            name = XmlTree::text(property);
    }
    if (page.name != name)
        return "name";
    const std::vector<pugi::xml_node> masks = objectsOf(node, Class::kElement);
    if (masks.size() != page.elements.size())
        return "element count";
    for (std::size_t i = 0; i < masks.size(); ++i) {
        if (const char* const what = elementDisagreement(page.elements[i], masks[i]))
            return "element " + QByteArray::number(qulonglong{i}) + ": " + what;
    }
    return {};
}

} // namespace

QByteArray InStep::firstDisagreement(const DashboardDocument& document)
{
    const std::vector<pugi::xml_node> nodes = objectsOf(document.confNode(), Class::kPage);
    if (nodes.size() != document.pages().size())
        return "page count";
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const QByteArray what = pageDisagreement(document.pages()[i], nodes[i]);
        if (!what.isEmpty())
            return "page " + QByteArray::number(qulonglong{i}) + ": " + what;
    }
    return {};
}

QByteArray InStep::overlayText(const DashboardDocument& document)
{
    std::ostringstream text;
    document.confNode().root().print(text, "  ", pugi::format_indent);
    return QByteArray::fromStdString(text.str());
}

QByteArray InStep::recordsText(const DashboardDocument& document)
{
    QString text;
    QDebug out(&text);
    for (const DashPage& page : document.pages()) {
        out << page.name << page.index << page.width << page.height << page.imagePath
            << page.image.cacheKey() << '\n';
        for (const DashElement& e : page.elements) {
            out << ' ' << e.name << e.x << e.y << e.w << e.h << e.channelLongName
                << e.channelShortName << static_cast<int>(e.kind) << e.valueFont << e.valueFontSize
                << e.valueColor << e.labelFont << e.labelFontSize << e.labelColor << e.hasLabel
                << '\n';
        }
    }
    return text.toUtf8();
}
