// After every change of the undo stack the panes agree with the document.

#include "app/commands/MoveCommand.h"
#include "tests/app/MainWindowFixture.h"

#include <QInputDialog>
#include <QMenu>
#include <QSpinBox>

namespace {

class MainWindowHistory : public MainWindowFixture
{
protected:
    /// Nothing is shown, and nothing that needs a page does anything.
    void expectEmpty()
    {
        EXPECT_EQ(pageList().count(), 0);
        EXPECT_EQ(canvas().page(), nullptr);
        EXPECT_EQ(panel().element(), nullptr);
        canvas().grab();
        trigger("clearPageAction");
        m_dialogs.expectBox(QMessageBox::Information, QStringLiteral("Insert Element"),
                            QStringLiteral("Open a .zconf2 file first."));
        trigger("insertElementAction");
    }
};
using TestPackage::digitElement;

constexpr Qt::KeyboardModifier kCtrl = Qt::ControlModifier;

} // namespace

TEST_F(MainWindowHistory, UndoingANewPageGoesToTheNewLastPage)
{
    openUsual();
    newPage(QStringLiteral("Lap"));
    insertElement();
    clickElement(0);
    press(canvas(), Qt::Key_Z, kCtrl);
    press(canvas(), Qt::Key_Z, kCtrl);
    EXPECT_EQ(pageList().count(), 3);
    EXPECT_EQ(pageList().currentRow(), 2);
    EXPECT_EQ(canvas().page(), &pages()[2]);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(child<QSpinBox>("xSpin")->maximum(), 320) << "the ranges are those of the page shown";
}

TEST_F(MainWindowHistory, UndoingANewPageWhileAnotherIsShownStaysThere)
{
    openUsual();
    newPage(QStringLiteral("Lap"));
    clickPage(1);
    clickElement(0);
    ASSERT_EQ(shownId(), QStringLiteral("box.0"));
    trigger("undoAction");
    EXPECT_EQ(pageList().count(), 3);
    EXPECT_EQ(pageList().currentRow(), 1);
    EXPECT_EQ(canvas().page(), &pages()[1]);
    EXPECT_EQ(shownId(), QStringLiteral("box.0"));
    EXPECT_EQ(panel().element(), &elements(1)[0]);
    trigger("redoAction");
    EXPECT_EQ(pageList().count(), 4);
    EXPECT_EQ(pageList().currentRow(), 1);
    EXPECT_EQ(canvas().page(), &pages()[1]);
    EXPECT_EQ(panel().element(), &elements(1)[0]);
}

TEST_F(MainWindowHistory, FiftyNewPagesAndUndoingAll)
{
    openUsual();
    for (int i = 0; i < 50; ++i)
        newPage(QStringLiteral("New %1").arg(i));
    EXPECT_EQ(pageList().count(), 53);
    EXPECT_EQ(pageList().currentRow(), 52);
    insertElement();
    clickElement(0);
    while (stack().canUndo()) {
        trigger("undoAction");
        ASSERT_EQ(pageList().count(), static_cast<int>(pages().size()));
        ASSERT_EQ(canvas().page(), &pages().at(static_cast<std::size_t>(pageList().currentRow())));
        canvas().grab();
    }
    EXPECT_EQ(pageList().count(), 3);
    EXPECT_EQ(pageList().currentRow(), 2);
    stack().setIndex(stack().count());
    EXPECT_EQ(pageList().count(), 53);
    stack().setIndex(0);
    EXPECT_EQ(pageList().count(), 3);
    EXPECT_EQ(canvas().page(), &pages()[2]);
}

TEST_F(MainWindowHistory, DeletingTwoNeighboursAndUndoingBoth)
{
    openUsual();
    clickElement(1);
    press(canvas(), Qt::Key_Delete);
    clickElement(1);
    ASSERT_EQ(shownId(), QStringLiteral("race.2"));
    press(canvas(), Qt::Key_Delete);
    EXPECT_EQ(names(), QStringLiteral("race.0 race.3"));
    clickElement(1);
    trigger("undoAction");
    EXPECT_EQ(names(), QStringLiteral("race.0 race.2 race.3"));
    EXPECT_EQ(canvas().selectedIndex(), 2);
    EXPECT_EQ(shownId(), QStringLiteral("race.3"));
    EXPECT_EQ(panel().element(), &elements()[2]);
    trigger("undoAction");
    EXPECT_EQ(names(), QStringLiteral("race.0 race.1 race.2 race.3"));
    EXPECT_EQ(canvas().selectedIndex(), 3);
    EXPECT_EQ(panel().element(), &elements()[3]);
}

TEST_F(MainWindowHistory, UndoingTheInsertionOfTheSelectedElementClearsThePanel)
{
    openUsual();
    insertElement();
    clickElement(4);
    ASSERT_TRUE(shownId().startsWith(QStringLiteral("new.")));
    trigger("undoAction");
    EXPECT_EQ(canvas().selectedIndex(), -1);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(panel().element(), nullptr);
    EXPECT_FALSE(child<QSpinBox>("xSpin")->isEnabled());
    canvas().grab();
}

