#pragma once

#include "samples/reader/RecordingText.h"
#include "samples/recording/Circuit.h"
#include "samples/recording/Drive.h"

#include <limits>
#include <span>

/// One channel that the sample logger records.
struct RecordedChannel
{
    RecordingText::Family family;
    const char* name;
    const char* units;
    int rate;     ///< samples a second, a divisor of kStatesPerSecond
    int decimals; ///< of the values as written
    double noise; ///< greatest deviation of the sensor, either way
    double (*value)(const CarState& state, const Circuit& circuit);
    double least = -std::numeric_limits<double>::infinity(); ///< noise takes no value below it
};

/// The channels in the order of recording. Their names are spelled as a logger might, which is not
/// how the sample layouts spell them: every rule of matching gets something to do.
[[nodiscard]] std::span<const RecordedChannel> recordedChannels();
