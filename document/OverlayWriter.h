#pragma once

#include "document/DashPage.h"

#include <pugixml.hpp>

#include <vector>

/// Writes records back into overlay XML.
namespace OverlayWriter {

/// Writes rectangles and text styles of all pages into the page objects of conf, matched by
/// position. Only values that differ from what the XML reads as are written, into every property
/// with the key. Properties that are missing are not created; a style without a font is not
/// written.
void writeRecords(pugi::xml_node conf, const std::vector<DashPage>& pages);

} // namespace OverlayWriter
