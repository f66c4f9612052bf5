#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>

/// Conversions to int that cannot overflow: a file may hold any 32-bit rectangle, and a scale can
/// make any number of it.
namespace Saturate {

/// The nearest int.
[[nodiscard]] constexpr int toInt(qint64 value)
{
    return static_cast<int>(std::clamp<qint64>(value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

/// The value without its fraction (toward zero), within +-limit; 0 for something that is no number.
[[nodiscard]] constexpr qint64 truncate(double value, qint64 limit)
{
    if (!(value == value))
        return 0;
    const auto bound = static_cast<double>(limit);
    return static_cast<qint64>(std::clamp(value, -bound, bound));
}

/// The int without the fraction (toward zero).
[[nodiscard]] constexpr int truncate(double value)
{
    return static_cast<int>(truncate(value, std::numeric_limits<int>::max()));
}

} // namespace Saturate
