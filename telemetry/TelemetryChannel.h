#pragma once

#include <QString>

#include <vector>

/// One recorded channel as loaded: times in seconds, ascending, one per value.
struct TelemetryChannel
{
    QString name;  ///< as the recording spells it
    QString units; ///< for display only, never applied to values; may be empty
    std::vector<double> times;
    std::vector<double> values;
};
