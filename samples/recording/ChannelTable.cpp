#include "samples/recording/ChannelTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

using RecordingText::kGps;
using RecordingText::kGpsRaw;
using RecordingText::kPlain;

constexpr double kGravity = 9.81;
constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr double kKilometresAnHour = 3.6;
constexpr double kHalfTrack = 0.75; // metres from the middle of the car to a wheel

/// Goes from a first to a last value as something does that warms up, nearing it within minutes.
double warmUp(double from, double to, double minutes, const CarState& state)
{
    return to + (from - to) * std::exp(-state.time / (60.0 * minutes));
}

/// km/h of a wheel on that side (1 right, -1 left), slipping under power or brakes.
double wheelSpeed(const CarState& state, int side, double slip)
{
    return kKilometresAnHour * (state.speed + side * kHalfTrack * state.yawRate) * (1.0 + slip);
}

/// Millimetres of damper travel on that side and end of the car (1 right and rear, -1 left and
/// front).
double damper(const CarState& state, int side, int end)
{
    return 25.0 + 1.1 * side * state.lateral + 0.8 * end * state.longitudinal +
           0.002 * state.speed * state.speed;
}

double fuelLevel(const CarState& state)
{
    return 38.0 - 0.00072 * state.distance;
}

double boost(const CarState& state)
{
    return -0.4 + 1.5 * state.throttle * std::min(1.0, state.rpm / 5500.0);
}

/// Degrees of the steering wheel, positive to the left.
double steeringWheel(const CarState& state, const Circuit& circuit)
{
    constexpr double kWheelbase = 2.6;
    constexpr double kRatio = 12.0; // of the steering wheel to the road wheels
    return kRatio * std::atan(kWheelbase * circuit.at(state.distance).curvature) * kDegrees;
}

/// Degrees from north, clockwise.
double compass(const CarState& state, const Circuit& circuit)
{
    return std::fmod(450.0 - circuit.at(state.distance).heading * kDegrees, 360.0);
}

constexpr double kStartLatitude = 47.6; // somewhere without a race track
constexpr double kStartLongitude = 11.2;
constexpr double kMetresPerDegree = 111'320.0;

double latitude(const CarState& state, const Circuit& circuit)
{
    return kStartLatitude + circuit.at(state.distance).y / kMetresPerDegree;
}

double longitude(const CarState& state, const Circuit& circuit)
{
    return kStartLongitude +
           circuit.at(state.distance).x / (kMetresPerDegree * std::cos(kStartLatitude / kDegrees));
}

// A parameter that a channel has no use for stays without a name.
#define FROM(expression) [](const CarState& car, const Circuit&) -> double { return expression; }

