#pragma once

#include "telemetry/SampleArray.h"

#include <QString>

/// One recorded channel as loaded: times in seconds, ascending, one per value.
struct TelemetryChannel
{
    QString name;  ///< as the recording spells it
    QString units; ///< for display only, never applied to values; may be empty
    SampleArray times;
    SampleArray values;

    /// The value at that time, linearly interpolated and held at both ends; 0 without samples.
    /// Times that do not ascend or are not finite give a meaningless value, never an error.
    [[nodiscard]] double valueAt(double seconds) const;
};
