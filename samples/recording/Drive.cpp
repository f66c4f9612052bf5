#include "samples/recording/Drive.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

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
    const auto count = static_cast<std::size_t>(circuit.length() / Circuit::kStep);
    std::vector<double> speeds;
    for (std::size_t i = 0; i < count; ++i) {
        const double bend = std::abs(circuit.at(static_cast<double>(i) * Circuit::kStep).curvature);
        speeds.push_back(std::min(kTopSpeed, std::sqrt(kGrip / std::max(bend, 1e-6))));
    }
    const auto reached = [](double speed, double acceleration) {
        return std::sqrt(speed * speed + 2.0 * acceleration * Circuit::kStep);
    };
    for (std::size_t i = 2 * count; i > 0; --i) { // twice round, as the lap has no beginning
        const double next = speeds[i % count];
        double& speed = speeds[(i - 1) % count];
        speed = std::min(speed, reached(next, kGrip));
    }
    for (std::size_t i = 0; i < 2 * count; ++i) {
        const double before = speeds[i % count];
        double& speed = speeds[(i + 1) % count];
        speed = std::min(speed, reached(before, accelerationAt(before)));
    }
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

} // namespace

std::vector<CarState> drive(const Circuit& circuit, double seconds)
{
    const std::vector<double> fastest = fastestLap(circuit);
    std::vector<CarState> states;
    CarState state;
    double lapBegan = 0.0;
    const auto count = static_cast<int>(seconds * kStatesPerSecond);
    for (int i = 0; i <= count; ++i) {
        state.time = i * kStep;
        const double pace = between(kPaces, state.distance / circuit.length());
        const double speed = std::min({between(fastest, state.lapDistance / Circuit::kStep) * pace,
                                       kPullAway * state.time, kPullAway * (seconds - state.time)});
        state.longitudinal = (speed - state.speed) / kStep;
        state.speed = speed;
        state.place = circuit.at(state.distance);
        state.altitude = circuit.altitude(state.distance);
        state.yawRate = speed * state.place.curvature;
        state.lateral = speed * state.yawRate;
        state.lapTime = state.time - lapBegan;
        addPedalsAndEngine(state);
        states.push_back(state);

        state.distance += speed * kStep;
        state.lapDistance += speed * kStep;
        if (state.lapDistance >= circuit.length()) {
            state.lapDistance -= circuit.length();
            ++state.lap;
            lapBegan = state.time;
        }
    }
    return states;
}
