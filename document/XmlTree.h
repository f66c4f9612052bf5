#pragma once

#include <pugixml.hpp>

#include <cstdint>
#include <cstring>

class QString;

/// Access to the generic XML shape of overlay and device files: every object is an element "e" with
/// its class in attribute "c" and its name in attribute "i"; every property is an element "p" with
/// its key in attribute "n" and its value as text.
namespace XmlTree {

inline constexpr char kObject[] = "e";
inline constexpr char kProperty[] = "p";
inline constexpr char kClass[] = "c";
inline constexpr char kName[] = "i";
inline constexpr char kKey[] = "n";

[[nodiscard]] inline bool same(const char* left, const char* right)
{
    return *left == *right && std::strcmp(left, right) == 0; // mostly decided without a call
}

/// The class of an object, empty when it carries none.
[[nodiscard]] inline const char* classOf(pugi::xml_node object)
{
    return object.attribute(kClass).as_string();
}

[[nodiscard]] inline bool hasClass(pugi::xml_node object, const char* className)
{
    return same(classOf(object), className);
}

/// The key of a property, empty when it carries none.
[[nodiscard]] inline const char* keyOf(pugi::xml_node property)
{
    return property.attribute(kKey).as_string();
}

[[nodiscard]] inline auto objects(pugi::xml_node parent)
{
    return parent.children(kObject);
}

[[nodiscard]] inline auto properties(pugi::xml_node object)
{
    return object.children(kProperty);
}

/// The index-th child object of that class in document order, or an empty node.
[[nodiscard]] pugi::xml_node nthObject(pugi::xml_node parent, const char* className, int index);

/// The first child object of that class, or an empty node.
[[nodiscard]] inline pugi::xml_node firstObject(pugi::xml_node parent, const char* className)
{
    return nthObject(parent, className, 0);
}

/// The first property with that key, or an empty node.
[[nodiscard]] pugi::xml_node firstProperty(pugi::xml_node object, const char* key);

/// The last property with that key, or an empty node.
[[nodiscard]] pugi::xml_node lastProperty(pugi::xml_node object, const char* key);

/// A text of the file as records have it: decoded from UTF-8, cut behind
/// DocumentLimits::kTextLength characters; a text of blanks only counts as empty.
[[nodiscard]] QString decoded(const char* bytes);

/// The decoded value of a property.
[[nodiscard]] QString text(pugi::xml_node property);

/// The value of a property as the C library's atoi reads it: leading digits count, anything else is
/// 0.
[[nodiscard]] std::int32_t number(pugi::xml_node property);

/// Replaces everything in the property by one text child, also when the text is empty. A text that
/// reads the same keeps its bytes.
void setText(pugi::xml_node property, const QString& value);
void setNumber(pugi::xml_node property, int value);

/// Appends a property; an empty value gets no text child.
void appendProperty(pugi::xml_node object, const char* key, const QString& value);

} // namespace XmlTree
