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
    return std::strcmp(left, right) == 0;
}

/// Whether that is the object's class; an object that carries none is of class "".
[[nodiscard]] inline bool hasClass(pugi::xml_node object, const char* className)
{
    return same(object.attribute(kClass).as_string(), className);
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

/// The last property with that key, or an empty node.
[[nodiscard]] pugi::xml_node lastProperty(pugi::xml_node object, const char* key);

/// The value text of a property as UTF-8 text.
[[nodiscard]] QString text(pugi::xml_node property);

/// The value of a property as the C library's atoi reads it: leading digits count, anything else is
/// 0.
[[nodiscard]] std::int32_t number(pugi::xml_node property);

/// Replaces whatever the property holds by one text child, also when the text is empty.
void setText(pugi::xml_node property, const QString& value);
void setNumber(pugi::xml_node property, int value);

/// Sets the first property with that key; does nothing when there is none.
void setFirstNumber(pugi::xml_node object, const char* key, int value);

/// Appends a property; an empty value gets no text child.
void appendProperty(pugi::xml_node object, const char* key, const QString& value);

/// Removes a node with its subtree; does nothing for an empty node. The library's own removal
/// recurses and overflows the stack on deeply nested input; this one does not.
void removeSubtree(pugi::xml_node node);

/// True when the levels at which the nodes stand below root (its children at 0) add up to more than
/// limit: what indenting them would cost.
[[nodiscard]] bool levelsExceed(pugi::xml_node root, std::int64_t limit);

} // namespace XmlTree
