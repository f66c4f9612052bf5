// What the panes show after an open, an edit and a change of page.

#include "tests/app/MainWindowFixture.h"

#include <QSpinBox>
#include <QStyleOptionSpinBox>

namespace {

using TestPackage::digitElement;

class MainWindowPanes : public MainWindowFixture
{
protected:
    [[nodiscard]] QSize ranges() const
    {
        EXPECT_EQ(child<QSpinBox>("widthSpin")->maximum(), child<QSpinBox>("xSpin")->maximum());
        EXPECT_EQ(child<QSpinBox>("heightSpin")->maximum(), child<QSpinBox>("ySpin")->maximum());
        return {child<QSpinBox>("xSpin")->maximum(), child<QSpinBox>("ySpin")->maximum()};
    }

    void clickUpArrow(const char* name) const
    {
        auto* const box = child<QSpinBox>(name);
        QStyleOptionSpinBox option;
        option.initFrom(box);
        option.subControls = QStyle::SC_All;
        const QRect arrow =
            box->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, box);
        QTest::mouseClick(box, Qt::LeftButton, {}, arrow.center());
    }
};

} // namespace

TEST_F(MainWindowPanes, TheRangesAreThoseOfThePageShownAfterEveryOpen)
{
    EXPECT_EQ(ranges(), QSize(800, 480));
    open(writePackage(QStringLiteral("large.zconf2"),
                      {TestPackage::page("A", 1280, 720, {digitElement("a", 1000, 600, 99, 99)})}));
    EXPECT_EQ(ranges(), QSize(1280, 720));
    clickElement(0);
    clickUpArrow("widthSpin");
    EXPECT_EQ(geometryOf(elements()[0]), (ElementGeometry{1000, 600, 100, 99}));

    open(writePackage(QStringLiteral("small.zconf2"),
                      {TestPackage::page("A", 320, 240), TestPackage::page("B", 300, 200)}));
    EXPECT_EQ(ranges(), QSize(320, 240));
    clickPage(1);
    EXPECT_EQ(ranges(), QSize(300, 200));
}

TEST_F(MainWindowPanes, AfterAnInsertionNothingIsSelected)
{
    openUsual();
    clickElement(1);
    ASSERT_EQ(shownId(), QStringLiteral("race.1"));
    insertElement();
    EXPECT_EQ(canvas().selectedIndex(), -1);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(panel().element(), nullptr);
    child<QSpinBox>("xSpin")->setValue(77);
    EXPECT_EQ(elements()[1].x, 200) << "what is not shown is not edited";
    trigger("undoAction");
    EXPECT_EQ(canvas().selectedIndex(), -1);
    EXPECT_EQ(panel().element(), nullptr);
}

TEST_F(MainWindowPanes, UndoAndRedoOnAnotherPageKeepSelectionAndPanel)
{
    openUsual();
    clickElement(0);
    drag(0, QPoint(30, 0));
    press(canvas(), Qt::Key_Delete);
    clickPage(1);
    clickElement(0);
    for (const char* const action : {"undoAction", "undoAction", "redoAction", "redoAction"}) {
        trigger(action);
        EXPECT_EQ(canvas().page(), &pages()[1]);
        EXPECT_EQ(canvas().selectedIndex(), 0);
        EXPECT_EQ(panel().element(), elements(1).data());
        EXPECT_EQ(shownId(), QStringLiteral("box.0"));
    }
}

TEST_F(MainWindowPanes, PageUpAndPageDownOnTheCanvasChangeThePage)
{
    press(canvas(), Qt::Key_PageDown); // nothing is open
    openUsual();
    canvas().setFocus();
    const auto shownAfter = [this](Qt::Key key) {
        press(canvas(), key);
        EXPECT_EQ(canvas().page(), &pages().at(static_cast<std::size_t>(pageList().currentRow())));
        return pageList().currentRow();
    };
    EXPECT_EQ(shownAfter(Qt::Key_PageDown), 1);
    EXPECT_EQ(shownAfter(Qt::Key_PageDown), 2);
    EXPECT_EQ(shownAfter(Qt::Key_PageDown), 2);
    EXPECT_EQ(shownAfter(Qt::Key_PageUp), 1);
    EXPECT_EQ(shownAfter(Qt::Key_PageUp), 0);
    EXPECT_EQ(shownAfter(Qt::Key_PageUp), 0);
}

TEST_F(MainWindowPanes, PageUpAndPageDownInThePageListChangeThePage)
{
    openUsual();
    pageList().setFocus();
    press(pageList(), Qt::Key_PageDown);
    EXPECT_GT(pageList().currentRow(), 0) << "by as many rows as the list shows";
    EXPECT_EQ(canvas().page(), &pages().at(static_cast<std::size_t>(pageList().currentRow())));
    press(pageList(), Qt::Key_PageUp);
    EXPECT_EQ(pageList().currentRow(), 0);
    EXPECT_EQ(canvas().page(), pages().data());
}

TEST_F(MainWindowPanes, ChangingThePageInTheMiddleOfADragTakesItBack)
{
    openUsual();
    for (const bool byKey : {true, false}) {
        clickPage(0);
        const QPoint from = centerOf(1);
        QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&canvas(), from + QPoint(50, 50));
        ASSERT_NE(elements()[1].x, 200);
        if (byKey)
            press(canvas(), Qt::Key_PageDown);
        else
            pageList().setCurrentRow(1);
        EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
        QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from);
    }
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowPanes, SavingInTheMiddleOfADragSavesWhereItBegan)
{
    openUsual();
    for (const char* const how : {"key", "list key", "button", "call"}) {
        const QPoint from = centerOf(1);
        QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&canvas(), from + QPoint(50, 50));
        ASSERT_NE(elements()[1].x, 200);
        if (how[0] == 'l')
            pageList().setFocus();
        if (how[0] == 'k' || how[0] == 'l')
            press(how[0] == 'k' ? static_cast<QWidget&>(canvas()) : pageList(), Qt::Key_S,
                  Qt::ControlModifier);
        else if (how[0] == 'b')
            trigger("toolbarSaveAction");
        else
            m_window->saveDashboard();
        EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60})) << how;
        QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(50, 50));
        DashboardDocument saved;
        ASSERT_TRUE(saved.open(path(QStringLiteral("usual.zconf2"))));
        EXPECT_EQ(geometryOf(saved.pages()[0].elements[1]), (ElementGeometry{200, 50, 120, 60}))
            << how;
        FolderTools::remove(saved.tempDir());
    }
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowPanes, WhatACommandDidNotDoIsNotSaid)
{
    openUsual();
    const QString before = status();
    // A document that has lost its XML takes neither page nor element.
    const QString hollow = path(QStringLiteral("hollow.xml"));
    ASSERT_TRUE(TestPackage::writeFile(hollow, "<overlay_cli/>"));
    auto& document = const_cast<DashboardDocument&>(m_window->document());
    EXPECT_FALSE(document.loadOverlay(hollow));
    Q_EMIT stack().indexChanged(0);
    newPage(QStringLiteral("Lap"));
    EXPECT_EQ(pageList().count(), 0);
    EXPECT_EQ(status(), before);
}
