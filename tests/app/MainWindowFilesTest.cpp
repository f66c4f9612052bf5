#include "tests/app/MainWindowFixture.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

namespace {

using MainWindowFiles = MainWindowFixture;

/// A file dialog that must look as described, then cancelled.
void expectCancelledFileDialog(ModalDriver& dialogs, const QString& caption,
                               QFileDialog::AcceptMode mode)
{
    dialogs.expect<QFileDialog>([=](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), caption);
        EXPECT_EQ(dialog.acceptMode(), mode);
        EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("AIM Dashboard (*.zconf2)")});
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

} // namespace

TEST_F(MainWindowFiles, OpenShowsTheFirstPage)
{
    openUsual();
    ASSERT_EQ(pageList().count(), 3);
    EXPECT_EQ(pageList().item(0)->text(), QStringLiteral("Race"));
    EXPECT_EQ(pageList().item(2)->text(), QStringLiteral("Empty"));
    EXPECT_EQ(pageList().currentRow(), 0);
    EXPECT_EQ(canvas().page(), pages().data());
    EXPECT_EQ(canvas().selectedIndex(), -1);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio - usual.zconf2 [MXS]"));
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindowFiles, OpenAsksForADashboardAndCancelChangesNothing)
{
    openUsual();
    expectCancelledFileDialog(m_dialogs, QStringLiteral("Open Dashboard"), QFileDialog::AcceptOpen);
    trigger("toolbarOpenAction");
    EXPECT_EQ(pageList().count(), 3);
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

TEST_F(MainWindowFiles, AFailedOpenSaysSoAndChangesNothing)
{
    openUsual();
    clickPage(1);
    m_window->deleteElement(0);
    const QString bad = path(QStringLiteral("bad %1.zconf2"));
    ASSERT_TRUE(TestPackage::writeFile(bad, "no archive"));
    m_dialogs.chooseFile(bad);
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to open file:\n") + bad);
    trigger("openAction");
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio - usual.zconf2 [MXS]"));
    EXPECT_EQ(pageList().currentRow(), 1);
    EXPECT_EQ(stack().count(), 1);
    trigger("undoAction");
    EXPECT_EQ(names(1), QStringLiteral("box.0"));
    EXPECT_EQ(canvas().page(), &pages()[1]);
    trigger("saveAction");
    EXPECT_EQ(status(), QStringLiteral("Saved usual.zconf2"));
}

TEST_F(MainWindowFiles, AFailedOpenOrSaveSaysWhy)
{
    const auto expectReason = [this] {
        m_dialogs.expect<QMessageBox>([this](QMessageBox& box) {
            EXPECT_FALSE(box.informativeText().isEmpty());
            EXPECT_EQ(box.informativeText(), m_window->document().errorString());
            ModalDriver::press(box, QMessageBox::Ok);
        });
    };
    const QString bad = path(QStringLiteral("bad.zconf2"));
    ASSERT_TRUE(TestPackage::writeFile(bad, "no archive"));
    m_dialogs.chooseFile(bad);
    expectReason();
    trigger("openAction");

    openUsual();
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("usual.zconf2"))));
    ASSERT_TRUE(QDir().mkdir(path(QStringLiteral("usual.zconf2"))));
    expectReason();
    trigger("saveAction");
}

TEST_F(MainWindowFiles, OpenWhileALaterPageWasShownGoesToTheFirst)
{
    openUsual();
    clickPage(2);
    open(writePackage(QStringLiteral("other.zconf2"),
                      {TestPackage::page("A", 800, 480), TestPackage::page("B", 800, 480),
                       TestPackage::page("C", 800, 480)}));
    EXPECT_EQ(pageList().currentRow(), 0);
    EXPECT_EQ(canvas().page(), pages().data());
    clickPage(2);
    EXPECT_EQ(canvas().page(), &pages()[2]);
}

TEST_F(MainWindowFiles, OpenForgetsSelectionAndUndoHistory)
{
    openUsual();
    clickElement(0);
    EXPECT_EQ(shownId(), QStringLiteral("race.0"));
    drag(0, QPoint(20, 0));
    ASSERT_EQ(stack().count(), 1);
    openUsual();
    EXPECT_EQ(stack().count(), 0);
    EXPECT_EQ(shownId(), QStringLiteral("--"));
    EXPECT_EQ(canvas().selectedIndex(), -1);
}

TEST_F(MainWindowFiles, OpenInTheMiddleOfADragEndsIt)
{
    openUsual();
    const QPoint from = centerOf(1);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(40, 0));
    openUsual();
    const int before = elements()[1].x;
    QTest::mouseMove(&canvas(), from + QPoint(80, 0));
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 0));
    EXPECT_EQ(elements()[1].x, before);
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowFiles, BadgeAndTitleFollowTheDevice)
{
    const QLabel* const badge = child<QLabel>("targetDeviceBadge");
    open(writePackage(QStringLiteral("plain.zconf2"), {TestPackage::page("A", 800, 480)}));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio - plain.zconf2"));
    EXPECT_FALSE(badge->isVisible());

    open(writePackage(QStringLiteral("device.zconf2"), {TestPackage::page("A", 800, 480)},
                      TestPackage::deviceXml("LIG %2", 0, {})));
    EXPECT_EQ(m_window->windowTitle(),
              QStringLiteral("Gaugewright Studio - device.zconf2 [LIG %2]"));
    EXPECT_TRUE(badge->isVisible());
    EXPECT_EQ(badge->text(), QStringLiteral("LIG %2"));
    EXPECT_EQ(badge->toolTip(), QStringLiteral("Target device (TypeCode 0)"));

    open(path(QStringLiteral("plain.zconf2")));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio - plain.zconf2 [LIG %2]"))
        << "a package without device keeps the device known before";
}

