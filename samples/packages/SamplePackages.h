#pragma once

#include "samples/packages/Layout.h"

/// The packages that the editor is tried, tested and measured with.
namespace SamplePackages {

/// A club racer's dashboard: eight different pages, every kind of element, some without background.
[[nodiscard]] SampleLayout::Package clubRacing();

/// A small display.
[[nodiscard]] SampleLayout::Package compact();

/// Twenty crowded pages, each with its background: for measuring.
[[nodiscard]] SampleLayout::Package enduranceLarge();

} // namespace SamplePackages
