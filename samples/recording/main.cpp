// Records the sample session: ten minutes on a made-up circuit, always the same.
#include "samples/reader/RecordingText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <limits>
#include <numbers>
#include <vector>

namespace {

using namespace RecordingText;

// East and north of the start, in metres.
using Point = std::complex<double>;

// An invented club circuit of about 3.3 km, driven anticlockwise, as places one metre apart.
struct Place
{
    Point point;
    double heading = 0.0;   // radians from east, anticlockwise, -pi to pi
    double curvature = 0.0; // 1/m, positive in left-hand bends
};
using Circuit = std::vector<Place>;

constexpr Point kWayPoints[] = {
    {0, 0},     {180, 0},    {360, 5},    {520, 20},   {640, 55},   {710, 130}, {690, 230},
    {590, 280}, {490, 320},  {480, 410},  {570, 460},  {700, 470},  {790, 520}, {790, 610},
    {700, 660}, {560, 660},  {420, 640},  {290, 590},  {220, 500},  {150, 410}, {50, 380},
    {-50, 400}, {-150, 420}, {-250, 370}, {-280, 270}, {-260, 150}, {-200, 50}, {-110, 5},
};
constexpr std::size_t kEdges = 400; // of the polygon between two way points

// A corner of the circuit as a polygon of short edges: a Catmull-Rom curve.
Point corner(std::size_t index)
{
    const double t = static_cast<double>(index % kEdges) / kEdges;
    const auto way = [&](std::size_t offset) {
        return kWayPoints[(index / kEdges + offset) % std::size(kWayPoints)];
    };
    const Point p = way(std::size(kWayPoints) - 1);
    const Point q = way(0);
    const Point r = way(1);
    const Point s = way(2);
    return 0.5 *
           (2.0 * q +
            t * (r - p + t * (2.0 * p - 5.0 * q + 4.0 * r - s + t * (3.0 * (q - r) + s - p))));
}

Circuit makeCircuit()
{
    Circuit circuit;
    double travelled = 0.0;
    constexpr std::size_t kCorners = std::size(kWayPoints) * kEdges;
    for (std::size_t i = 0; i < kCorners; ++i) {
        if (travelled >= static_cast<double>(circuit.size()))
            circuit.push_back({corner(i)});
        travelled += std::abs(corner((i + 1) % kCorners) - corner(i));
    }

    // Heading and curvature over a few metres, as a car takes them.
    constexpr std::size_t kReach = 5;
    const std::size_t count = circuit.size();
    const auto direction = [&](std::size_t i) {
        return std::arg(circuit[(i + kReach) % count].point -
                        circuit[(i + count - kReach) % count].point);
    };
    for (std::size_t i = 0; i < count; ++i) {
        const double turn =
            direction((i + kReach) % count) - direction((i + count - kReach) % count);
        circuit[i].heading = direction(i);
        circuit[i].curvature = std::remainder(turn, 2.0 * std::numbers::pi) / (2.0 * kReach);
    }
    return circuit;
}

// The state of the car at one moment.
struct CarState
{
    double time = 0.0;         // seconds since the recording began
    double distance = 0.0;     // metres since the recording began
    int lap = 0;               // laps completed
    double lapTime = 0.0;      // seconds since the lap began
    double lapDistance = 0.0;  // metres since the lap began
    double speed = 0.0;        // m/s
    double longitudinal = 0.0; // m/s2, positive when the car gets faster
    double lateral = 0.0;      // m/s2, positive in left-hand bends
    double yawRate = 0.0;      // rad/s, positive to the left
    double throttle = 0.0;     // 0 to 1
    double brake = 0.0;        // 0 to 1
    int gear = 1;
    double rpm = 0.0;
    Place place;
    double altitude = 0.0; // metres above the sea
};

constexpr int kStatesPerSecond = 100;

// A light prototype on slick tyres. Metres, seconds, kilograms, watts.
constexpr double kGrip = 12.0;    // lateral and braking acceleration
constexpr double kTraction = 6.0; // acceleration out of slow bends
constexpr double kPowerToMass = 200.0;
constexpr double kDrag = 0.0011; // 1/m
constexpr double kTopSpeed = 60.0;

constexpr double kStep = 1.0 / kStatesPerSecond;
constexpr double kPullAway = 3.0; // m/s2, out of the pits and back into them

constexpr std::array kGearRatios = {285.0, 205.0, 160.0, 131.0, 111.0, 97.0}; // rpm per m/s
constexpr double kIdleRpm = 1400.0;
constexpr double kShiftRpm = 6800.0;

// Share of the fastest pace at the start of each lap.
const std::vector<double> kPaces = {0.90, 0.965, 0.985, 0.995, 0.98, 1.0, 0.93, 0.93};

double accelerationAt(double speed)
{
    return std::min(kTraction, kPowerToMass / std::max(speed, 1.0)) - kDrag * speed * speed;
}

// The fastest speed at each step of the circuit: what the bends allow, then what the brakes and
// the engine allow before and after them.
std::vector<double> fastestLap(const Circuit& circuit)
{
    const std::size_t count = circuit.size();
    std::vector<double> speeds;
    for (const Place& place : circuit) {
        const double bend = std::abs(place.curvature);
        speeds.push_back(std::min(kTopSpeed, std::sqrt(kGrip / std::max(bend, 1e-6))));
    }
    const auto limit = [&](std::size_t i, double neighbour, double acceleration) {
        double& speed = speeds[i % count];
        speed = std::min(speed, std::sqrt(neighbour * neighbour + 2.0 * acceleration));
    };
    for (std::size_t i = 2 * count; i > 0; --i) // twice round, as the lap has no beginning
        limit(i - 1, speeds[i % count], kGrip);
    for (std::size_t i = 0; i < 2 * count; ++i)
        limit(i + 1, speeds[i % count], accelerationAt(speeds[i % count]));
    return speeds;
}

// Metres above the sea.
double altitudeAt(double distance, double lapLength)
{
    const double angle = 2.0 * std::numbers::pi * distance / lapLength;
    return 212.0 + 14.0 * std::sin(angle - 0.7) + 4.0 * std::sin(3.0 * angle);
}

// Between the values at two neighbouring positions.
double between(const std::vector<double>& values, double position)
{
    const auto index = static_cast<std::size_t>(position);
    return std::lerp(values[index % values.size()], values[(index + 1) % values.size()],
                     position - std::floor(position));
}

void addPedalsAndEngine(CarState& state)
{
    const double drag = kDrag * state.speed * state.speed;
    const double pushed = state.longitudinal + drag;
    state.throttle = std::clamp(pushed / (accelerationAt(state.speed) + drag), 0.0, 1.0);
    state.brake = std::clamp(-pushed / kGrip, 0.0, 1.0);
    const auto* const gear =
        std::find_if(kGearRatios.begin(), kGearRatios.end() - 1,
                     [&state](double ratio) { return ratio * state.speed < kShiftRpm; });
    state.gear = static_cast<int>(gear - kGearRatios.begin()) + 1;
    state.rpm = std::max(kIdleRpm, *gear * state.speed);
}

// A session that begins and ends at a standstill.
std::vector<CarState> drive(const Circuit& circuit, double seconds)
{
    const auto length = static_cast<double>(circuit.size());
    const std::vector<double> fastest = fastestLap(circuit);
    std::vector<CarState> states;
    CarState state;
    double lapBegan = 0.0;
    const auto count = static_cast<int>(seconds * kStatesPerSecond);
    for (int i = 0; i <= count; ++i) {
        state.time = i * kStep;
        const double pace = between(kPaces, state.distance / length);
        const double speed = std::min({between(fastest, state.lapDistance) * pace,
                                       kPullAway * state.time, kPullAway * (seconds - state.time)});
        state.longitudinal = (speed - state.speed) / kStep;
        state.speed = speed;
        state.place =
            circuit[static_cast<std::size_t>(std::fmod(state.distance, length)) % circuit.size()];
        state.altitude = altitudeAt(state.distance, length);
        state.yawRate = speed * state.place.curvature;
        state.lateral = speed * state.yawRate;
        state.lapTime = state.time - lapBegan;
        addPedalsAndEngine(state);
        states.push_back(state);

        state.distance += speed * kStep;
        state.lapDistance += speed * kStep;
        if (state.lapDistance >= length) {
            state.lapDistance -= length;
            ++state.lap;
            lapBegan = state.time;
        }
    }
    return states;
}

constexpr double kSeconds = 600.0;
constexpr double kGravity = 9.81;
constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr double kStartLatitude = 47.6; // no race track is near
constexpr double kMetresPerDegree = 111'320.0;

struct RecordedChannel
{
    Family family;
    const char* name;
    const char* units;
    int rate;     ///< samples a second, a divisor of kStatesPerSecond
    int decimals; ///< of the values as written
    double noise; ///< greatest deviation of the sensor, either way
    double (*value)(const CarState& car);
    double least = -std::numeric_limits<double>::infinity(); ///< noise takes no value below it
};

// Approaches the last value within minutes, as something does that warms up.
double warmUp(double from, double to, double minutes, const CarState& car)
{
    return to + (from - to) * std::exp(-car.time / (60.0 * minutes));
}

// km/h of a wheel. Side: 1 right, -1 left. Driven wheels slip.
double wheelSpeed(const CarState& car, int side, bool driven)
{
    constexpr double kHalfTrack = 0.75; // metres from the middle of the car to a wheel
    const double slip = driven ? 0.04 * car.throttle - 0.03 * car.brake : 0.0;
    return 3.6 * (car.speed + side * kHalfTrack * car.yawRate) * (1.0 + slip);
}

// Millimetres of travel. Side: 1 right, -1 left. End: 1 rear, -1 front.
double damper(const CarState& car, int side, int end)
{
    return 25.0 + 1.1 * side * car.lateral + 0.8 * end * car.longitudinal +
           0.002 * car.speed * car.speed;
}

// Degrees, positive to the left.
double steeringWheel(const CarState& car)
{
    constexpr double kWheelbase = 2.6;
    constexpr double kRatio = 12.0; // of the steering wheel to the road wheels
    return kRatio * std::atan(kWheelbase * car.place.curvature) * kDegrees;
}

#define FROM(expression) [](const CarState& car) -> double { return expression; }

// Names are spelled as a logger might, not as in the sample layouts, to exercise every rule of
// matching.
constexpr RecordedChannel kChannels[] = {
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
    {kPlain, "Steering_Angle", "deg", 50, 1, 0.5, FROM(steeringWheel(car))},
    {kPlain, "FUEL LEVEL", "l", 10, 2, 0.05, FROM(38.0 - 0.00072 * car.distance)},
    {kPlain, "Fuel_Flow", "l/h", 10, 1, 0.3, FROM(3.0 + 0.008 * car.rpm * car.throttle)},
    {kPlain, "Lap_Time", "s", 10, 2, 0.0, FROM(car.lapTime)},
    {kPlain, "Lap_Number", "", 10, 0, 0.0, FROM(car.lap + 1)},
    {kPlain, "Lap_Distance", "m", 20, 1, 0.0, FROM(car.lapDistance)},
    {kPlain, "Stbd Boost", "bar", 20, 2, 0.02,
     FROM(-0.4 + 1.5 * car.throttle * std::min(1.0, car.rpm / 5500.0))},
    {kPlain, "Battery_Voltage", "V", 10, 2, 0.03, FROM(car.rpm > 2000.0 ? 13.9 : 13.2)},
    {kPlain, "Lambda1", "lambda", 20, 3, 0.01, FROM(1.02 - 0.15 * car.throttle)},
    {kPlain, "Wheel_Speed FL", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, -1, false)), 0.0},
    {kPlain, "Wheel_Speed FR", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, 1, false)), 0.0},
    {kPlain, "Wheel_Speed RL", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, -1, true)), 0.0},
    {kPlain, "Wheel_Speed RR", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, 1, true)), 0.0},
    {kPlain, "Damper FL", "mm", 50, 1, 0.6, FROM(damper(car, -1, -1))},
    {kPlain, "Damper FR", "mm", 50, 1, 0.6, FROM(damper(car, 1, -1))},
    {kPlain, "Damper RL", "mm", 50, 1, 0.6, FROM(damper(car, -1, 1))},
    {kPlain, "Damper RR", "mm", 50, 1, 0.6, FROM(damper(car, 1, 1))},
    {kGps, "GPS Speed", "m/s", 20, 2, 0.05, FROM(car.speed), 0.0},
    {kGps, "GPS Lat_Acc", "g", 20, 3, 0.01, FROM(car.lateral / kGravity)},
    {kGps, "GPS Lon_Acc", "g", 20, 3, 0.01, FROM(car.longitudinal / kGravity)},
    {kGps, "GPS Heading", "deg", 10, 1, 0.0,
     FROM(std::fmod(450.0 - car.place.heading * kDegrees, 360.0))},
    {kGps, "GPS Yaw_Rate", "deg/s", 20, 2, 0.2, FROM(kDegrees* car.yawRate)},
    {kGps, "GPS Satellites", "", 10, 0, 0.0, FROM(car.time < 20.0 ? 9 : 12)},
    {kGpsRaw, "GPS Altitude", "m", 10, 1, 0.2, FROM(car.altitude)},
    {kGpsRaw, "GPS Latitude", "deg", 10, 7, 0.0,
     FROM(kStartLatitude + car.place.point.imag() / kMetresPerDegree)},
    {kGpsRaw, "GPS Longitude", "deg", 10, 7, 0.0,
     FROM(11.2 +
          car.place.point.real() / (kMetresPerDegree * std::cos(kStartLatitude / kDegrees)))},
    {kGpsRaw, "GPS Accuracy", "m", 10, 2, 0.1, FROM(car.time < 20.0 ? 2.4 : 0.9)},
};

