#include "tests/canvas/CanvasFixture.h"

#include <QUndoCommand>

namespace {

class DashCanvasGesture : public CanvasFixture
{
protected:
    QSignalSpy m_selected{&m_canvas, &DashCanvas::elementSelected};
    QSignalSpy m_moved{&m_canvas, &DashCanvas::elementMoved};
    QSignalSpy m_resized{&m_canvas, &DashCanvas::elementResized};

    void expectNothingHappened() const
    {
        EXPECT_EQ(m_stack.count(), 0);
        EXPECT_EQ(m_moved.count(), 0);
        EXPECT_EQ(m_resized.count(), 0);
    }
};

} // namespace

// --- Selecting -----------------------------------------------------------------------------------

TEST_F(DashCanvasGesture, APressOnAnElementSelectsIt)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    ASSERT_EQ(m_selected.count(), 1);
    EXPECT_EQ(m_selected[0], QVariantList{0});
}

TEST_F(DashCanvasGesture, SelectionIsAnnouncedAtThePressNotAtTheRelease)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    EXPECT_EQ(m_selected.count(), 1);
    release(at(120, 120));
    EXPECT_EQ(m_selected.count(), 1);
}

TEST_F(DashCanvasGesture, APressOnTheSelectedElementAnnouncesNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    click(at(125, 120));
    EXPECT_EQ(m_selected.count(), 1);
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}

TEST_F(DashCanvasGesture, EmptyCanvasDeselectsOnceAndIsThenSilent)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    click(at(400, 300));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    ASSERT_EQ(m_selected.count(), 2);
    EXPECT_EQ(m_selected[1], QVariantList{-1});
    click(at(400, 300));
    EXPECT_EQ(m_selected.count(), 2);
}

TEST_F(DashCanvasGesture, APressOutsideThePageHitsAnElementThatLiesThere)
{
    add({-8, 100, 50, 40});
    click({4, 120});
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}

TEST_F(DashCanvasGesture, WhereElementsOverlapTheLaterOneIsHit)
{
    add({100, 100, 50, 40});
    add({120, 110, 50, 40});
    click(at(130, 120));
    EXPECT_EQ(m_canvas.selectedIndex(), 1);
    click(at(110, 105));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}

TEST_F(DashCanvasGesture, ElementEdgesBelongToTheElement)
{
    add({100, 100, 50, 40});
    click(at(100, 100));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    m_canvas.clearSelectionAndRepaint();
    click(at(150, 140));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    m_canvas.clearSelectionAndRepaint();
    click(at(151, 140));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasGesture, AnElementWithoutAreaCannotBeHit)
{
    add({100, 100, 0, 0});
    click(at(100, 100));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasGesture, OtherButtonsSelectNothing)
{
    add({100, 100, 50, 40});
    press(at(120, 120), Qt::RightButton);
    press(at(120, 120), Qt::MiddleButton);
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    EXPECT_EQ(m_selected.count(), 0);
}

TEST_F(DashCanvasGesture, WithoutAPagePressesAreIgnored)
{
    m_canvas.setPage(nullptr);
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(m_selected.count(), 0);
    expectNothingHappened();
}

TEST_F(DashCanvasGesture, APressTakesTheKeyboardFocus)
{
    QWidget window;
    DashCanvas canvas(&window);
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    canvas.setPage(&m_page);
    canvas.setFocusPolicy(Qt::NoFocus); // else Qt itself would give it the focus
    window.show();
    other.setFocus();
    ASSERT_EQ(window.focusWidget(), &other);
    QTest::mousePress(&canvas, Qt::RightButton, {}, {50, 50});
    EXPECT_EQ(window.focusWidget(), &other);
    QTest::mousePress(&canvas, Qt::LeftButton, {}, {50, 50});
    EXPECT_EQ(window.focusWidget(), &canvas);
}

TEST_F(DashCanvasGesture, ADoubleClickIsNoMoreThanAPress)
{
    add({100, 100, 50, 40});
    QTest::mouseDClick(&m_canvas, Qt::LeftButton, {}, at(120, 120));
    EXPECT_EQ(m_selected.count(), 1);
    expectNothingHappened();
}

// --- Moving --------------------------------------------------------------------------------------

TEST_F(DashCanvasGesture, ADragMovesTheElementAsOneUndoableStep)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 115));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 95, 50, 40}));
    EXPECT_EQ(m_stack.count(), 1);
    ASSERT_EQ(m_moved.count(), 1);
    EXPECT_EQ(m_moved[0], (QVariantList{0, 120, 95}));
    EXPECT_EQ(m_resized.count(), 0);
}

TEST_F(DashCanvasGesture, OneUndoRestoresTheStartAndOneRedoTheEnd)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 115));
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    m_stack.redo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 95, 50, 40}));
}

TEST_F(DashCanvasGesture, TheStepIsNamedAfterTheElement)
{
    add({100, 100, 50, 40});
    element(0).name = QStringLiteral("speed %1 %2");
    drag(at(120, 120), at(140, 115));
    EXPECT_EQ(m_stack.command(0)->text(), QStringLiteral("Move/Resize speed %1 %2"));
}

TEST_F(DashCanvasGesture, DragsAreLiveAndAnnouncedOnlyAtTheEnd)
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