TEST_F(MainWindowFiles, SaveWritesThePackageThatIsOpen)
{
    openUsual();
    m_window->deleteElement(0);
    trigger("toolbarSaveAction");
    EXPECT_EQ(status(), QStringLiteral("Saved usual.zconf2"));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(stack().count(), 1) << "saving is no step of the history";
    EXPECT_FALSE(stack().isClean()) << "and leaves no mark in it";
    open(path(QStringLiteral("usual.zconf2")));
    EXPECT_EQ(names(), QStringLiteral("race.1 race.2 race.3"));
}

TEST_F(MainWindowFiles, AFailedSaveSaysSo)
{
    openUsual();
    const QString file = path(QStringLiteral("usual.zconf2"));
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QDir().mkdir(file));
    const QString before = status();
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to save file:\n") + file);
    trigger("saveAction");
    EXPECT_EQ(status(), before);
}

TEST_F(MainWindowFiles, SaveBeforeAnyOpenIsSaveAs)
{
    expectCancelledFileDialog(m_dialogs, QStringLiteral("Save Dashboard As"),
                              QFileDialog::AcceptSave);
    trigger("saveAction");
    EXPECT_EQ(status(), QStringLiteral("Ready -- Open a .zconf2 file to begin"));
}

TEST_F(MainWindowFiles, SavingAnEmptyDocumentFails)
{
    const QString target = path(QStringLiteral("new.zconf2"));
    m_dialogs.chooseFile(target);
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to save file:\n") + target);
    trigger("saveAsAction");
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio"));
    EXPECT_FALSE(QFileInfo::exists(target));
}

TEST_F(MainWindowFiles, SaveAsTakesTheNewNameOver)
{
    openUsual();
    const QString target = path(QStringLiteral("copy without extension"));
    m_dialogs.expect<QFileDialog>([this, target](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save Dashboard As"));
        EXPECT_EQ(dialog.selectedFiles(), QStringList{path(QStringLiteral("usual.zconf2"))});
        ModalDriver::typePath(dialog, target);
    });
    trigger("saveAsAction");
    EXPECT_EQ(status(), QStringLiteral("Saved copy without extension"));
    EXPECT_EQ(m_window->windowTitle(),
              QStringLiteral("Gaugewright Studio - copy without extension [MXS]"));
    EXPECT_TRUE(QFileInfo::exists(target));

    m_window->deleteElement(0);
    trigger("saveAction");
    EXPECT_EQ(status(), QStringLiteral("Saved copy without extension"));
    open(target);
    EXPECT_EQ(elements().size(), 3U);
}

TEST_F(MainWindowFiles, SaveAsStartsInTheNearestFolderThatExists)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("gone")));
    open(writeUsualPackage(QStringLiteral("gone/usual.zconf2")));
    ASSERT_TRUE(QDir(path(QStringLiteral("gone"))).removeRecursively());
    m_dialogs.expect<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory(), QDir(m_folder.path()));
        EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                  QStringLiteral("usual.zconf2"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    trigger("saveAsAction");
}

TEST_F(MainWindowFiles, SaveAsOverAnExistingFileAsksFirst)
{
    openUsual();
    const QString target = path(QStringLiteral("there.zconf2"));
    ASSERT_TRUE(TestPackage::writeFile(target, "former"));
    m_dialogs.chooseFile(target);
    m_dialogs.expect<QMessageBox>(
        [](QMessageBox& box) { ModalDriver::press(box, QMessageBox::No); });
    m_dialogs.cancel(); // back in the file dialog
    trigger("saveAsAction");
    EXPECT_EQ(TestPackage::readFile(target), QByteArray("former"));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio - usual.zconf2 [MXS]"));
}

TEST_F(MainWindowFiles, AFailedSaveAsKeepsTheFormerName)
{
    openUsual();
    const QString target = path(QStringLiteral("missing/folder/x.zconf2"));
    // The dialog refuses a folder that does not exist, so it goes between the choice and the save.
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("missing/folder"))));
    m_dialogs.expect<QFileDialog>([=, this](QFileDialog& dialog) {
        QObject::connect(&dialog, &QDialog::accepted, &dialog,
                         [this] { QDir(path(QStringLiteral("missing"))).removeRecursively(); });
        ModalDriver::typePath(dialog, target);
    });
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to save file:\n") + target);
    trigger("saveAsAction");
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio - usual.zconf2 [MXS]"));
    trigger("saveAction");
    EXPECT_EQ(status(), QStringLiteral("Saved usual.zconf2"));
}

TEST_F(MainWindowFiles, AboutShowsItsBox)
{
    m_dialogs.expect<QDialog>([this](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("About Gaugewright"));
        EXPECT_EQ(dialog.parentWidget(), m_window.get());
        EXPECT_NE(dialog.findChild<QLabel*>(QStringLiteral("iconLabel")), nullptr);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    trigger("aboutAction");
}
