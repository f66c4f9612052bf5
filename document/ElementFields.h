#pragma once

#include "document/DashElement.h"

#include <cstdint>
#include <span>
#include <variant>

/// Which property of an element's XML is which field of its record. Reader, writer and editing all
/// go by these tables.
namespace ElementFields {

struct Field
{
    const char* key;
    std::variant<std::int32_t DashElement::*, QString DashElement::*, QColor DashElement::*> member;
};
using Fields = std::span<const Field>;

/// Properties of the element node itself.
[[nodiscard]] Fields rectangle();
/// Properties of the first axis object.
[[nodiscard]] Fields channel();
/// Properties of the last digit object.
[[nodiscard]] Fields valueStyle();
/// Properties of the last label object.
[[nodiscard]] Fields labelStyle();

/// Reads the properties of object that the table names. The last one with a key counts; a field
/// without a property keeps its value.
void read(pugi::xml_node object, Fields fields, DashElement& element);

/// Whether any of the fields would be written differently.
[[nodiscard]] bool differ(Fields fields, const DashElement& left, const DashElement& right);

/// Writes the fields of element that differ from asRead, into all properties of object that the
/// table names; creates none. All others keep their text.
void writeChanges(pugi::xml_node object, Fields fields, const DashElement& asRead,
                  const DashElement& element);

void copy(Fields fields, const DashElement& from, DashElement& to);

} // namespace ElementFields
