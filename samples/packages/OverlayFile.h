#pragma once

#include "samples/packages/Layout.h"

#include <QString>

namespace OverlayFile {

/// Writes the overlay document of a package, with objects, properties and attributes that no editor
/// of layouts understands among those that it does. False when the file cannot be written.
[[nodiscard]] bool write(const SampleLayout::Package& package, const QString& path);

} // namespace OverlayFile
