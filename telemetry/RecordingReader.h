#pragma once

#include "telemetry/TelemetryChannel.h"

#include <QString>

#include <map>

class XrkLibrary;

/// Everything that is kept of one recording.
struct Recording
{
    std::map<QString, TelemetryChannel> channels; ///< by lower-case name, in code-unit order
    double duration = 0.0;                        ///< length of the replay in seconds
};

/// Reads the channels of all three families (plain, GPS, raw GPS) of an open file.
///
/// Missing exports, channels without a name or without samples, and counts that cannot be true are
/// passed over: there is always a result. Of channels whose names differ only in case the last one
/// read stays.
[[nodiscard]] Recording readRecording(const XrkLibrary& library, int file);
