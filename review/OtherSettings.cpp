#include "review/OtherSettings.h"

#include "document/OverlaySchema.h"

#include <algorithm>
#include <span>
#include <sstream>
#include <utility>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

using Keys = std::span<const char* const>;

constexpr const char* kRectangle[] = {Key::kXPos, Key::kYPos, Key::kWidth, Key::kHeight};
constexpr const char* kPage[] = {Key::kPageName, Key::kWidth, Key::kHeight, Key::kPathImage};
constexpr const char* kDisplay[] = {Key::kDisplayWidth, Key::kDisplayHeight};
constexpr const char* kBinding[] = {Key::kLongName,     Key::kShortName, Key::kFid,
                                    Key::kFidPreferred, Key::kFidOk,     Key::kUnit};
constexpr const char* kStyle[] = {Key::kFont, Key::kFontSize, Key::kColor};
constexpr const char* kText[] = {Key::kLabelText};

void removeProperties(pugi::xml_node object, Keys keys)
{
    for (pugi::xml_node child = object.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        const auto isKey = [key = XmlTree::keyOf(child)](const char* other) {
            return XmlTree::same(key, other);
        };
        if (XmlTree::same(child.name(), XmlTree::kProperty) &&
            std::any_of(keys.begin(), keys.end(), isKey))
            object.remove_child(child);
        child = next;
    }
}

void removeFromParts(pugi::xml_node element, const char* className, Keys keys)
{
    for (const pugi::xml_node part : XmlTree::objects(element)) {
        if (XmlTree::hasClass(part, className))
            removeProperties(part, keys);
    }
}

std::string textOf(const pugi::xml_document& document)
{
    std::ostringstream text;
    document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
    return std::move(text).str();
}

/// Of everything in the object but its objects of that class and its properties with those keys.
std::string without(pugi::xml_node object, const char* className, Keys keys)
{
    pugi::xml_document copy;
    pugi::xml_node root = copy.append_child(XmlTree::kObject);
    for (const pugi::xml_node child : object.children()) {
        if (!XmlTree::same(child.name(), XmlTree::kObject) || !XmlTree::hasClass(child, className))
            root.append_copy(child);
    }
    removeProperties(root, keys);
    return textOf(copy);
}

} // namespace

std::string OtherSettings::ofElement(pugi::xml_node element, const Reported& reported)
{
    pugi::xml_document copy;
    pugi::xml_node root = copy.append_copy(element);
    root.remove_attribute(XmlTree::kName);
    removeProperties(root, kRectangle);
    if (reported.channel)
        removeFromParts(root, Class::kAxis, kBinding);
    if (reported.valueStyle)
        removeFromParts(root, Class::kDigit, kStyle);
    if (reported.labelStyle)
        removeFromParts(root, Class::kLabel, kStyle);
    if (reported.texts)
        removeFromParts(root, Class::kLabel, kText);
    return textOf(copy);
}

std::string OtherSettings::ofPage(pugi::xml_node page)
{
    return without(page, Class::kElement, kPage);
}

std::string OtherSettings::ofLayout(pugi::xml_node conf, bool displayReported)
{
    return without(conf, Class::kPage, displayReported ? Keys(kDisplay) : Keys()) +
           without(conf.parent(), Class::kConf, {});
}
