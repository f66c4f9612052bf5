#include "telemetry/TelemetryChannel.h"

#include <algorithm>
#include <cmath>

double TelemetryChannel::valueAt(double seconds) const
{
    constexpr double kSameTime = 1e-12; // seconds; samples this close have no slope

    if (times.empty())
        return 0.0;
    if (seconds <= times.front())
        return values.front();
    if (!(seconds < times.back())) // also where either is not a number
        return values.back();

    const auto next = std::upper_bound(times.begin(), times.end(), seconds) - times.begin();
    const auto index = static_cast<std::size_t>(next);
    const double start = times[index - 1];
    const double from = values[index - 1];
    const double span = times[index] - start;
    if (std::abs(span) < kSameTime)
        return from;
    return from + (values[index] - from) * ((seconds - start) / span);
}
