#pragma once

#include "tests/support/PackageBuilder.h"

/// Objects that decide the kind of an element, with only what counts for that.
namespace ElementParts {

[[nodiscard]] inline TestPackage::Object part(const QByteArray& className)
{
    return {className, {}, {}, {}};
}

[[nodiscard]] inline TestPackage::Object label(const QByteArray& text)
{
    return {"Label", {}, {{"TEXT", text}}, {}};
}

} // namespace ElementParts