// A number from -1 to 1 that belongs to this sample of this channel: the same in every run.
double noise(std::size_t channel, std::size_t sample)
{
    std::uint64_t bits = (channel + 1) * 0x9E3779B97F4A7C15U + (sample + 1) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 30U)) * 0x94D049BB133111EBU;
    return static_cast<double>(bits >> 33U) / static_cast<double>(1U << 30U) - 1.0;
}

void writeChannel(std::ostream& out, std::size_t index, const std::vector<CarState>& states)
{
    const RecordedChannel& channel = kChannels[index];
    const bool plain = channel.family == kPlain; // times in seconds; the others milliseconds
    out << "channel\t" << kFamilyWords[channel.family] << '\t' << channel.name << '\t'
        << channel.units << '\n';
    const auto stride = static_cast<std::size_t>(kStatesPerSecond / channel.rate);
    for (std::size_t i = 0; i < states.size(); i += stride) {
        const double value = channel.value(states[i]) + channel.noise * noise(index, i);
        out << std::setprecision(plain ? 2 : 0) << states[i].time * (plain ? 1 : 1000) << '\t'
            << std::setprecision(channel.decimals) << std::max(channel.least, value) << '\n';
    }
}

void record(std::ostream& out)
{
    const std::vector<CarState> states = drive(makeCircuit(), kSeconds);
    out << kFirstLine
        << "\n# Made by the sample recorder; no such car, driver or circuit exists.\n"
           "vehicle\tPrototype 7\nracer\tSample Driver\nlaps\t"
        << states.back().lap << '\n'
        << std::fixed;
    for (std::size_t index = 0; index < std::size(kChannels); ++index)
        writeChannel(out, index, states);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: gaugewright_record FILE\n", stderr);
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    record(file);
    if (!file.flush()) {
        std::fprintf(stderr, "gaugewright_record: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
