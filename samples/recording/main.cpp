// Records the sample session: ten minutes on a made-up circuit, always the same.
#include "samples/reader/RecordingText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <numbers>
#include <random>
#include <vector>

namespace {

using namespace RecordingText;

// East and north of the start, in metres.
using Point = std::complex<double>;

struct Place
{
    Point point;
    double heading = 0.0;   // radians from east, anticlockwise, -pi to pi
    double curvature = 0.0; // 1/m, positive in left-hand bends
};
using Circuit = std::vector<Place>; // places one metre apart

// An invented club circuit of about 3.3 km, driven anticlockwise, as a Fourier series: the sum of
// vectors that turn kFirstTurns, kFirstTurns + 1 and so on times in a lap.
constexpr double kFirstTurns = -5.0;
constexpr Point kVectors[] = {
    {8, 34},      {-2, -16}, {-20, -3},  {5, 74},  {-103, 29}, {318, 287},
    {-214, -318}, {-3, -64}, {-36, -24}, {45, 20}, {6, -12},   {-4, -7},
};

Circuit makeCircuit()
{
    Circuit circuit;
    for (double angle = 0.0; angle < 2.0 * std::numbers::pi;) {
        Point point;
        Point first, second; // derivatives with respect to the angle
        double turns = kFirstTurns;
        for (const Point& vector : kVectors) {
            const Point turned = vector * std::polar(1.0, turns * angle);
            point += turned;
            first += Point(0.0, turns) * turned;
            second -= turns * turns * turned;
            ++turns;
        }
        const double metres = std::abs(first); // for each radian
        const double bend = (std::conj(first) * second).imag();
        circuit.push_back({point, std::arg(first), bend / std::pow(metres, 3)});
        angle += 1.0 / metres;
    }
    return circuit;
}

struct CarState
{
    double time = 0.0;         // seconds since the recording began
    double distance = 0.0;     // metres since the recording began
    int lap = 0;               // laps completed
    double lapBegan = 0.0;     // seconds since the recording began
    double lapDistance = 0.0;  // metres since the lap began
    double speed = 0.0;        // m/s
    double longitudinal = 0.0; // m/s2, positive when the car gets faster
    double throttle = 0.0;     // 0 to 1
    double brake = 0.0;        // 0 to 1
    int gear = 1;
    double rpm = 0.0;
    Place place;

    [[nodiscard]] double yawRate() const { return speed * place.curvature; } // rad/s
    [[nodiscard]] double lateral() const { return speed * yawRate(); }       // m/s2
};

constexpr double kSeconds = 600.0; // of the session
constexpr double kStatesPerSecond = 100.0;

// A light prototype on slick tyres. Metres, seconds, kilograms, watts.
constexpr double kGrip = 12.0;    // lateral and braking acceleration
constexpr double kTraction = 6.0; // acceleration out of slow bends
constexpr double kPowerToMass = 200.0;
constexpr double kDrag = 0.0011; // 1/m
constexpr double kWheelbase = 2.6;
constexpr double kSteeringRatio = 12.0; // of the steering wheel to the road wheels
constexpr double kPullAway = 3.0;       // m/s2, out of the pits and back into them

constexpr std::array kGearRatios = {285.0, 205.0, 160.0, 131.0, 111.0, 97.0}; // rpm per m/s
constexpr double kIdleRpm = 1400.0;
constexpr double kShiftRpm = 6800.0;

// Share of the fastest pace at the start of each lap.
const std::vector<double> kPaces = {0.90, 0.965, 0.985, 0.995, 0.98, 1.0, 0.93, 0.8};

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
    for (const Place& place : circuit)
        speeds.push_back(std::sqrt(kGrip / std::max(std::abs(place.curvature), 1e-6)));
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
std::vector<CarState> drive(const Circuit& circuit)
{
    const auto length = static_cast<double>(circuit.size());
    const std::vector<double> fastest = fastestLap(circuit);
    std::vector<CarState> states;
    CarState state;
    for (int i = 0; i <= kSeconds * kStatesPerSecond; ++i) {
        state.time = i / kStatesPerSecond;
        const double pace = between(kPaces, state.distance / length);
        const double pitSpeed = kPullAway * std::min(state.time, kSeconds - state.time);
        const double speed = std::min(between(fastest, state.distance) * pace, pitSpeed);
        state.longitudinal = (speed - state.speed) * kStatesPerSecond;
        state.speed = speed;
        state.place = circuit[static_cast<std::size_t>(state.distance) % circuit.size()];
        state.lapDistance = std::fmod(state.distance, length);
        if (state.distance >= (state.lap + 1) * length) {
            ++state.lap;
            state.lapBegan = state.time;
        }
        addPedalsAndEngine(state);
        states.push_back(state);
        state.distance += speed / kStatesPerSecond;
    }
    return states;
}

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
    double noise; ///< greatest deviation of the sensor; takes no value below 0
    double (*value)(const CarState& car);
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
    return 3.6 * (car.speed + side * kHalfTrack * car.yawRate()) * (1.0 + slip);
}

