// State, helpers and repaints of the canvas; keys, gestures and painting are in other files.

#include "telemetry/TelemetrySession.h"
#include "tests/canvas/CanvasFixture.h"
#include "tests/support/PaintCounter.h"

#include <QContextMenuEvent>
#include <QWheelEvent>

namespace {

class DashCanvasTest : public CanvasFixture
{
protected:
    QSignalSpy m_selected{&m_canvas, &DashCanvas::elementSelected};
    QSignalSpy m_deleteRequested{&m_canvas, &DashCanvas::deleteRequested};

    void show()
    {
        m_canvas.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_canvas));
        QCoreApplication::processEvents();
    }

    /// How often the canvas is painted by the action itself, and by the event loop after it.
    struct Paints
    {
        int atOnce;
        int later;

        friend bool operator==(const Paints&, const Paints&) = default;
    };

    template <typename Action>
    Paints paintsCausedBy(Action action)
    {
        const PaintCounter counter(m_canvas);
        action();
        const int atOnce = counter.count();
        QCoreApplication::processEvents();
        return {atOnce, counter.count() - atOnce};
    }
};

} // namespace

TEST_F(DashCanvasTest, IsSetUpForPreciseEditing)
{
    const DashCanvas canvas;
    EXPECT_EQ(canvas.minimumSize(), QSize(400, 240));
    EXPECT_TRUE(canvas.testAttribute(Qt::WA_MouseTracking));
    EXPECT_EQ(canvas.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(canvas.selectedIndex(), -1);
    EXPECT_EQ(canvas.page(), nullptr);
}

TEST_F(DashCanvasTest, WithoutAPageTheHelpersSayNothingIsScaled)
{
    m_canvas.setPage(nullptr);
    EXPECT_EQ(m_canvas.fitScale(), 1.0);
    EXPECT_EQ(m_canvas.pageOrigin(), QPointF(10, 10));
    EXPECT_EQ(m_canvas.elementRect(makeElement({}, {5, 6, 7, 8})), QRectF(15, 16, 7, 8));
}

TEST_F(DashCanvasTest, HelpersFollowTheWidgetsSize)
{
    m_canvas.resize(400, 240);
    EXPECT_DOUBLE_EQ(m_canvas.fitScale(), 220.0 / 480.0);
    EXPECT_NEAR(m_canvas.pageOrigin().x(), 16.67, 0.005);
    EXPECT_DOUBLE_EQ(m_canvas.pageOrigin().y(), 10.0);
    const QRectF rect = m_canvas.elementRect(makeElement({}, {100, 100, 50, 40}));
    EXPECT_DOUBLE_EQ(rect.x(), m_canvas.pageOrigin().x() + 100 * m_canvas.fitScale());
    EXPECT_DOUBLE_EQ(rect.height(), 40 * m_canvas.fitScale());
}

TEST_F(DashCanvasTest, SnapsOnlyWhenSwitchedOn)
{
    EXPECT_EQ(m_canvas.snapValue(17), 17);
    m_canvas.setSnap(true, 10);
    EXPECT_EQ(m_canvas.snapValue(17), 20);
    EXPECT_EQ(m_canvas.snapValue(-15), -10);
    EXPECT_EQ(m_canvas.snapValue(2'147'483'647), 2'147'483'647);
    m_canvas.setSnap(true, 1);
    EXPECT_EQ(m_canvas.snapValue(17), 17);
    m_canvas.setSnap(false, 10);
    EXPECT_EQ(m_canvas.snapValue(17), 17);
}

// --- Repaints ------------------------------------------------------------------------------------

TEST_F(DashCanvasTest, APageIsPaintedAtTheNextOccasion)
{
    show();
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.setPage(nullptr); }), (Paints{0, 1}));
}

TEST_F(DashCanvasTest, ASessionAndASpeedUnitAreShownAtTheNextOccasion)
{
    show();
    TelemetrySession session;
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.setSession(&session); }), (Paints{0, 1}));
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.setSpeedUnit(1); }), (Paints{0, 1}));
    m_canvas.setSession(nullptr);
}

TEST_F(DashCanvasTest, AReplayTimeIsPaintedAtOnce)
{
    show();
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.setReplayTime(1.5); }), (Paints{1, 0}));
}