TEST_F(MainWindowHistory, UndoingAMoveRefreshesThePanel)
{
    openUsual();
    clickElement(0);
    drag(0, QPoint(100, 0));
    const int moved = elements()[0].x;
    ASSERT_GT(moved, 50);
    EXPECT_EQ(child<QSpinBox>("xSpin")->value(), moved);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Move/Resize race.0"));
    EXPECT_EQ(canvas().selectedIndex(), 0);
    press(canvas(), Qt::Key_Z, kCtrl);
    EXPECT_EQ(elements()[0].x, 50);
    EXPECT_EQ(child<QSpinBox>("xSpin")->value(), 50);
    press(canvas(), Qt::Key_Z, kCtrl | Qt::ShiftModifier);
    EXPECT_EQ(child<QSpinBox>("xSpin")->value(), moved);
}

TEST_F(MainWindowHistory, MovingDeletingAndUndoingBoth)
{
    openUsual();
    drag(1, QPoint(0, 60));
    const ElementGeometry moved = geometryOf(elements()[1]);
    press(canvas(), Qt::Key_Delete);
    trigger("undoAction");
    EXPECT_EQ(geometryOf(elements()[1]), moved);
    trigger("undoAction");
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    trigger("redoAction");
    EXPECT_EQ(geometryOf(elements()[1]), moved);
}

TEST_F(MainWindowHistory, UndoInTheMiddleOfADragEndsIt)
{
    openUsual();
    drag(0, QPoint(0, 60));
    m_window->deleteElement(3);
    const QPoint from = centerOf(1);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(50, 50));
    press(canvas(), Qt::Key_Z, kCtrl);
    EXPECT_EQ(names(), QStringLiteral("race.0 race.1 race.2 race.3"));
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    QTest::mouseMove(&canvas(), from + QPoint(80, 80));
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 80));
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    EXPECT_TRUE(stack().canRedo()) << "an interrupted drag must not cost the redo history";
    EXPECT_EQ(stack().count(), 2);
}

TEST_F(MainWindowHistory, RedoInTheMiddleOfADragEndsIt)
{
    openUsual();
    const QList<QKeySequence> bindings = QKeySequence::keyBindings(QKeySequence::Redo);
    ASSERT_FALSE(bindings.isEmpty()); // Ctrl+Shift+Z, Ctrl+Y or both
    for (const QKeySequence& binding : bindings) {
        m_window->deleteElement(3);
        trigger("undoAction");
        const QPoint from = centerOf(1);
        QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&canvas(), from + QPoint(50, 50));
        ASSERT_NE(elements()[1].x, 200);
        press(canvas(), binding[0].key(), binding[0].keyboardModifiers());
        EXPECT_EQ(names(), QStringLiteral("race.0 race.1 race.2"));
        EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
        QTest::mouseMove(&canvas(), from + QPoint(80, 80));
        QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 80));
        EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
        EXPECT_EQ(stack().count(), 1);
        trigger("undoAction");
    }
}

TEST_F(MainWindowHistory, UndoingTheInsertionOfTheDraggedElementEndsTheDrag)
{
    openUsual();
    insertElement();
    const QPoint from = centerOf(4);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(50, 50));
    stack().undo();
    QTest::mouseMove(&canvas(), from + QPoint(80, 80));
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 80));
    EXPECT_EQ(elements().size(), 4U);
    EXPECT_EQ(stack().count(), 1);
    EXPECT_EQ(panel().element(), nullptr);
}

TEST_F(MainWindowHistory, DeletingTheDraggedElementEndsTheDrag)
{
    openUsual();
    const QPoint from = centerOf(1);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(50, 50));
    press(canvas(), Qt::Key_Delete);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 80));
    EXPECT_EQ(names(), QStringLiteral("race.0 race.2 race.3"));
    trigger("undoAction");
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
}

TEST_F(MainWindowHistory, DeletingTheDraggedElementFromAMenuEndsTheDragFirst)
{
    openUsual();
    const QPoint from = centerOf(1);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(50, 50));
    trigger("deleteElementAction");
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 80));
    EXPECT_EQ(names(), QStringLiteral("race.0 race.2 race.3"));
    trigger("undoAction");
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
}

TEST_F(MainWindowHistory, AMenuInTheMiddleOfADragEndsIt)
{
    openUsual();
    for (const Qt::Key key : {Qt::Key_F, Qt::Key_E}) {
        const QPoint from = centerOf(1);
        QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&canvas(), from + QPoint(50, 50));
        ASSERT_NE(elements()[1].x, 200);
        press(canvas(), key, Qt::AltModifier);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QTest::mouseMove(&canvas(), from + QPoint(80, 80));
        QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 80));
        EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    }
    EXPECT_EQ(stack().count(), 0);
}

