#pragma once

#include "samples/packages/Layout.h"

#include <QString>

namespace DeviceFile {

/// Writes the device definition of a package: model, type code and the channel table.
/// False when the file cannot be written.
[[nodiscard]] bool write(const SampleLayout::Package& package, const QString& path);

} // namespace DeviceFile