constexpr auto kChannels = std::to_array<RecordedChannel>({
    {kPlain, "rpm", "rpm", 50, 0, 15.0, FROM(car.rpm)},
    {kPlain, "GearPos", "gear", 20, 0, 0.0, FROM(car.gear)},
    {kPlain, "Port_Engine_RPM", "rpm", 50, 0, 15.0, FROM(car.rpm * 0.997)},
    {kPlain, "Stbd_Engine_RPM", "rpm", 50, 0, 15.0, FROM(car.rpm * 1.004)},
    {kPlain, "WaterTemp1", "°C", 10, 1, 0.2, FROM(warmUp(42.0, 88.0, 2.5, car))},
    {kPlain, "OilTemp", "°C", 10, 1, 0.2, FROM(warmUp(35.0, 104.0, 4.0, car))},
    {kPlain, "GearboxTemp", "°C", 10, 1, 0.2, FROM(warmUp(30.0, 92.0, 5.0, car))},
    {kPlain, "AirTemp", "°C", 10, 1, 0.1, FROM(21.5 + 0.004 * car.time)},
    {kPlain, "Oil_Pressure Main", "bar", 20, 2, 0.05, FROM(1.2 + 0.0006 * car.rpm)},
    {kPlain, "FuelPress", "bar", 10, 2, 0.02, FROM(3.8 - 0.15 * car.throttle)},
    {kPlain, "Throttle_Pos", "%", 50, 1, 0.2, FROM(car.throttle * 100.0), 0.0},
    {kPlain, "BrakePressF", "bar", 50, 1, 0.2, FROM(car.brake * 62.0), 0.0},
    {kPlain, "BrakePressR", "bar", 50, 1, 0.2, FROM(car.brake * 41.0), 0.0},
    {kPlain, "Steering_Angle", "deg", 50, 1, 0.5, steeringWheel},
    {kPlain, "FUEL LEVEL", "l", 10, 2, 0.05, FROM(fuelLevel(car))},
    {kPlain, "Fuel_Flow", "l/h", 10, 1, 0.3, FROM(3.0 + 0.008 * car.rpm * car.throttle)},
    {kPlain, "Lap_Time", "s", 10, 2, 0.0, FROM(car.lapTime)},
    {kPlain, "Lap_Number", "", 10, 0, 0.0, FROM(car.lap + 1)},
    {kPlain, "Lap_Distance", "m", 20, 1, 0.0, FROM(car.lapDistance)},
    {kPlain, "Stbd Boost", "bar", 20, 2, 0.02, FROM(boost(car))},
    {kPlain, "Battery_Voltage", "V", 10, 2, 0.03, FROM(car.rpm > 2000.0 ? 13.9 : 13.2)},
    {kPlain, "Lambda1", "lambda", 20, 3, 0.01, FROM(1.02 - 0.15 * car.throttle)},
    {kPlain, "Wheel_Speed FL", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, -1, 0.0)), 0.0},
    {kPlain, "Wheel_Speed FR", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, 1, 0.0)), 0.0},
    {kPlain, "Wheel_Speed RL", "km/h", 50, 1, 0.3,
     FROM(wheelSpeed(car, -1, 0.04 * car.throttle - 0.03 * car.brake)), 0.0},
    {kPlain, "Wheel_Speed RR", "km/h", 50, 1, 0.3,
     FROM(wheelSpeed(car, 1, 0.04 * car.throttle - 0.03 * car.brake)), 0.0},
    {kPlain, "Damper FL", "mm", 50, 1, 0.6, FROM(damper(car, -1, -1))},
    {kPlain, "Damper FR", "mm", 50, 1, 0.6, FROM(damper(car, 1, -1))},
    {kPlain, "Damper RL", "mm", 50, 1, 0.6, FROM(damper(car, -1, 1))},
    {kPlain, "Damper RR", "mm", 50, 1, 0.6, FROM(damper(car, 1, 1))},
    {kGps, "GPS Speed", "m/s", 20, 2, 0.05, FROM(car.speed), 0.0},
    {kGps, "GPS Lat_Acc", "g", 20, 3, 0.01, FROM(car.lateral / kGravity)},
    {kGps, "GPS Lon_Acc", "g", 20, 3, 0.01, FROM(car.longitudinal / kGravity)},
    {kGps, "GPS Heading", "deg", 10, 1, 0.0, compass},
    {kGps, "GPS Yaw_Rate", "deg/s", 20, 2, 0.2, FROM(kDegrees* car.yawRate)},
    {kGps, "GPS Satellites", "", 10, 0, 0.0, FROM(car.time < 20.0 ? 9 : 12)},
    {kGpsRaw, "GPS Altitude", "m", 10, 1, 0.2,
     [](const CarState& car, const Circuit& circuit) { return circuit.altitude(car.distance); }},
    {kGpsRaw, "GPS Latitude", "deg", 10, 7, 0.0, latitude},
    {kGpsRaw, "GPS Longitude", "deg", 10, 7, 0.0, longitude},
    {kGpsRaw, "GPS Accuracy", "m", 10, 2, 0.1, FROM(car.time < 20.0 ? 2.4 : 0.9)},
});

} // namespace

std::span<const RecordedChannel> recordedChannels()
{
    return kChannels;
}
