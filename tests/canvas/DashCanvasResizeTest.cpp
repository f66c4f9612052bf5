// Drags of the handles of the selected element.

#include "tests/canvas/GestureFixture.h"

namespace {

using DashCanvasResize = GestureFixture;

} // namespace

TEST_F(DashCanvasResize, DraggingAHandleResizesAsOneUndoableStep)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    drag(at(150, 140), at(170, 130));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 70, 30}));
    ASSERT_EQ(m_resized.count(), 1);
    EXPECT_EQ(m_resized[0], (QVariantList{0, 70, 30}));
    EXPECT_EQ(m_moved.count(), 0);
    EXPECT_EQ(m_stack.undoText(), QStringLiteral("Move/Resize mask.0"));
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}

TEST_F(DashCanvasResize, EachHandleMovesItsEdges)
{
    const ElementGeometry start{100, 100, 60, 40};
    struct Case
    {
        QPoint grip;
        ElementGeometry end;
    };
    // Each is dragged by (+6, +8).
    for (const Case& handle :
         {Case{{100, 100}, {106, 108, 54, 32}}, Case{{130, 100}, {100, 108, 60, 32}},
          Case{{160, 100}, {100, 108, 66, 32}}, Case{{100, 120}, {106, 100, 54, 40}},
          Case{{160, 120}, {100, 100, 66, 40}}, Case{{100, 140}, {106, 100, 54, 48}},
          Case{{130, 140}, {100, 100, 60, 48}}, Case{{160, 140}, {100, 100, 66, 48}}}) {
        m_page.elements.clear();
        add(start);
        m_canvas.setPage(&m_page);
        click(at(115, 130));
        const QPoint grip = at(handle.grip.x(), handle.grip.y());
        drag(grip, grip + QPoint(6, 8));
        EXPECT_EQ(geometryOf(element(0)), handle.end)
            << "handle at " << handle.grip.x() << ", " << handle.grip.y();
    }
}

TEST_F(DashCanvasResize, HandlesWinOverElementsOnTopOfThem)
{
    add({100, 100, 50, 40});
    add({140, 130, 80, 80}); // covers the corner
    click(at(110, 110));
    drag(at(150, 140), at(160, 150));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 60, 50}));
    EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{140, 130, 80, 80}));
}

TEST_F(DashCanvasResize, HandlesAreGrabbedBeyondTheirPicture)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    drag(at(156, 146), at(166, 156)); // six pixels off the corner
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 60, 50}));
}

TEST_F(DashCanvasResize, SevenPixelsOffIsNoHandle)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    click(at(157, 140));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasResize, OnlyTheSelectedElementHasHandles)
{
    add({100, 100, 50, 40});
    drag(at(150, 140), at(160, 150)); // the corner of an element that is not selected yet
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{110, 110, 50, 40}));
}

TEST_F(DashCanvasResize, HandlesDoNotGrowWithTheScale)
{
    m_canvas.resize(1600 + 20, 960 + 20);
    add({100, 100, 50, 40});
    click({10 + 240, 10 + 240});
    const QPoint corner(10 + 300, 10 + 280);
    click(corner + QPoint(7, 0));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    click({10 + 240, 10 + 240});
    drag(corner + QPoint(6, 0), corner + QPoint(26, 0));
    EXPECT_EQ(element(0).w, 60);
}

TEST_F(DashCanvasResize, TheLeftEdgeStopsAtTenPixelsOfWidth)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    drag(at(100, 120), at(400, 120));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{140, 100, 10, 40}));
}

TEST_F(DashCanvasResize, TheBottomRightHandleStopsAtThePagesEdges)
{
    add({700, 400, 50, 40});
    click(at(720, 420));
    drag(at(750, 440), QPoint(3000, 3000));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{700, 400, 100, 80}));
}

TEST_F(DashCanvasResize, AHandleDraggedBackPushesNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    press(at(150, 140));
    moveTo(at(170, 170));
    moveTo(at(150, 140));
    release(at(150, 140));
    expectNothingHappened();
}

TEST_F(DashCanvasResize, AHandlePressSelectsNothingNew)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    m_selected.clear();
    click(at(150, 140));
    EXPECT_EQ(m_selected.count(), 0);
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}
