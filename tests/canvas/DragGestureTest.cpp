#include "canvas/DragGesture.h"

#include "tests/canvas/CanvasFixture.h"

namespace {

using GestureGeometry::DragMode;

constexpr QSize kPage(800, 480);
const PageTransform kHalf({420, 260}, kPage); // half a widget pixel per display pixel

class DragGestureTest : public ::testing::Test
{
protected:
    DashElement m_element = makeElement(QStringLiteral("mask"), {100, 100, 50, 40});
};

} // namespace

TEST_F(DragGestureTest, IsNoDragByDefault)
{
    EXPECT_FALSE(DragGesture().isActive());
    EXPECT_FALSE(DragGesture().isMove());
}

TEST_F(DragGestureTest, AMoveFollowsTheMouseInDisplayPixels)
{
    DragGesture drag(DragMode::Move, {10, 10}, m_element, 7);
    EXPECT_TRUE(drag.isActive());
    EXPECT_TRUE(drag.isMove());
    EXPECT_EQ(drag.undoIndex(), 7);
    drag.follow({20, 5}, m_element, kHalf, kPage, {});
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{120, 90, 50, 40}));
    drag.follow({11, 10}, m_element, kHalf, kPage, {});
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{102, 100, 50, 40})) << "from the press";
    EXPECT_EQ(drag.start(), (ElementGeometry{100, 100, 50, 40}));
}

TEST_F(DragGestureTest, AResizeMovesTheHandlesEdges)
{
    DragGesture drag(DragMode::BottomRight, {10, 10}, m_element, 0);
    EXPECT_TRUE(drag.isActive());
    EXPECT_FALSE(drag.isMove());
    drag.follow({20, 15}, m_element, kHalf, kPage, {true, 10});
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{100, 100, 70, 50}));
}

TEST_F(DragGestureTest, AMoveKeepsASizeThatChangedAfterThePress)
{
    DragGesture drag(DragMode::Move, {10, 10}, m_element, 0);
    m_element.w = 60;
    drag.follow({20, 10}, m_element, kHalf, kPage, {});
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{120, 100, 60, 40}));
}

TEST_F(DragGestureTest, HoldsTheElementUntilSomethingElseMovesIt)
{
    DragGesture drag(DragMode::Move, {10, 10}, m_element, 0);
    EXPECT_TRUE(drag.holds(m_element));
    drag.follow({20, 10}, m_element, kHalf, kPage, {});
    EXPECT_TRUE(drag.holds(m_element));
    m_element.h = 41;
    EXPECT_FALSE(drag.holds(m_element));
}
