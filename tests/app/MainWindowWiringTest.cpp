// What the window does when one of its panes signals, apart from everything else that brings the
// panes in step.

#include "tests/app/MainWindowFixture.h"
#include "tests/support/PaintCounter.h"

#include <QSignalSpy>
#include <QSpinBox>

namespace {

class MainWindowWiring : public MainWindowFixture
{
protected:
    template <typename Action>
    [[nodiscard]] bool repaintsCanvas(const Action& action)
    {
        QCoreApplication::processEvents(); // whatever is still to be painted from before
        const PaintCounter counter(canvas());
        action();
        QCoreApplication::processEvents();
        return counter.count() > 0;
    }

    [[nodiscard]] QSpinBox& box(const char* name) const { return *child<QSpinBox>(name); }
};

} // namespace

TEST_F(MainWindowWiring, EveryEditInThePanelRepaintsTheCanvas)
{
    openUsual();
    clickElement(0);
    EXPECT_FALSE(repaintsCanvas([] {}));
    EXPECT_TRUE(repaintsCanvas([this] { box("xSpin").setValue(90); }));
    EXPECT_TRUE(repaintsCanvas([this] { box("valueSizeSpin").stepUp(); }));
    // An edit of the geometry gives two signals: each of them is enough.
    EXPECT_TRUE(repaintsCanvas([this] { Q_EMIT panel().positionChanged(90, 50); }));
    EXPECT_TRUE(repaintsCanvas([this] { Q_EMIT panel().sizeChanged(120, 60); }));
}

TEST_F(MainWindowWiring, ThePanelReadsTheGeometryAgainAfterAGesture)
{
    openUsual();
    clickElement(0);
    DashElement& element = canvas().page()->elements[0];
    element.x = 77;
    ASSERT_EQ(box("xSpin").value(), 50);
    Q_EMIT canvas().elementMoved(0, 1, 2); // the record counts, not these numbers
    EXPECT_EQ(box("xSpin").value(), 77);
    element.w = 99;
    Q_EMIT canvas().elementResized(0, 1, 2);
    EXPECT_EQ(box("widthSpin").value(), 99);
}

TEST_F(MainWindowWiring, AnElementOutOfRangeIsNotShown)
{
    openUsual();
    clickElement(1);
    Q_EMIT canvas().elementSelected(4);
    EXPECT_EQ(shownId(), QStringLiteral("race.1"));
    Q_EMIT canvas().elementSelected(-1);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
}

TEST_F(MainWindowWiring, WithAPageOutOfRangeNothingIsEdited)
{
    openUsual();
    clickElement(1);
    Q_EMIT pageList().pageSelected(3);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(canvas().page(), pages().data());
    Q_EMIT canvas().elementSelected(0);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    trigger("deleteElementAction");
    trigger("clearPageAction");
    insertElement();
    EXPECT_EQ(stack().count(), 0);
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
    clickPage(1);
    EXPECT_EQ(canvas().page(), &pages()[1]);
}

TEST_F(MainWindowWiring, OnlyAChosenAndANewPageAreAnnounced)
{
    QSignalSpy selected(&pageList(), &PageListPanel::pageSelected);
    openUsual();
    EXPECT_EQ(selected.count(), 0);
    clickPage(1);
    EXPECT_EQ(selected.count(), 1);
    newPage(QStringLiteral("Lap"));
    ASSERT_EQ(selected.count(), 2);
    EXPECT_EQ(selected[1][0].toInt(), 3);
    trigger("undoAction");
    trigger("redoAction");
    openUsual();
    EXPECT_EQ(selected.count(), 2);
}
