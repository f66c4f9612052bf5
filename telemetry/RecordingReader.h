#pragma once

#include "telemetry/TelemetryChannel.h"

#include <QString>

#include <map>

class XrkLibrary;

/// The channels of one recording, in memory.
struct Recording
{
    std::map<QString, TelemetryChannel> channels; ///< by lower-case name, in code-unit order
    double duration = 0.0;                        ///< length of the replay in seconds
};

/// Reads the channels of all three families (plain, GPS, raw GPS) of an open file.
///
/// Never fails: missing exports, channels without a name or samples, and implausible counts are
/// skipped. Of channels whose names differ only in case, the last one read stays.
[[nodiscard]] Recording readRecording(const XrkLibrary& library, int file);
