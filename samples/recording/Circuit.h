#pragma once

#include <vector>

/// An invented club circuit of about 3.3 km, driven anticlockwise: a closed curve through a few way
/// points. Distances are metres along the lap and may exceed its length.
class Circuit
{
public:
    Circuit();

    struct Point
    {
        double x = 0.0;         ///< metres east of the start
        double y = 0.0;         ///< metres north of the start
        double heading = 0.0;   ///< radians from east, anticlockwise, -pi to pi
        double curvature = 0.0; ///< 1/m, positive in left-hand bends
    };

    static constexpr double kStep = 1.0; ///< metres between neighbouring points

    [[nodiscard]] double length() const { return static_cast<double>(m_points.size()) * kStep; }
    [[nodiscard]] const Point& at(double distance) const;
    /// Metres above the sea.
    [[nodiscard]] double altitude(double distance) const;

private:
    std::vector<Point> m_points;
};
