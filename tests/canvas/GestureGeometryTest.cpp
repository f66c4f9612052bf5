#include "canvas/GestureGeometry.h"

#include <gtest/gtest.h>

#include <limits>

using GestureGeometry::applyDrag;
using GestureGeometry::clampToRange;
using GestureGeometry::DragMode;
using GestureGeometry::handleAt;
using GestureGeometry::handlePoint;

namespace {

constexpr QSize kPage(800, 480);
constexpr SnapGrid kOff{false, 10};
constexpr SnapGrid kTen{true, 10};
constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();
const QRectF kRect(100, 200, 60, 40);

DragMode handle(int number)
{
    return static_cast<DragMode>(number);
}

} // namespace

// --- Clamp ---------------------------------------------------------------------------------------

TEST(GestureClamp, KeepsACandidateWithinItsBounds)
{
    EXPECT_EQ(clampToRange(5, 10), 5);
    EXPECT_EQ(clampToRange(0, 10), 0);
    EXPECT_EQ(clampToRange(10, 10), 10);
    EXPECT_EQ(clampToRange(11, 10), 10);
    EXPECT_EQ(clampToRange(-1, 10), 0);
}

TEST(GestureClamp, ANegativeUpperBoundWinsOverZeroOnlyFromAbove)
{
    EXPECT_EQ(clampToRange(5, -20), -20);
    EXPECT_EQ(clampToRange(-19, -20), -20);
    EXPECT_EQ(clampToRange(-20, -20), 0);
    EXPECT_EQ(clampToRange(-100, -20), 0);
}

// --- Handles -------------------------------------------------------------------------------------

TEST(GestureHandles, AreOnCornersAndEdgeMiddlesInOrder)
{
    EXPECT_EQ(handlePoint(kRect, handle(2)), QPointF(100, 200));
    EXPECT_EQ(handlePoint(kRect, handle(3)), QPointF(130, 200));
    EXPECT_EQ(handlePoint(kRect, handle(4)), QPointF(160, 200));
    EXPECT_EQ(handlePoint(kRect, handle(5)), QPointF(100, 220));
    EXPECT_EQ(handlePoint(kRect, handle(6)), QPointF(160, 220));
    EXPECT_EQ(handlePoint(kRect, handle(7)), QPointF(100, 240));
    EXPECT_EQ(handlePoint(kRect, handle(8)), QPointF(130, 240));
    EXPECT_EQ(handlePoint(kRect, handle(9)), QPointF(160, 240));
}

TEST(GestureHandles, AreListedInHitTestOrder)
{
    int number = 2;
    for (const DragMode mode : GestureGeometry::kHandles)
        EXPECT_EQ(static_cast<int>(mode), number++);
    EXPECT_EQ(number, 10);
}

TEST(GestureHandles, AreDrawnSixPixelsWideAndGrabbedTwelve)
{
    EXPECT_EQ(GestureGeometry::handleSquare(kRect, handle(2), GestureGeometry::kHandleSize),
              QRectF(97, 197, 6, 6));
    EXPECT_EQ(GestureGeometry::handleSquare(kRect, handle(2), GestureGeometry::kHandleHitSize),
              QRectF(94, 194, 12, 12));
}

TEST(GestureHandles, EveryHandleIsGrabbedAtItsPoint)
{
    for (const DragMode mode : GestureGeometry::kHandles)
        EXPECT_EQ(handleAt(kRect, handlePoint(kRect, mode).toPoint()), mode);
}

TEST(GestureHandles, HitSquaresIncludeTheirEdgesAndNothingBeyond)
{
    EXPECT_EQ(handleAt(kRect, {94, 194}), handle(2));
    EXPECT_EQ(handleAt(kRect, {106, 206}), handle(2));
    EXPECT_EQ(handleAt(kRect, {93, 200}), DragMode::Idle);
    EXPECT_EQ(handleAt(kRect, {107, 200}), DragMode::Idle);
    EXPECT_EQ(handleAt(kRect, {100, 193}), DragMode::Idle);
    EXPECT_EQ(handleAt(kRect, {115, 220}), DragMode::Idle);
}

TEST(GestureHandles, WhereHitSquaresOverlapTheLowerNumberWins)
{
    const QRectF tiny(100, 200, 4, 4);
    EXPECT_EQ(handleAt(tiny, {102, 202}), handle(2));
    EXPECT_EQ(handleAt(tiny, {108, 202}), handle(3));
    EXPECT_EQ(handleAt(tiny, {110, 202}), handle(4));
    EXPECT_EQ(handleAt(tiny, {95, 208}), handle(5));
}