TEST_F(DashCanvasGesture, DistancesAreMeasuredFromThePress)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(-700, 120)); // clamped at the left edge
    EXPECT_EQ(element(0).x, 0);
    moveTo(at(125, 120));
    EXPECT_EQ(element(0).x, 105);
}

TEST_F(DashCanvasGesture, TwoDragsAreTwoSteps)
{
    add({100, 100, 50, 40});
    drag(at(120, 120), at(130, 120));
    drag(at(130, 120), at(140, 120));
    EXPECT_EQ(m_stack.count(), 2);
    m_stack.undo();
    EXPECT_EQ(element(0).x, 110);
}

TEST_F(DashCanvasGesture, AClickWithoutMovementPushesAndEmitsNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    expectNothingHappened();
}

TEST_F(DashCanvasGesture, ThereAndBackAgainPushesAndEmitsNothing)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(150, 150));
    moveTo(at(120, 120));
    release(at(120, 120));
    expectNothingHappened();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}

TEST_F(DashCanvasGesture, TheReleaseItselfMovesNothing)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    release(at(300, 300));
    expectNothingHappened();
    EXPECT_EQ(element(0).x, 100);
}

TEST_F(DashCanvasGesture, HoveringDoesNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    moveTo(at(160, 160));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}

TEST_F(DashCanvasGesture, SnappingAppliesToMoves)
{
    add({13, 100, 50, 40});
    m_canvas.setSnap(true, 10);
    drag(at(30, 120), at(34, 120));
    EXPECT_EQ(element(0).x, 20);
}

TEST_F(DashCanvasGesture, DistancesFollowTheScaleTruncatedTowardZero)
{
    m_canvas.resize(1600 + 20, 960 + 20); // twice the size
    add({100, 100, 50, 40});
    drag({10 + 240, 10 + 240}, {10 + 243, 10 + 237});
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{101, 99, 50, 40}));
}

TEST_F(DashCanvasGesture, WithoutAnUndoStackEditsArePermanent)
{
    m_canvas.setUndoStack(nullptr);
    add({100, 100, 50, 40});
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(element(0).x, 120);
    EXPECT_EQ(m_moved.count(), 1);
}

TEST_F(DashCanvasGesture, AMoveLeavesASizeAloneThatChangedMeanwhile)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    element(0).w = 60;
    moveTo(at(5000, 120));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{740, 100, 60, 40}));
}

// --- Resizing ------------------------------------------------------------------------------------

TEST_F(DashCanvasGesture, DraggingAHandleResizesAsOneUndoableStep)
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

TEST_F(DashCanvasGesture, EachHandleMovesItsEdges)
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

TEST_F(DashCanvasGesture, HandlesWinOverElementsOnTopOfThem)
{
    add({100, 100, 50, 40});
    add({140, 130, 80, 80}); // covers the corner
    click(at(110, 110));
    drag(at(150, 140), at(160, 150));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 60, 50}));
    EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{140, 130, 80, 80}));
}

TEST_F(DashCanvasGesture, HandlesAreGrabbedBeyondTheirPicture)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    drag(at(156, 146), at(166, 156)); // six pixels off the corner
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 60, 50}));
}

TEST_F(DashCanvasGesture, SevenPixelsOffIsNoHandle)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    click(at(157, 140));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasGesture, OnlyTheSelectedElementHasHandles)
{
    add({100, 100, 50, 40});
    drag(at(150, 140), at(160, 150)); // the corner of an element that is not selected yet
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{110, 110, 50, 40}));
}

TEST_F(DashCanvasGesture, HandlesDoNotGrowWithTheScale)
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

TEST_F(DashCanvasGesture, TheLeftEdgeStopsAtTenPixelsOfWidth)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    drag(at(100, 120), at(400, 120));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{140, 100, 10, 40}));
}

TEST_F(DashCanvasGesture, TheBottomRightHandleStopsAtThePagesEdges)
{
    add({700, 400, 50, 40});
    click(at(720, 420));
    drag(at(750, 440), QPoint(3000, 3000));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{700, 400, 100, 80}));
}

TEST_F(DashCanvasGesture, AHandleDraggedBackPushesNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    press(at(150, 140));
    moveTo(at(170, 170));
    moveTo(at(150, 140));
    release(at(150, 140));
    expectNothingHappened();
}

TEST_F(DashCanvasGesture, AHandlePressSelectsNothingNew)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    m_selected.clear();
    click(at(150, 140));
    EXPECT_EQ(m_selected.count(), 0);
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}

// --- Other buttons and absurd pages --------------------------------------------------------------

TEST_F(DashCanvasGesture, ARightReleaseEndsTheDragWithoutCommandOrSignal)
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

TEST_F(DashCanvasGesture, ARightPressInADragIsIgnored)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    press(at(400, 300), Qt::RightButton);
    moveTo(at(140, 120));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    EXPECT_EQ(element(0).x, 120);
}

TEST_F(DashCanvasGesture, AReleaseWithoutAPressIsIgnored)
{
    add({100, 100, 50, 40});
    release(at(120, 120));
    expectNothingHappened();
}

TEST_F(DashCanvasGesture, DragsOnAbsurdPagesDoNotCrash)
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
