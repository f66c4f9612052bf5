#include "samples/recording/Circuit.h"

#include <cmath>
#include <iterator>
#include <numbers>

namespace {

constexpr double kWayPoints[][2] = {
    {0, 0},     {180, 0},    {360, 5},    {520, 20},   {640, 55},   {710, 130}, {690, 230},
    {590, 280}, {490, 320},  {480, 410},  {570, 460},  {700, 470},  {790, 520}, {790, 610},
    {700, 660}, {560, 660},  {420, 640},  {290, 590},  {220, 500},  {150, 410}, {50, 380},
    {-50, 400}, {-150, 420}, {-250, 370}, {-280, 270}, {-260, 150}, {-200, 50}, {-110, 5},
};
constexpr std::size_t kEdges = 400; // of the polygon between two way points

// A corner of the curve as a polygon of short edges: a Catmull-Rom curve.
Circuit::Point corner(std::size_t index)
{
    const double t = static_cast<double>(index % kEdges) / kEdges;
    const auto coordinate = [&](std::size_t axis) {
        const auto way = [&](std::size_t offset) {
            return kWayPoints[(index / kEdges + offset) % std::size(kWayPoints)][axis];
        };
        const double p = way(std::size(kWayPoints) - 1);
        const double q = way(0);
        const double r = way(1);
        const double s = way(2);
        return 0.5 *
               (2.0 * q +
                t * (r - p + t * (2.0 * p - 5.0 * q + 4.0 * r - s + t * (3.0 * (q - r) + s - p))));
    };
    return {coordinate(0), coordinate(1)};
}

} // namespace

Circuit::Circuit()
{
    double travelled = 0.0;
    constexpr std::size_t kCorners = std::size(kWayPoints) * kEdges;
    for (std::size_t i = 0; i < kCorners; ++i) {
        const Point here = corner(i);
        const Point next = corner((i + 1) % kCorners);
        if (travelled >= length())
            m_points.push_back(here);
        travelled += std::hypot(next.x - here.x, next.y - here.y);
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
        const double turn =
            direction((i + kReach) % count) - direction((i + count - kReach) % count);
        m_points[i].heading = direction(i);
        m_points[i].curvature =
            std::remainder(turn, 2.0 * std::numbers::pi) / (2.0 * kReach * kStep);
    }
}

const Circuit::Point& Circuit::at(double distance) const
{
    return m_points[static_cast<std::size_t>(std::fmod(distance, length()) / kStep) %
                    m_points.size()];
}

double Circuit::altitude(double distance) const
{
    const double lap = 2.0 * std::numbers::pi * distance / length();
    return 212.0 + 14.0 * std::sin(lap - 0.7) + 4.0 * std::sin(3.0 * lap);
}
