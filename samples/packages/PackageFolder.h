#pragma once

#include "samples/packages/Layout.h"

#include <QString>

namespace PackageFolder {

/// Writes every file of a package below folder, which must exist: overlay, backgrounds, device file
/// and files that only the maker's own tools understand. False when one of them cannot be written.
[[nodiscard]] bool write(const SampleLayout::Package& package, const QString& folder);

} // namespace PackageFolder
