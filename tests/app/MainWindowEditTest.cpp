#include "dialogs/AddElementDialog.h"
#include "tests/app/MainWindowFixture.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QSpinBox>

namespace {

using MainWindowEdit = MainWindowFixture;
using TestPackage::digitElement;

/// What the status bar says, and for how long.
class StatusWatch
{
public:
    explicit StatusWatch(const QStatusBar* bar) : m_bar(bar) {}

    /// True when the message that stands there now goes within that time and not much before.
    [[nodiscard]] bool goesAfter(int milliseconds) const
    {
        constexpr int kTolerance = 400;
        QTest::qWait(milliseconds - kTolerance);
        if (m_bar->currentMessage().isEmpty())
            return false;
        return QTest::qWaitFor([this] { return m_bar->currentMessage().isEmpty(); },
                               2 * kTolerance);
    }

private:
    const QStatusBar* m_bar;
};

} // namespace

// --- New page ------------------------------------------------------------------------------------

TEST_F(MainWindowEdit, NewPageNeedsAPackage)
{
    m_dialogs.expectBox(
        QMessageBox::Information, QStringLiteral("New Page"),
        QStringLiteral("Open a .zconf2 file first -- new pages need a base config."));
    trigger("newPageAction");
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowEdit, NewPageAsksForANameAndProposesOne)
{
    openUsual();
    m_dialogs.expect<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("New Page"));
        EXPECT_EQ(dialog.labelText(), QStringLiteral("Page name:"));
        EXPECT_EQ(dialog.textValue(), QStringLiteral("Page 4"));
        EXPECT_EQ(dialog.textEchoMode(), QLineEdit::Normal);
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    trigger("newPageAction");
    EXPECT_EQ(pages().back().name, QStringLiteral("Page 4"));
}

TEST_F(MainWindowEdit, NewPageIsAppendedShownAndConfirmed)
{
    open(writePackage(QStringLiteral("small.zconf2"),
                      {TestPackage::page("A", 800, 480, {digitElement("a", 0, 0, 100, 50)})}));
    clickElement(0);
    newPage(QStringLiteral("Lap"));
    ASSERT_EQ(pageList().count(), 2);
    EXPECT_EQ(pageList().item(1)->text(), QStringLiteral("Lap"));
    EXPECT_EQ(pageList().currentRow(), 1);
    EXPECT_EQ(canvas().page(), &pages()[1]);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(stack().undoText(), QStringLiteral("New page \"Lap\""));
    EXPECT_EQ(status(), QStringLiteral("Added blank page \"Lap\" (800 x 480)"));
}

TEST_F(MainWindowEdit, NewPageHasTheSizeOfTheDisplayAndThePanelKnowsIt)
{
    const QString file = path(QStringLiteral("small display.zconf2"));
    ASSERT_TRUE(TestPackage::writePackage(
        file, TestPackage::overlayXml({TestPackage::page("A", 800, 480)}, 320, 240),
        TestPackage::deviceXml("MXG", 1, {})));
    open(file);
    newPage(QStringLiteral("Lap"));
    EXPECT_EQ(pages()[1].width, 320);
    EXPECT_EQ(status(), QStringLiteral("Added blank page \"Lap\" (320 x 240)"));
    EXPECT_EQ(child<QSpinBox>("xSpin")->maximum(), 320);
    EXPECT_EQ(child<QSpinBox>("ySpin")->maximum(), 240);
}

TEST_F(MainWindowEdit, ANewPagesNameIsStoredTrimmedAndQuotedAsTyped)
{
    openUsual();
    newPage(QStringLiteral("  %2 Lap "));
    EXPECT_EQ(pages().back().name, QStringLiteral("%2 Lap"));
    EXPECT_EQ(pageList().item(3)->text(), QStringLiteral("%2 Lap"));
    EXPECT_EQ(status(), QStringLiteral("Added blank page \"  %2 Lap \" (800 x 480)"));
}

