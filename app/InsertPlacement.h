#pragma once

#include "document/ElementGeometry.h"

/// Where a new element goes: centred on its page, at the size of the element it copies.
///
/// A donor side below 1 counts as unknown and gets a usual size. The element is never larger than
/// the page, and never starts left of it or above it. All values are display pixels.
[[nodiscard]] ElementGeometry centredPlacement(int pageWidth, int pageHeight, int donorWidth,
                                               int donorHeight);
