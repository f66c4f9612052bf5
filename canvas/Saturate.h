#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>

/// Conversions to int that cannot overflow: a file may hold any 32-bit rectangle, and a scale turns
/// it into any number.
namespace Saturate {

/// The nearest int.
[[nodiscard]] constexpr int toInt(qint64 value)
{
    return static_cast<int>(std::clamp<qint64>(value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

/// The value truncated toward zero, within +-limit; 0 for NaN.
[[nodiscard]] constexpr qint64 truncate(double value, qint64 limit)
{
    if (!(value == value))
        return 0;
    const auto bound = static_cast<double>(limit);
    return static_cast<qint64>(std::clamp(value, -bound, bound));
}

/// The value truncated toward zero, within the range of int; 0 for NaN.
[[nodiscard]] constexpr int truncate(double value)
{
    return static_cast<int>(truncate(value, std::numeric_limits<int>::max()));
}

} // namespace Saturate