TEST_F(DashCanvasTest, CancellingWithoutADragSchedulesNoRepaint)
{
    add({}); // where a drag that never began would restore it to
    m_canvas.rebindPage(&m_page, 0);
    show();
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.cancelDrag(); }), (Paints{0, 0}));
}

TEST_F(DashCanvasTest, SnappingSchedulesNoRepaint)
{
    show();
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.setSnap(true, 10); }), (Paints{0, 0}));
}

TEST_F(DashCanvasTest, ANewSelectionIsPaintedAndTheSameOneIsNot)
{
    add({100, 100, 50, 40});
    show();
    EXPECT_EQ(paintsCausedBy([&] { press(at(120, 120)); }), (Paints{0, 1}));
    EXPECT_EQ(paintsCausedBy([&] { release(at(120, 120)); }), (Paints{0, 1}));
    EXPECT_EQ(paintsCausedBy([&] { press(at(120, 120)); }), (Paints{0, 0}));
}

TEST_F(DashCanvasTest, ADragIsPaintedAndARightReleaseIsNot)
{
    add({100, 100, 50, 40});
    show();
    press(at(120, 120));
    QCoreApplication::processEvents();
    EXPECT_EQ(paintsCausedBy([&] { moveTo(at(130, 120)); }), (Paints{0, 1}));
    EXPECT_EQ(paintsCausedBy([&] { release(at(130, 120), Qt::RightButton); }), (Paints{0, 0}));
}

TEST_F(DashCanvasTest, ADragThatIsTakenBackIsPainted)
{
    add({100, 100, 50, 40});
    show();
    drag(at(120, 120), at(130, 120));
    press(at(130, 120));
    moveTo(at(140, 120));
    QCoreApplication::processEvents();
    EXPECT_EQ(paintsCausedBy([&] { announceShortcut(QKeySequence::Undo); }), (Paints{0, 1}));
    EXPECT_EQ(element(0).x, 110);
}

TEST_F(DashCanvasTest, RebindingIsPaintedAtTheNextOccasion)
{
    show();
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.rebindPage(&m_page, -1); }), (Paints{0, 1}));
}

TEST_F(DashCanvasTest, ClearingTheSelectionRepaintsAndEmitsNothing)
{
    add({100, 100, 50, 40});
    show();
    press(at(120, 120));
    QCoreApplication::processEvents();
    m_selected.clear();
    EXPECT_EQ(paintsCausedBy([&] { m_canvas.clearSelectionAndRepaint(); }), (Paints{0, 1}));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    EXPECT_EQ(m_selected.count(), 0);
}

TEST_F(DashCanvasTest, ClearingTheSelectionEndsADrag)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(130, 120));
    m_canvas.clearSelectionAndRepaint();
    m_canvas.rebindPage(&m_page, 0);
    moveTo(at(150, 120));
    release(at(150, 120));
    EXPECT_EQ(element(0).x, 110);
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasTest, APageClearsTheSelectionAndEmitsNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    m_selected.clear();
    m_canvas.setPage(&m_page);
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    EXPECT_EQ(m_selected.count(), 0);
    EXPECT_EQ(m_canvas.page(), &m_page);
}

// --- Other input
// -----------------------------------------------------------------------------------

TEST_F(DashCanvasTest, TheWheelZoomsNothingAndGoesToTheParent)
{
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
        QWheelEvent event(at(100, 100), at(100, 100), {}, {0, 120}, Qt::NoButton, modifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&m_canvas, &event);
        EXPECT_FALSE(event.isAccepted());
        EXPECT_EQ(m_canvas.fitScale(), 1.0);
        EXPECT_EQ(m_canvas.pageOrigin(), QPointF(10, 10));
    }
}

TEST_F(DashCanvasTest, ThereIsNoContextMenu)
{
    add({100, 100, 50, 40});
    QContextMenuEvent event(QContextMenuEvent::Mouse, at(120, 120), at(120, 120));
    QCoreApplication::sendEvent(&m_canvas, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasTest, ASelectionThatNoLongerExistsIsHarmless)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    m_page.elements.clear();
    moveTo(at(150, 120));
    release(at(150, 120));
    QTest::keyClick(&m_canvas, Qt::Key_Delete);
    m_canvas.grab();
    EXPECT_EQ(m_stack.count(), 0);
    EXPECT_EQ(m_deleteRequested.count(), 0);
}