// --- Move ----------------------------------------------------------------------------------------

TEST(GestureMove, ShiftsByTheDistanceAndLeavesTheSizeAlone)
{
    EXPECT_EQ(applyDrag(DragMode::Move, {100, 100, 50, 40}, {20, -30}, kPage, kOff),
              (ElementGeometry{120, 70, 50, 40}));
}

TEST(GestureMove, StopsAtEveryEdgeOfThePage)
{
    const ElementGeometry start{100, 100, 50, 40};
    EXPECT_EQ(applyDrag(DragMode::Move, start, {-500, -500}, kPage, kOff),
              (ElementGeometry{0, 0, 50, 40}));
    EXPECT_EQ(applyDrag(DragMode::Move, start, {5000, 5000}, kPage, kOff),
              (ElementGeometry{750, 440, 50, 40}));
}

TEST(GestureMove, SnapsToTheGrid)
{
    EXPECT_EQ(applyDrag(DragMode::Move, {13, 13, 50, 40}, {4, 1}, kPage, kTen),
              (ElementGeometry{20, 10, 50, 40}));
}

TEST(GestureMove, SnapsAfterClampingSoThatItMayPassThePagesEdge)
{
    EXPECT_EQ(applyDrag(DragMode::Move, {100, 0, 205, 40}, {5000, 0}, kPage, kTen),
              (ElementGeometry{600, 0, 205, 40}));
}

TEST(GestureMove, AnElementLargerThanThePageKeepsTheOrderOfTheTests)
{
    const ElementGeometry start{0, 0, 900, 500}; // bounds -100 and -20
    EXPECT_EQ(applyDrag(DragMode::Move, start, {5, 5}, kPage, kOff),
              (ElementGeometry{-100, -20, 900, 500}));
    EXPECT_EQ(applyDrag(DragMode::Move, start, {-100, -20}, kPage, kOff),
              (ElementGeometry{0, 0, 900, 500}));
}

// --- Resize --------------------------------------------------------------------------------------

namespace {

/// What a handle may change: which edges follow a drag of (7, 9).
struct HandleCase
{
    int number;
    ElementGeometry expected;
};

class GestureResize : public ::testing::TestWithParam<HandleCase>
{
};

} // namespace