// Millimetres of travel. Side: 1 right, -1 left. End: 1 rear, -1 front.
double damper(const CarState& car, int side, int end)
{
    return 25.0 + 1.1 * side * car.lateral() + 0.8 * end * car.longitudinal +
           0.002 * car.speed * car.speed;
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
    {kPlain, "Throttle_Pos", "%", 50, 1, 0.2, FROM(car.throttle * 100.0)},
    {kPlain, "BrakePressF", "bar", 50, 1, 0.2, FROM(car.brake * 62.0)},
    {kPlain, "BrakePressR", "bar", 50, 1, 0.2, FROM(car.brake * 41.0)},
    {kPlain, "Steering_Angle", "deg", 50, 1, 0.5,
     FROM(kDegrees* kSteeringRatio* std::atan(kWheelbase* car.place.curvature))},
    {kPlain, "FUEL LEVEL", "l", 10, 2, 0.05, FROM(38.0 - 0.00072 * car.distance)},
    {kPlain, "Fuel_Flow", "l/h", 10, 1, 0.3, FROM(3.0 + 0.008 * car.rpm * car.throttle)},
    {kPlain, "Lap_Time", "s", 10, 2, 0.0, FROM(car.time - car.lapBegan)},
    {kPlain, "Lap_Number", "", 10, 0, 0.0, FROM(car.lap + 1)},
    {kPlain, "Lap_Distance", "m", 20, 1, 0.0, FROM(car.lapDistance)},
    {kPlain, "Stbd Boost", "bar", 20, 2, 0.02,
     FROM(-0.4 + 1.5 * car.throttle * std::min(1.0, car.rpm / 5500.0))},
    {kPlain, "Battery_Voltage", "V", 10, 2, 0.03, FROM(car.rpm > 2000.0 ? 13.9 : 13.2)},
    {kPlain, "Lambda1", "lambda", 20, 3, 0.01, FROM(1.02 - 0.15 * car.throttle)},
    {kPlain, "Wheel_Speed FL", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, -1, false))},
    {kPlain, "Wheel_Speed FR", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, 1, false))},
    {kPlain, "Wheel_Speed RL", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, -1, true))},
    {kPlain, "Wheel_Speed RR", "km/h", 50, 1, 0.3, FROM(wheelSpeed(car, 1, true))},
    {kPlain, "Damper FL", "mm", 50, 1, 0.6, FROM(damper(car, -1, -1))},
    {kPlain, "Damper FR", "mm", 50, 1, 0.6, FROM(damper(car, 1, -1))},
    {kPlain, "Damper RL", "mm", 50, 1, 0.6, FROM(damper(car, -1, 1))},
    {kPlain, "Damper RR", "mm", 50, 1, 0.6, FROM(damper(car, 1, 1))},
    {kGps, "GPS Speed", "m/s", 20, 2, 0.05, FROM(car.speed)},
    {kGps, "GPS Lat_Acc", "g", 20, 3, 0.01, FROM(car.lateral() / kGravity)},
    {kGps, "GPS Lon_Acc", "g", 20, 3, 0.01, FROM(car.longitudinal / kGravity)},
    {kGps, "GPS Heading", "deg", 10, 1, 0.0,
     FROM(std::fmod(450.0 - car.place.heading * kDegrees, 360.0))},
    {kGps, "GPS Yaw_Rate", "deg/s", 20, 2, 0.2, FROM(car.yawRate() * kDegrees)},
    {kGps, "GPS Satellites", "", 10, 0, 0.0, FROM(car.time < 20.0 ? 9 : 12)},
    {kGpsRaw, "GPS Altitude", "m", 10, 1, 0.2,
     FROM(212.0 + 14.0 * std::sin(car.place.point.real() / 200.0))},
    {kGpsRaw, "GPS Latitude", "deg", 10, 7, 0.0,
     FROM(kStartLatitude + car.place.point.imag() / kMetresPerDegree)},
    {kGpsRaw, "GPS Longitude", "deg", 10, 7, 0.0,
     FROM(11.2 +
          car.place.point.real() / (kMetresPerDegree * std::cos(kStartLatitude / kDegrees)))},
    {kGpsRaw, "GPS Accuracy", "m", 10, 2, 0.1, FROM(car.time < 20.0 ? 2.4 : 0.9)},
};

void writeChannel(std::ostream& out, const RecordedChannel& channel,
                  const std::vector<CarState>& states, std::mt19937& random)
{
    std::uniform_real_distribution<double> noise(-channel.noise, channel.noise);
    const bool plain = channel.family == kPlain; // times in seconds; the others milliseconds
    out << "channel\t" << kFamilyWords[channel.family] << '\t' << channel.name << '\t'
        << channel.units << '\n';
    const auto stride = static_cast<std::size_t>(kStatesPerSecond / channel.rate);
    for (std::size_t i = 0; i < states.size(); i += stride) {
        const double value = channel.value(states[i]);
        const double noisy = std::max(value + noise(random), std::min(value, 0.0));
        out << std::setprecision(plain ? 2 : 0) << states[i].time * (plain ? 1 : 1000) << '\t'
            << std::setprecision(channel.decimals) << noisy << '\n';
    }
}

void record(std::ostream& out)
{
    const std::vector<CarState> states = drive(makeCircuit());
    out << kFirstLine
        << "\n# Made by the sample recorder; no such car, driver or circuit exists.\n"
           "vehicle\tPrototype 7\nracer\tSample Driver\nlaps\t"
        << states.back().lap << '\n'
        << std::fixed;
    std::mt19937 random; // the same sequence in every run
    for (const RecordedChannel& channel : kChannels)
        writeChannel(out, channel, states, random);
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
