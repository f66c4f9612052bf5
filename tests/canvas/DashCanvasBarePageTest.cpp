// What happens to a drag on a page of no document when page or undo history change under it.

#include "tests/canvas/CanvasFixture.h"

#include <QUndoCommand>

#include <memory>

namespace {

using DashCanvasOnBarePage = CanvasFixture;

} // namespace

TEST_F(DashCanvasOnBarePage, RebindingSelectsTheGivenElement)
{
    add({100, 100, 50, 40});
    add({200, 100, 50, 40});
    QSignalSpy selected(&m_canvas, &DashCanvas::elementSelected);
    m_canvas.rebindPage(&m_page, 1);
    EXPECT_EQ(m_canvas.selectedIndex(), 1);
    m_canvas.rebindPage(&m_page, -1);
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    EXPECT_EQ(selected.count(), 0);
}

TEST_F(DashCanvasOnBarePage, RebindingToAnElementThatDoesNotExistSelectsNone)
{
    add({100, 100, 50, 40});
    for (const int index : {1, 100, -5}) {
        m_canvas.rebindPage(&m_page, index);
        EXPECT_EQ(m_canvas.selectedIndex(), -1);
    }
    m_canvas.rebindPage(nullptr, 0);
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasOnBarePage, RebindingToAnotherElementLeavesTheDraggedOne)
{
    add({100, 100, 50, 40});
    add({200, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(130, 120));
    m_canvas.rebindPage(&m_page, 1);
    moveTo(at(150, 120));
    release(at(150, 120));
    EXPECT_EQ(element(0).x, 110);
    EXPECT_EQ(element(1).x, 200);
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasOnBarePage, AnUndoEndsTheDragAndKeepsTheRedoHistory)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 120));
    QSignalSpy moved(&m_canvas, &DashCanvas::elementMoved);
    press(at(140, 120));
    moveTo(at(160, 120));
    m_stack.undo();
    release(at(160, 120));
    EXPECT_EQ(element(0).x, 100);
    EXPECT_EQ(m_stack.count(), 1);
    EXPECT_TRUE(m_stack.canRedo());
    EXPECT_EQ(moved.count(), 0);
}

TEST_F(DashCanvasOnBarePage, WithoutADragAStepDoesNotTouchAPageThatIsGone)
{
    auto gone = std::make_unique<DashPage>();
    gone->elements.push_back(makeElement(QStringLiteral("mask"), {100, 100, 50, 40}));
    m_canvas.setPage(gone.get());
    click(at(120, 120));
    gone.reset(); // to be noticed, this takes a build that watches its memory
    m_stack.push(new QUndoCommand);
    m_canvas.setPage(&m_page);
    EXPECT_EQ(m_stack.count(), 1);
}

TEST_F(DashCanvasOnBarePage, AnUndoOfAnotherElementsStepTakesTheDragBack)
{
    add({100, 100, 50, 40});
    add({200, 100, 50, 40});
    drag(at(220, 120), at(240, 120));
    press(at(120, 120));
    moveTo(at(160, 120));
    m_stack.undo();
    release(at(160, 120));
    EXPECT_EQ(element(0).x, 100);
    EXPECT_EQ(element(1).x, 200);
}

TEST_F(DashCanvasOnBarePage, TheUndoKeyLeavesADragAloneWhenThereIsNothingToUndo)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(160, 120));
    announceShortcut(QKeySequence::Undo);
    release(at(160, 120));
    EXPECT_EQ(element(0).x, 140);
    EXPECT_EQ(m_stack.count(), 1);
}

TEST_F(DashCanvasOnBarePage, TheRedoKeyLeavesADragAloneWhenThereIsNothingToRedo)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 120)); // something to undo
    press(at(140, 120));
    moveTo(at(160, 120));
    announceShortcut(QKeySequence::Redo);
    release(at(160, 120));
    EXPECT_EQ(element(0).x, 140);
    EXPECT_EQ(m_stack.count(), 2);
}

TEST_F(DashCanvasOnBarePage, AFormerUndoStackIsIgnored)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 120));
    QUndoStack another;
    m_canvas.setUndoStack(&another);
    press(at(140, 120));
    moveTo(at(160, 120));
    m_stack.setClean();
    m_stack.clear();
    release(at(160, 120));
    EXPECT_EQ(element(0).x, 140);
    EXPECT_EQ(another.count(), 1);
}

TEST_F(DashCanvasOnBarePage, ACancelledDragRestoresTheElement)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(160, 130));
    m_canvas.cancelDrag();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    moveTo(at(180, 130));
    release(at(180, 130));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasOnBarePage, CancellingWithoutADragChangesNothing)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 120));
    m_canvas.cancelDrag();
    EXPECT_EQ(element(0).x, 120);
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    m_canvas.setPage(nullptr);
    m_canvas.cancelDrag();
    EXPECT_EQ(m_stack.count(), 1);
}
