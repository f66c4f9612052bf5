#include "app/InsertPlacement.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

ElementGeometry geometry(int x, int y, int w, int h)
{
    return {x, y, w, h};
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name that the test library looks for
void PrintTo(const ElementGeometry& g, std::ostream* out)
{
    *out << g.x << ", " << g.y << ", " << g.w << " x " << g.h;
}

TEST(InsertPlacement, CentresADonorOfKnownSize)
{
    EXPECT_EQ(centredPlacement(800, 480, 120, 40), geometry(340, 220, 120, 40));
}

TEST(InsertPlacement, AnUnknownSideGetsAUsualSize)
{
    EXPECT_EQ(centredPlacement(320, 240, 0, 0), geometry(60, 80, 200, 80));
    EXPECT_EQ(centredPlacement(320, 240, -5, 1), geometry(60, 119, 200, 1));
}

TEST(InsertPlacement, NothingIsLargerThanThePage)
{
    EXPECT_EQ(centredPlacement(320, 240, 500, 300), geometry(0, 0, 320, 240));
    EXPECT_EQ(centredPlacement(100, 50, 0, 0), geometry(0, 0, 100, 50));
}

TEST(InsertPlacement, OddRemaindersTruncate)
{
    EXPECT_EQ(centredPlacement(101, 51, 10, 10), geometry(45, 20, 10, 10));
}

TEST(InsertPlacement, PagesWithoutExtentDoNotOverflow)
{
    EXPECT_EQ(centredPlacement(0, 0, 120, 40), geometry(0, 0, 0, 0));
    EXPECT_EQ(centredPlacement(kSmallest, -3, 0, 0), geometry(0, 0, kSmallest, -3));
    EXPECT_EQ(centredPlacement(kLargest, kLargest, 1, kLargest),
              geometry((kLargest - 1) / 2, 0, 1, kLargest));
}
