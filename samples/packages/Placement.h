#pragma once

#include "samples/packages/Layout.h"

#include <vector>

/// Where the tiles of a page stand.
namespace Placement {

/// The part of the header that shows the page's name; artwork only.
[[nodiscard]] QRect nameBand(const SampleLayout::Sheet& sheet);

/// The header's own tiles first, then the page's.
[[nodiscard]] std::vector<SampleLayout::PlacedTile> placeTiles(const SampleLayout::Sheet& sheet,
                                                               const SampleLayout::Page& page);

/// False for tiles that are artwork only.
[[nodiscard]] bool isElement(SampleLayout::Instrument instrument);

/// True for tiles whose title is drawn above the element, by the artwork.
[[nodiscard]] bool hasTitleBand(SampleLayout::Instrument instrument);

} // namespace Placement
