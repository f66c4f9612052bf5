#pragma once

#include "tests/support/ByteSource.h"
#include "tests/support/PackageBuilder.h"

/// Overlay documents made from choices: valid ones, but with everything in them that real files are
/// not supposed to hold: missing, doubled and unreadable properties, classes the editor does not
/// know, several style and axis objects, objects between the elements, text that is not UTF-8.
namespace RandomOverlay {

[[nodiscard]] TestPackage::Object element(ByteSource& source);

/// At least one page.
[[nodiscard]] QByteArray xml(ByteSource& source);

[[nodiscard]] QByteArray deviceXml(ByteSource& source);

} // namespace RandomOverlay