TEST_F(MainWindowEdit, NoNameNoPage)
{
    openUsual();
    newPage(QStringLiteral("   "));
    newPage(QString());
    m_dialogs.cancel();
    trigger("newPageAction");
    EXPECT_EQ(pageList().count(), 3);
    EXPECT_EQ(stack().count(), 0);
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

// --- Insert --------------------------------------------------------------------------------------

TEST_F(MainWindowEdit, InsertNeedsAPage)
{
    m_dialogs.expectBox(QMessageBox::Information, QStringLiteral("Insert Element"),
                        QStringLiteral("Open a .zconf2 file first."));
    trigger("insertElementAction");
}

TEST_F(MainWindowEdit, InsertPutsACopyInTheMiddleOfThePage)
{
    openUsual();
    clickPage(2); // 320 x 240; the donor stands on the first page
    insertElement(0, 1);
    ASSERT_EQ(elements(2).size(), 1U);
    const DashElement& created = elements(2)[0];
    EXPECT_EQ(geometryOf(created), (ElementGeometry{100, 90, 120, 60}));
    EXPECT_EQ(created.channelLongName, QStringLiteral("Water Temp"));
    EXPECT_EQ(created.channelShortName, QStringLiteral("WT"));
    EXPECT_TRUE(created.name.startsWith(QStringLiteral("new.")));
    EXPECT_EQ(stack().undoText(), QStringLiteral("Insert Water Temp"));
    EXPECT_EQ(status(), QStringLiteral("Inserted \"Numeric value\" -> Water Temp"));
    EXPECT_EQ(canvas().page(), &pages()[2]);
    EXPECT_EQ(canvas().selectedIndex(), -1);
}

TEST_F(MainWindowEdit, NewElementsAreCountedOnThroughTheNextPackage)
{
    const auto insertedNumber = [this] {
        insertElement();
        const QString name = elements().back().name;
        EXPECT_TRUE(name.startsWith(QStringLiteral("new."))) << name.toStdString();
        return name.mid(4).toInt();
    };
    openUsual();
    const int first = insertedNumber();
    EXPECT_GT(first, 0);
    open(writeUsualPackage(QStringLiteral("second.zconf2")));
    EXPECT_EQ(insertedNumber(), first + 1);
}

TEST_F(MainWindowEdit, ADonorWithoutSizeGetsTheUsualOne)
{
    open(writePackage(QStringLiteral("zero.zconf2"),
                      {TestPackage::page("A", 320, 240, {digitElement("a", 0, 0, 0, 0)})},
                      TestPackage::deviceXml("MXS", 1, {{7, "RPM", "R", "rpm"}})));
    insertElement();
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{60, 80, 200, 80}));
}

TEST_F(MainWindowEdit, CancellingTheInsertDialogChangesNothing)
{
    openUsual();
    clickElement(0);
    m_dialogs.expect<AddElementDialog>(
        [](AddElementDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    trigger("insertElementAction");
    EXPECT_EQ(elements().size(), 4U);
    EXPECT_EQ(stack().count(), 0);
    EXPECT_EQ(canvas().selectedIndex(), 0);
}

TEST_F(MainWindowEdit, CtrlIInsertsWhicheverPaneHasFocus)
{
    openUsual();
    for (QWidget* const pane :
         {static_cast<QWidget*>(&canvas()), static_cast<QWidget*>(&pageList()),
          static_cast<QWidget*>(child<QSpinBox>("xSpin"))}) {
        clickElement(0);
        pane->setFocus();
        m_dialogs.cancel();
        press(*pane, Qt::Key_I, Qt::ControlModifier);
    }
}

// --- Delete --------------------------------------------------------------------------------------

TEST_F(MainWindowEdit, DeleteWithoutSelectionIsRefused)
{
    trigger("deleteElementAction");
    EXPECT_EQ(status(), QStringLiteral("No element selected"));
    openUsual();
    trigger("deleteElementAction");
    EXPECT_EQ(status(), QStringLiteral("No element selected"));
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowEdit, DeleteRemovesTheSelectedElement)
{
    openUsual();
    clickElement(1);
    trigger("deleteElementAction");
    EXPECT_EQ(names(), QStringLiteral("race.0 race.2 race.3"));
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(panel().element(), nullptr);
    EXPECT_EQ(canvas().selectedIndex(), -1);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Delete Engine RPM"));
    EXPECT_EQ(status(), QStringLiteral("Deleted element -- 3 remaining on page"));
}

TEST_F(MainWindowEdit, DeletingTheLastElementLeavesNone)
{
    openUsual();
    clickPage(1);
    clickElement(0);
    trigger("deleteElementAction");
    EXPECT_TRUE(elements(1).empty());
    EXPECT_EQ(status(), QStringLiteral("Deleted element -- 0 remaining on page"));
}

TEST_F(MainWindowEdit, AnIndexOutOfRangeDeletesNothing)
{
    m_window->deleteElement(0);
    openUsual();
    clickElement(0);
    m_window->deleteElement(-1);
    m_window->deleteElement(4);
    EXPECT_EQ(stack().count(), 0);
    EXPECT_EQ(shownId(), QStringLiteral("race.0"));
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

TEST_F(MainWindowEdit, TheDeleteKeyDeletesOnceWhicheverPaneHasFocus)
{
    openUsual();
    for (QWidget* const pane :
         {static_cast<QWidget*>(&canvas()), static_cast<QWidget*>(&pageList())}) {
        clickElement(0);
        pane->setFocus();
        const std::size_t before = elements().size();
        const int steps = stack().count();
        press(*pane, Qt::Key_Delete);
        EXPECT_EQ(elements().size(), before - 1);
        EXPECT_EQ(stack().count(), steps + 1);
    }
}

TEST_F(MainWindowEdit, BackspaceOnTheCanvasDeletesOnce)
{
    openUsual();
    clickElement(0);
    press(canvas(), Qt::Key_Backspace);
    EXPECT_EQ(names(), QStringLiteral("race.1 race.2 race.3"));
    EXPECT_EQ(stack().count(), 1);
    press(canvas(), Qt::Key_Backspace);
    EXPECT_EQ(stack().count(), 1) << "nothing is selected any more";
}

TEST_F(MainWindowEdit, TheDeleteKeyInASpinBoxEditsItsText)
{
    openUsual();
    clickElement(0);
    auto* const box = child<QSpinBox>("xSpin");
    box->setFocus();
    box->selectAll();
    press(*box, Qt::Key_Delete);
    QTest::keyClicks(box, QStringLiteral("33"));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(elements().size(), 4U);
    EXPECT_EQ(elements()[0].x, 33);
    EXPECT_EQ(stack().count(), 0);
}

// --- Clear page ----------------------------------------------------------------------------------

TEST_F(MainWindowEdit, ClearWithoutPageDoesNothing)
{
    trigger("clearPageAction");
    EXPECT_EQ(status(), QStringLiteral("Ready -- Open a .zconf2 file to begin"));
}

TEST_F(MainWindowEdit, ClearingAnEmptyPageIsRefused)
{
    openUsual();
    clickPage(2);
    trigger("clearPageAction");
    EXPECT_EQ(status(), QStringLiteral("Page is already empty"));
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowEdit, ClearAsksAndRemovesEveryElement)
{
    openUsual();
    clickElement(1);
    m_dialogs.expectBox(QMessageBox::Question, QStringLiteral("Clear Page"),
                        QStringLiteral("Remove all 4 elements from page \"Race\"?\n\n"
                                       "This is undoable with Ctrl+Z."),
                        QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Yes);
    trigger("clearPageAction");
    EXPECT_TRUE(elements().empty());
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(canvas().selectedIndex(), -1);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Clear page (4 elements)"));
    EXPECT_EQ(status(), QStringLiteral("Cleared 4 elements from \"Race\""));
    press(canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(names(), QStringLiteral("race.0 race.1 race.2 race.3"));
}

TEST_F(MainWindowEdit, CancelledClearChangesNothing)
{
    openUsual();
    clickElement(1);
    m_dialogs.expect<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), nullptr) << "neither answer is suggested";
        ModalDriver::press(box, QMessageBox::Cancel);
    });
    trigger("clearPageAction");
    m_dialogs.cancel(); // Escape is Cancel
    trigger("clearPageAction");
    EXPECT_EQ(elements().size(), 4U);
    EXPECT_EQ(stack().count(), 0);
    EXPECT_EQ(shownId(), QStringLiteral("race.1"));
    EXPECT_EQ(canvas().selectedIndex(), 1);
}

