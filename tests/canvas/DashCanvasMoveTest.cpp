// Drags that move an element, how they end, and drags on absurd pages.

#include "tests/canvas/GestureFixture.h"

#include <QMouseEvent>
#include <QUndoCommand>

namespace {

using DashCanvasMove = GestureFixture;

} // namespace

TEST_F(DashCanvasMove, ADragMovesTheElementAsOneUndoableStep)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 115));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 95, 50, 40}));
    EXPECT_EQ(m_stack.count(), 1);
    ASSERT_EQ(m_moved.count(), 1);
    EXPECT_EQ(m_moved[0], (QVariantList{0, 120, 95}));
    EXPECT_EQ(m_resized.count(), 0);
}

TEST_F(DashCanvasMove, OneUndoRestoresTheStartAndOneRedoTheEnd)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 115));
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    m_stack.redo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 95, 50, 40}));
}

TEST_F(DashCanvasMove, TheStepIsNamedAfterTheElement)
{
    add({100, 100, 50, 40});
    element(0).name = QStringLiteral("speed %1 %2");
    drag(at(120, 120), at(140, 115));
    EXPECT_EQ(m_stack.command(0)->text(), QStringLiteral("Move/Resize speed %1 %2"));
}

TEST_F(DashCanvasMove, DragsAreLiveAndAnnouncedOnlyAtTheEnd)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(130, 120));
    EXPECT_EQ(element(0).x, 110);
    moveTo(at(140, 120));
    EXPECT_EQ(element(0).x, 120);
    expectNothingHappened();
    release(at(140, 120));
    EXPECT_EQ(m_moved.count(), 1);
}

TEST_F(DashCanvasMove, DistancesAreMeasuredFromThePress)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(-700, 120)); // clamped at the left edge
    EXPECT_EQ(element(0).x, 0);
    moveTo(at(125, 120));
    EXPECT_EQ(element(0).x, 105);
}

TEST_F(DashCanvasMove, TwoDragsAreTwoSteps)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(130, 120));
    drag(at(130, 120), at(140, 120));
    EXPECT_EQ(m_stack.count(), 2);
    m_stack.undo();
    EXPECT_EQ(element(0).x, 110);
}

TEST_F(DashCanvasMove, AClickWithoutMovementPushesAndEmitsNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    expectNothingHappened();
}

TEST_F(DashCanvasMove, ThereAndBackAgainPushesAndEmitsNothing)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(150, 150));
    moveTo(at(120, 120));
    release(at(120, 120));
    expectNothingHappened();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}

TEST_F(DashCanvasMove, TheReleaseItselfMovesNothing)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    release(at(300, 300));
    expectNothingHappened();
    EXPECT_EQ(element(0).x, 100);
}

TEST_F(DashCanvasMove, HoveringDoesNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    moveTo(at(160, 160));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}

TEST_F(DashCanvasMove, SnappingAppliesToMoves)
{
    add({13, 100, 50, 40});
    m_canvas.setSnap(true, 10);
    drag(at(30, 120), at(34, 120));
    EXPECT_EQ(element(0).x, 20);
}

TEST_F(DashCanvasMove, DistancesFollowTheScaleTruncatedTowardZero)
{
    m_canvas.resize(1600 + 20, 960 + 20); // twice the size
    add({100, 100, 50, 40});
    drag({10 + 240, 10 + 240}, {10 + 243, 10 + 237});
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{101, 99, 50, 40}));
}

TEST_F(DashCanvasMove, SnappingMayTakeAnElementHalfAStepPastThePagesEdge)
{
    add({100, 100, 205, 40});
    m_canvas.setSnap(true, 10);
    drag(at(120, 120), at(2000, 120));
    EXPECT_EQ(element(0).x, 600);
    ASSERT_EQ(m_moved.count(), 1);
    EXPECT_EQ(m_moved[0], (QVariantList{0, 600, 100}));
}

TEST_F(DashCanvasMove, AClickWithSnappingLeavesAnElementOffTheGrid)
{
    add({13, 17, 50, 40});
    m_canvas.setSnap(true, 10);
    click(at(30, 30));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{13, 17, 50, 40}));
    expectNothingHappened();
}

