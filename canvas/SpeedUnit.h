#pragma once

#include <QStringList>

/// Units in which the preview shows a speed. The values are the indices that
/// DashCanvas::setSpeedUnit accepts and the rows of a selector filled with texts().
enum class SpeedUnit : int
{
    KilometresPerHour,
    MilesPerHour,
    Knots
};

namespace SpeedUnits {

/// The translated names of all units, in the order of the enumeration.
[[nodiscard]] QStringList texts();

/// Converts from metres per second. A value outside the enumeration converts nothing.
[[nodiscard]] double fromMetresPerSecond(double speed, SpeedUnit unit);

} // namespace SpeedUnits