TEST_F(MainWindowEdit, NamesThatLookLikeMarkupOrPlaceholdersStayAsTheyAre)
{
    openUsual();
    newPage(QStringLiteral("<b>%1</b>"));
    insertElement();
    m_dialogs.expect<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("Remove all 1 elements from page \"<b>%1</b>\"?\n\n"
                                             "This is undoable with Ctrl+Z."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        ModalDriver::press(box, QMessageBox::Yes);
    });
    trigger("clearPageAction");
    EXPECT_EQ(status(), QStringLiteral("Cleared 1 elements from \"<b>%1</b>\""));
}

// --- How long messages stay ----------------------------------------------------------------------

TEST_F(MainWindowEdit, RefusalsStayTwoSeconds)
{
    trigger("deleteElementAction");
    EXPECT_TRUE(StatusWatch(m_window->statusBar()).goesAfter(2000));
}

TEST_F(MainWindowEdit, ConfirmationsOfEditsStayThreeSeconds)
{
    openUsual();
    m_window->deleteElement(0);
    EXPECT_TRUE(StatusWatch(m_window->statusBar()).goesAfter(3000));
}

TEST_F(MainWindowEdit, TheGreetingAndConfirmationsOfOpenAndSaveStay)
{
    const MainWindow untouched;
    MainWindow opened;
    m_dialogs.chooseFile(writeUsualPackage());
    opened.openDashboard();
    openUsual();
    trigger("saveAction");
    QTest::qWait(3500);
    EXPECT_EQ(untouched.statusBar()->currentMessage(),
              QStringLiteral("Ready -- Open a .zconf2 file to begin"));
    EXPECT_EQ(opened.statusBar()->currentMessage(),
              QStringLiteral("Opened usual.zconf2 (3 pages)"));
    EXPECT_EQ(status(), QStringLiteral("Saved usual.zconf2"));
}
