#pragma once

#include "document/DashElement.h"

#include <QStringList>

/// What reviews say about an element beyond its record.
namespace ElementFacts {

/// The texts of its labels, in document order, without empty ones.
[[nodiscard]] QStringList texts(const DashElement& element);
/// The font families of all its values and labels, each once, in document order.
[[nodiscard]] QStringList fonts(const DashElement& element);

/// Its kind as the insert dialog names it, "Other" when that has no name for it.
[[nodiscard]] QString kindName(const DashElement& element);
/// "\"Engine RPM\" short \"RPM\"", "none" for an element without a channel.
[[nodiscard]] QString channel(const DashElement& element);
[[nodiscard]] QString valueStyle(const DashElement& element);
/// "none" for an element without a label.
[[nodiscard]] QString labelStyle(const DashElement& element);

} // namespace ElementFacts
