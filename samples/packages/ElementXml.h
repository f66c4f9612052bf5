#pragma once

#include "samples/packages/Layout.h"

#include <pugixml.hpp>

class QString;

/// The objects that an overlay is made of.
namespace ElementXml {

/// Appends an object; an empty name gives no name attribute.
pugi::xml_node appendObject(pugi::xml_node parent, const char* className, const QString& name);
void appendNumber(pugi::xml_node object, const char* key, int value);

/// Appends a tile to its page as the number-th element, in the shape that its instrument has in a
/// layout.
void appendElement(pugi::xml_node page, const SampleLayout::PlacedTile& placed,
                   const SampleLayout::Sheet& sheet, int number);

} // namespace ElementXml
