#include "tests/canvas/CanvasFixture.h"

using DashCanvasGesture = CanvasFixture;

TEST_F(DashCanvasGesture, DraggingMovesTheElementAsOneUndoableStep)
{
    add({100, 100, 50, 40});
    QSignalSpy moved(&m_canvas, &DashCanvas::elementMoved);
    drag(at(110, 110), at(130, 105));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 95, 50, 40}));
    ASSERT_EQ(m_stack.count(), 1);
    EXPECT_EQ(m_stack.undoText(), QStringLiteral("Move/Resize mask.0"));
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved[0], (QVariantList{0, 120, 95}));
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}
