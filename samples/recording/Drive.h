#pragma once

#include "samples/recording/Circuit.h"

/// The state of the car at one moment.
struct CarState
{
    double time = 0.0;         ///< seconds since the recording began
    double distance = 0.0;     ///< metres since the recording began
    int lap = 0;               ///< laps completed
    double lapTime = 0.0;      ///< seconds since the lap began
    double lapDistance = 0.0;  ///< metres since the lap began
    double speed = 0.0;        ///< m/s
    double longitudinal = 0.0; ///< m/s2, positive when the car gets faster
    double lateral = 0.0;      ///< m/s2, positive in left-hand bends
    double yawRate = 0.0;      ///< rad/s, positive to the left
    double throttle = 0.0;     ///< 0 to 1
    double brake = 0.0;        ///< 0 to 1
    int gear = 1;
    double rpm = 0.0;
    Circuit::Point place;
    double altitude = 0.0; ///< metres above the sea
};

inline constexpr int kStatesPerSecond = 100;

/// A session that begins and ends at a standstill.
[[nodiscard]] std::vector<CarState> drive(const Circuit& circuit, double seconds);