TEST_P(GestureResize, MovesItsOwnEdgesOnly)
{
    EXPECT_EQ(applyDrag(handle(GetParam().number), {100, 100, 50, 40}, {7, 9}, kPage, kOff),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Handles, GestureResize,
    ::testing::Values(HandleCase{2, {107, 109, 43, 31}}, HandleCase{3, {100, 109, 50, 31}},
                      HandleCase{4, {100, 109, 57, 31}}, HandleCase{5, {107, 100, 43, 40}},
                      HandleCase{6, {100, 100, 57, 40}}, HandleCase{7, {107, 100, 43, 49}},
                      HandleCase{8, {100, 100, 50, 49}}, HandleCase{9, {100, 100, 57, 49}}),
    [](const auto& instance) { return "Handle" + std::to_string(instance.param.number); });

TEST(GestureResizeLimits, TheLeftEdgeStopsTenBeforeTheRightOneWhichStaysPut)
{
    EXPECT_EQ(applyDrag(handle(5), {100, 100, 50, 40}, {500, 0}, kPage, kOff),
              (ElementGeometry{140, 100, 10, 40}));
}

TEST(GestureResizeLimits, TheTopEdgeStopsTenBeforeTheBottomOneWhichStaysPut)
{
    EXPECT_EQ(applyDrag(handle(3), {100, 100, 50, 40}, {0, 500}, kPage, kOff),
              (ElementGeometry{100, 130, 50, 10}));
}

TEST(GestureResizeLimits, LeftAndTopEdgesAreLimitedByZeroOnly)
{
    EXPECT_EQ(applyDrag(handle(2), {100, 100, 50, 40}, {-500, -500}, kPage, kOff),
              (ElementGeometry{0, 0, 150, 140}));
    // An element that ends beyond the page keeps its far edges there.
    EXPECT_EQ(applyDrag(handle(2), {700, 400, 300, 200}, {50, 50}, kPage, kOff),
              (ElementGeometry{750, 450, 250, 150}));
}

TEST(GestureResizeLimits, RightAndBottomEdgesStopAtThePage)
{
    EXPECT_EQ(applyDrag(handle(9), {100, 100, 50, 40}, {5000, 5000}, kPage, kOff),
              (ElementGeometry{100, 100, 700, 380}));
}

TEST(GestureResizeLimits, RightAndBottomEdgesLeaveTenPixels)
{
    EXPECT_EQ(applyDrag(handle(9), {100, 100, 50, 40}, {-5000, -5000}, kPage, kOff),
              (ElementGeometry{100, 100, 10, 10}));
}

TEST(GestureResizeLimits, TheMinimumComesBeforeTheSnapAndSurvivesIt)
{
    EXPECT_EQ(applyDrag(handle(9), {103, 103, 50, 40}, {-5000, -5000}, kPage, kTen),
              (ElementGeometry{103, 103, 10, 10}));
    // The left edge is clamped to 143 and snapped to 140, so a little more than the minimum is
    // left.
    EXPECT_EQ(applyDrag(handle(5), {103, 100, 50, 40}, {5000, 0}, kPage, kTen),
              (ElementGeometry{140, 100, 13, 40}));
    // Clamped to 145 and snapped to 150: less than the minimum.
    EXPECT_EQ(applyDrag(handle(5), {105, 100, 50, 40}, {5000, 0}, kPage, kTen),
              (ElementGeometry{150, 100, 5, 40}));
}

TEST(GestureResizeLimits, SizesSnapAndPositionsSnap)
{
    EXPECT_EQ(applyDrag(handle(9), {103, 103, 50, 40}, {6, -3}, kPage, kTen),
              (ElementGeometry{103, 103, 60, 40}));
    EXPECT_EQ(applyDrag(handle(2), {100, 100, 50, 40}, {6, -3}, kPage, kTen),
              (ElementGeometry{110, 100, 40, 40}));
}

TEST(GestureResizeLimits, ThePageLimitComesAfterTheSnap)
{
    EXPECT_EQ(applyDrag(handle(6), {103, 100, 50, 40}, {5000, 0}, kPage, kTen),
              (ElementGeometry{103, 100, 697, 40}));
}

TEST(GestureResizeLimits, AnElementThatStartsBeyondThePageGetsANegativeWidth)
{
    EXPECT_EQ(applyDrag(handle(6), {900, 100, 50, 40}, {5, 0}, kPage, kOff),
              (ElementGeometry{900, 100, -100, 40}));
}

TEST(GestureResizeLimits, ANegativeRangeKeepsTheOrderOfTheTests)
{
    // The right edge lies at 3, so the left one may go to -7 at most.
    EXPECT_EQ(applyDrag(handle(5), {0, 0, 3, 40}, {1, 0}, kPage, kOff),
              (ElementGeometry{-7, 0, 10, 40}));
    EXPECT_EQ(applyDrag(handle(5), {0, 0, 3, 40}, {-50, 0}, kPage, kOff),
              (ElementGeometry{0, 0, 3, 40}));
}

// --- Absurd rectangles ---------------------------------------------------------------------------

TEST(GestureExtremes, AnIdleModeChangesNothing)
{
    EXPECT_EQ(applyDrag(DragMode::Idle, {1, 2, 3, 4}, {50, 50}, kPage, kTen),
              (ElementGeometry{1, 2, 3, 4}));
}

TEST(GestureExtremes, TheLargestRectanglesSaturateInsteadOfOverflowing)
{
    const qint64 far = qint64{1} << 48;
    for (int number = 1; number <= 9; ++number) {
        for (const ElementGeometry& start :
             {ElementGeometry{kMax, kMax, kMax, kMax}, ElementGeometry{kMin, kMin, kMin, kMin},
              ElementGeometry{kMax, kMin, kMin, kMax}, ElementGeometry{0, 0, kMin, kMax}}) {
            for (const qint64 delta : {far, -far, qint64{kMax}, qint64{kMin}, qint64{0}}) {
                for (const QSize& page : {kPage, QSize(kMax, kMax), QSize(kMin, 0)}) {
                    const ElementGeometry end =
                        applyDrag(handle(number), start, {delta, -delta}, page, kTen);
                    if (number == 1) { // only reachable without wrapping around
                        EXPECT_EQ(end.w, start.w);
                        EXPECT_EQ(end.h, start.h);
                    }
                }
            }
        }
    }
    EXPECT_EQ(applyDrag(DragMode::Move, {kMax, 0, 10, 10}, {far, 0}, {kMax, kMax}, kOff),
              (ElementGeometry{kMax - 10, 0, 10, 10}));
    EXPECT_EQ(applyDrag(handle(5), {kMax, 0, kMax, 10}, {-far, 0}, kPage, kOff),
              (ElementGeometry{0, 0, kMax, 10}));
    EXPECT_EQ(applyDrag(DragMode::Move, {0, 0, kMin, 10}, {far, 0}, kPage, kOff),
              (ElementGeometry{kMax, 0, kMin, 10}));
}
