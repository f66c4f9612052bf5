#pragma once

#include "document/DashPage.h"
#include "document/TargetDevice.h"

#include <pugixml.hpp>

#include <vector>

/// Turns overlay XML into records.
namespace OverlayReader {

/// The configuration object that holds the pages, or an empty node.
[[nodiscard]] pugi::xml_node confNode(const pugi::xml_document& overlayXml);

/// The record of a page object with its elements, without its background image. Its imagePath is
/// the path as the file has it.
[[nodiscard]] DashPage readPage(pugi::xml_node node, int ordinal);

/// The image path of a page object as the file has it; empty when there is none.
[[nodiscard]] QString readImagePath(pugi::xml_node page);

/// The records of all elements of a page object, in document order.
[[nodiscard]] std::vector<DashElement> readElements(pugi::xml_node page);

[[nodiscard]] DashElement readElement(pugi::xml_node node);

/// A record with the kind, rectangle and text styles of an element and nothing else.
[[nodiscard]] DashElement readEditable(pugi::xml_node node);

/// Sets the display size as far as the configuration object gives one.
void readDisplaySize(pugi::xml_node conf, TargetDevice& device);

} // namespace OverlayReader
