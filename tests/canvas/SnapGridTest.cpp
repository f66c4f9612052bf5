#include "canvas/SnapGrid.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr SnapGrid kTen{true, 10};

} // namespace

TEST(SnapGrid, StartsSwitchedOffWithAPitchOfTen)
{
    const SnapGrid grid;
    EXPECT_FALSE(grid.enabled);
    EXPECT_EQ(grid.pitch, 10);
    EXPECT_FALSE(grid.isActive());
}

TEST(SnapGrid, LeavesValuesAloneWhileSwitchedOff)
{
    EXPECT_EQ((SnapGrid{false, 10}.snap(17)), 17);
}

TEST(SnapGrid, APitchBelowTwoIsNoGrid)
{
    for (const int pitch : {1, 0, -10, std::numeric_limits<int>::min()}) {
        EXPECT_FALSE((SnapGrid{true, pitch}.isActive())) << pitch;
        EXPECT_EQ((SnapGrid{true, pitch}.snap(17)), 17) << pitch;
    }
    EXPECT_TRUE((SnapGrid{true, 2}.isActive()));
    EXPECT_EQ((SnapGrid{true, 2}.snap(17)), 18);
}

TEST(SnapGrid, RoundsToTheNearestMultipleHalvesUpward)
{
    EXPECT_EQ(kTen.snap(0), 0);
    EXPECT_EQ(kTen.snap(4), 0);
    EXPECT_EQ(kTen.snap(5), 10);
    EXPECT_EQ(kTen.snap(14), 10);
    EXPECT_EQ(kTen.snap(15), 20);
    EXPECT_EQ(kTen.snap(20), 20);
}

TEST(SnapGrid, NegativeValuesGoTowardZeroAfterTheShift)
{
    EXPECT_EQ(kTen.snap(-1), 0);
    EXPECT_EQ(kTen.snap(-7), 0);
    EXPECT_EQ(kTen.snap(-14), 0);
    EXPECT_EQ(kTen.snap(-15), -10);
    EXPECT_EQ(kTen.snap(-24), -10);
    EXPECT_EQ(kTen.snap(-25), -20);
}

TEST(SnapGrid, AnOddPitchShiftsByItsHalfRoundedDown)
{
    const SnapGrid grid{true, 5};
    EXPECT_EQ(grid.snap(2), 0);
    EXPECT_EQ(grid.snap(3), 5);
    EXPECT_EQ(grid.snap(7), 5);
    EXPECT_EQ(grid.snap(8), 10);
}

TEST(SnapGrid, TheLargestCoordinateDoesNotOverflow)
{
    EXPECT_EQ(kTen.snap(std::numeric_limits<int>::max()), 2'147'483'650);
    EXPECT_EQ(kTen.snap(std::numeric_limits<int>::min()), -2'147'483'640);
    EXPECT_EQ(
        (SnapGrid{true, std::numeric_limits<int>::max()}.snap(std::numeric_limits<int>::max())),
        std::numeric_limits<int>::max());
}