// The release of the mouse button goes to the dialog, or nowhere.
TEST_F(MainWindowHistory, ADialogInTheMiddleOfADragEndsIt)
{
    openUsual();
    const QPoint from = centerOf(1);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(50, 50));
    m_dialogs.cancel();
    trigger("openAction");
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    QTest::mouseMove(&canvas(), from + QPoint(80, 80));
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    EXPECT_EQ(canvas().selectedIndex(), 1);
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowHistory, APanelEditAfterAnUndoReachesTheRightElement)
{
    openUsual();
    clickElement(3);
    m_window->deleteElement(0); // another than the one shown: the panel is cleared all the same
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    clickElement(2);
    ASSERT_EQ(shownId(), QStringLiteral("race.3"));
    trigger("undoAction");
    child<QSpinBox>("ySpin")->setValue(123);
    EXPECT_EQ(elements()[3].y, 123);
    EXPECT_EQ(elements()[2].y, 50);
}

TEST_F(MainWindowHistory, SelectingAPageClearsThePanel)
{
    openUsual();
    clickElement(1);
    clickPage(1);
    EXPECT_EQ(canvas().page(), &pages()[1]);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(canvas().selectedIndex(), -1);
    clickElement(0);
    EXPECT_EQ(shownId(), QStringLiteral("box.0"));
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(shownId(), QStringLiteral("--"));
}

TEST_F(MainWindowHistory, APanelThatWasClearedStaysClear)
{
    openUsual();
    clickElement(1);
    clickPage(1);
    clickPage(0);
    insertElement();
    EXPECT_EQ(panel().element(), nullptr);
    EXPECT_EQ(canvas().selectedIndex(), -1);
    clickElement(1);
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, QPoint(3, 3));
    trigger("undoAction");
    EXPECT_EQ(panel().element(), nullptr);
    EXPECT_EQ(canvas().selectedIndex(), -1);
}

TEST_F(MainWindowHistory, AChangeOnAnotherPageIsNamed)
{
    openUsual();
    clickElement(0);
    press(canvas(), Qt::Key_Delete);
    clickPage(1);
    press(canvas(), Qt::Key_Z, kCtrl);
    EXPECT_EQ(status(), QStringLiteral("Undone: Delete Engine RPM (page \"Race\")"));
    trigger("toolbarRedoAction");
    EXPECT_EQ(status(), QStringLiteral("Redone: Delete Engine RPM (page \"Race\")"));
    QTest::qWait(2600);
    EXPECT_FALSE(status().isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([this] { return status().isEmpty(); }, 800));
}

TEST_F(MainWindowHistory, AChangeOnThePageShownIsNotNamed)
{
    openUsual();
    const QString before = status();
    drag(0, QPoint(30, 0));
    trigger("undoAction");
    trigger("redoAction");
    EXPECT_EQ(status(), before);
    newPage(QStringLiteral("Lap"));
    const QString said = status();
    trigger("undoAction"); // the page list shows that
    EXPECT_EQ(status(), said);
}

TEST_F(MainWindowHistory, AChangeOnNoPageOfTheDocumentIsNotNamed)
{
    openUsual();
    const QString before = status();
    DashPage bare;
    bare.elements.resize(1);
    stack().push(new MoveCommand(PageRef(&bare), 0, {}, {1, 2, 3, 4}));
    trigger("undoAction");
    trigger("redoAction");
    EXPECT_EQ(bare.elements[0].w, 3);
    EXPECT_EQ(status(), before);
}

TEST_F(MainWindowHistory, APageThatComesOrGoesIsNamedByItsCommand)
{
    openUsual();
    newPage(QStringLiteral("%1 & \"Lap\""));
    clickPage(0);
    trigger("undoAction");
    EXPECT_EQ(status(), QStringLiteral("Undone: New page \"%1 & \"Lap\"\""));
    trigger("redoAction");
    EXPECT_EQ(status(), QStringLiteral("Redone: New page \"%1 & \"Lap\"\""));
}

TEST_F(MainWindowHistory, AnUndoThatRemovesTheOnlyPageLeavesAnEmptyCanvas)
{
    open(writePackage(QStringLiteral("one.zconf2"),
                      {TestPackage::page("A", 800, 480, {digitElement("a", 0, 0, 99, 99)})}));
    clickElement(0);
    // No package opens without a page, so the one that is there goes by hand.
    ASSERT_TRUE(const_cast<DashboardDocument&>(m_window->document()).removePage(0));
    Q_EMIT stack().indexChanged(0);
    expectEmpty();

    newPage(QStringLiteral("First"));
    EXPECT_EQ(pageList().currentRow(), 0);
    EXPECT_EQ(canvas().page(), pages().data());
    trigger("undoAction");
    expectEmpty();
    trigger("redoAction");
    EXPECT_EQ(pageList().currentRow(), 0);
    EXPECT_EQ(canvas().page(), pages().data());
}

TEST_F(MainWindowHistory, WithoutPagesANewOneIsAllowedAndProposedAsTheFirst)
{
    open(writePackage(QStringLiteral("one.zconf2"), {TestPackage::page("A", 800, 480)}));
    ASSERT_TRUE(const_cast<DashboardDocument&>(m_window->document()).removePage(0));
    Q_EMIT stack().indexChanged(0);
    m_dialogs.expect<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.textValue(), QStringLiteral("Page 1"));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    trigger("newPageAction");
    ASSERT_EQ(pages().size(), 1U);
    EXPECT_EQ(pages()[0].name, QStringLiteral("Page 1"));
}