TEST_F(DashCanvasMove, WithoutAnUndoStackEditsArePermanent)
{
    m_canvas.setUndoStack(nullptr);
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(element(0).x, 120);
    EXPECT_EQ(m_moved.count(), 1);
}

TEST_F(DashCanvasMove, AMoveLeavesASizeAloneThatChangedMeanwhile)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    element(0).w = 60;
    moveTo(at(5000, 120));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{740, 100, 60, 40}));
}

TEST_F(DashCanvasMove, ARightReleaseEndsTheDragWithoutCommandOrSignal)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(140, 120));
    release(at(140, 120), Qt::RightButton);
    EXPECT_EQ(element(0).x, 120);
    moveTo(at(200, 120));
    release(at(200, 120));
    EXPECT_EQ(element(0).x, 120);
    expectNothingHappened();
}

TEST_F(DashCanvasMove, ARightPressInADragIsIgnored)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    press(at(400, 300), Qt::RightButton);
    moveTo(at(140, 120));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    EXPECT_EQ(element(0).x, 120);
}

TEST_F(DashCanvasMove, APressOnNothingTakesBackADragWhoseReleaseWasLost)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(140, 120));
    press(at(400, 300));
    moveTo(at(500, 300));
    release(at(500, 300));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    expectNothingHappened();
}

TEST_F(DashCanvasMove, APressOnAnotherElementTakesBackADragWhoseReleaseWasLost)
{
    add({100, 100, 50, 40});
    add({300, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(140, 120));
    drag(at(320, 120), at(330, 125));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{310, 105, 50, 40}));
    ASSERT_EQ(m_moved.count(), 1);
    EXPECT_EQ(m_moved[0], (QVariantList{1, 310, 105}));
    EXPECT_EQ(m_stack.count(), 1);
}

TEST_F(DashCanvasMove, TheSecondPressOfADoubleClickDragsLikeAnyOther)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    // Sent by hand: QTest's double click ends without a drag, and its moves need a press of its
    // own.
    const auto send = [this](QEvent::Type type, const QPoint& point, Qt::MouseButtons held) {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, point, m_canvas.mapToGlobal(point),
                          isMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_canvas, &event);
    };
    send(QEvent::MouseButtonDblClick, at(120, 120), Qt::LeftButton);
    send(QEvent::MouseMove, at(140, 120), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, at(140, 120), Qt::NoButton);
    EXPECT_EQ(element(0).x, 120);
    EXPECT_EQ(m_moved.count(), 1);
}

TEST_F(DashCanvasMove, LeavingTheCanvasDoesNotEndADrag)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&m_canvas, &leave);
    moveTo({-300, 5000});
    release({-300, 5000});
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{0, 440, 50, 40}));
    EXPECT_EQ(m_moved.count(), 1);
    EXPECT_EQ(m_stack.count(), 1);
}

TEST_F(DashCanvasMove, AReleaseWithoutAPressIsIgnored)
{
    add({100, 100, 50, 40});
    release(at(120, 120));
    expectNothingHappened();
}

TEST_F(DashCanvasMove, DragsOnAbsurdPagesDoNotCrash)
{
    constexpr int kMax = 2'147'483'647;
    for (const QSize size : {QSize(0, 0), QSize(0, 480), QSize(-800, -480), QSize(1, 1),
                             QSize(kMax, kMax), QSize(kMax, 1), QSize(-kMax - 1, kMax)}) {
        m_page.width = size.width();
        m_page.height = size.height();
        m_page.elements.clear();
        add({0, 0, 50, 40});
        add({kMax, kMax, kMax, kMax});
        add({-kMax - 1, -kMax - 1, kMax, kMax});
        m_canvas.setPage(&m_page);
        for (const QPoint from : {QPoint(10, 10), QPoint(35, 30), QPoint(200, 120)}) {
            drag(from, from + QPoint(100, 50));
            drag(from, QPoint(-3000, 3000));
        }
        while (m_stack.canUndo())
            m_stack.undo();
        EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{0, 0, 50, 40}));
        EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{kMax, kMax, kMax, kMax}));
        m_stack.clear();
    }
}
