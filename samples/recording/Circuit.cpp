#include "samples/recording/Circuit.h"

#include <array>
#include <cmath>
#include <numbers>

namespace {

struct Place
{
    double x;
    double y;
};

constexpr std::array kWayPoints = std::to_array<Place>({
    {0, 0},     {180, 0},    {360, 5},    {520, 20},   {640, 55},   {710, 130}, {690, 230},
    {590, 280}, {490, 320},  {480, 410},  {570, 460},  {700, 470},  {790, 520}, {790, 610},
    {700, 660}, {560, 660},  {420, 640},  {290, 590},  {220, 500},  {150, 410}, {50, 380},
    {-50, 400}, {-150, 420}, {-250, 370}, {-280, 270}, {-260, 150}, {-200, 50}, {-110, 5},
});

/// A point of the Catmull-Rom curve between b and c.
Place between(Place a, Place b, Place c, Place d, double t)
{
    const auto mix = [t](double p, double q, double r, double s) {
        return 0.5 *
               (2.0 * q +
                t * (r - p + t * (2.0 * p - 5.0 * q + 4.0 * r - s + t * (3.0 * (q - r) + s - p))));
    };
    return {mix(a.x, b.x, c.x, d.x), mix(a.y, b.y, c.y, d.y)};
}

double distance(Place a, Place b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

/// The closed curve as a polygon of short edges.
std::vector<Place> fineCurve()
{
    constexpr int kEdges = 400; // between two way points
    const std::size_t count = kWayPoints.size();
    std::vector<Place> curve;
    for (std::size_t i = 0; i < count; ++i) {
        for (int edge = 0; edge < kEdges; ++edge)
            curve.push_back(between(kWayPoints[(i + count - 1) % count], kWayPoints[i],
                                    kWayPoints[(i + 1) % count], kWayPoints[(i + 2) % count],
                                    static_cast<double>(edge) / kEdges));
    }
    return curve;
}

/// The angle from one direction to another, the short way round.
double turn(double from, double to)
{
    return std::remainder(to - from, 2.0 * std::numbers::pi);
}

} // namespace

Circuit::Circuit()
{
    const std::vector<Place> curve = fineCurve();
    double travelled = 0.0;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        const Place& next = curve[(i + 1) % curve.size()];
        if (travelled >= static_cast<double>(m_points.size()) * kStep)
            m_points.push_back({curve[i].x, curve[i].y});
        travelled += distance(curve[i], next);
    }

    // Heading and curvature over a few metres, as a car takes them.
    constexpr std::size_t kReach = 5;
    const std::size_t count = m_points.size();
    const auto direction = [this, count](std::size_t i) {
        const Point& from = m_points[(i + count - kReach) % count];
        const Point& to = m_points[(i + kReach) % count];
        return std::atan2(to.y - from.y, to.x - from.x);
    };
    for (std::size_t i = 0; i < count; ++i) {
        m_points[i].heading = direction(i);
        m_points[i].curvature =
            turn(direction((i + count - kReach) % count), direction((i + kReach) % count)) /
            (2.0 * kReach * kStep);
    }
}

const Circuit::Point& Circuit::at(double distance) const
{
    const double lapDistance = std::fmod(distance, length());
    return m_points[static_cast<std::size_t>(lapDistance / kStep) % m_points.size()];
}

double Circuit::altitude(double distance) const
{
    const double lap = 2.0 * std::numbers::pi * distance / length();
    return 212.0 + 14.0 * std::sin(lap - 0.7) + 4.0 * std::sin(3.0 * lap);
}
