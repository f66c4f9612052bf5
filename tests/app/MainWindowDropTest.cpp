// Files that are dropped on the window.

#include "dialogs/AddElementDialog.h"
#include "paths/FixedPaths.h"
#include "tests/app/MainWindowFixture.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSpinBox>
#include <QUrl>

namespace {

class MainWindowDrop : public MainWindowFixture
{
protected:
    /// Drags files over a widget, drops them there and lets the window open them.
    /// @return whether the drag was accepted
    bool drop(QWidget& target, const QStringList& paths,
              Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction)
    {
        const bool accepted = deliver(target, paths, actions);
        QCoreApplication::processEvents();
        return accepted;
    }

    /// The same, up to where the source has its answer.
    bool deliver(QWidget& target, const QStringList& paths,
                 Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        data.setText(paths.join(u'\n')); // as file managers do
        const QPoint center = target.rect().center();
        // Shift asks for a move.
        QDragEnterEvent enter(center, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted())
            return false;
        EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "the source deletes what is moved";
        QDropEvent dropped(center, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&target, &dropped);
        EXPECT_TRUE(dropped.isAccepted());
        EXPECT_EQ(dropped.dropAction(), Qt::CopyAction);
        return true;
    }

    [[nodiscard]] QString file(const char* name) const
    {
        QString result = path(QLatin1String(name));
        EXPECT_TRUE(TestPackage::writeFile(result, "content"));
        return result;
    }
};

} // namespace

TEST_F(MainWindowDrop, APackageIsOpened)
{
    EXPECT_TRUE(drop(*m_window, {writeUsualPackage()}));
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio - usual.zconf2 [MXS]"));
    EXPECT_EQ(canvas().page(), pages().data());
    m_window->deleteElement(0);
    trigger("saveAction");
    EXPECT_EQ(status(), QStringLiteral("Saved usual.zconf2"));
}

TEST_F(MainWindowDrop, EveryPaneTakesFiles)
{
    openUsual();
    const QString package = path(QStringLiteral("usual.zconf2"));
    for (QWidget* const pane : std::initializer_list<QWidget*>{
             &canvas(), pageList().viewport(), &panel(),
             child<QSpinBox>("xSpin")->findChild<QLineEdit*>(), m_window->statusBar()}) {
        m_window->statusBar()->clearMessage();
        clickElement(0); // enables the number fields
        EXPECT_TRUE(drop(*pane, {package})) << pane->metaObject()->className();
        EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
    }
}

TEST_F(MainWindowDrop, ARecordingIsLoaded)
{
    const QString recording = file("lap.xrk");
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to load XRK file:\n%1\n\nCheck DLL path: %2")
                            .arg(recording, FixedPaths::readerLibrary()));
    EXPECT_TRUE(drop(*m_window, {recording})); // no reader is installed for this program
}

TEST_F(MainWindowDrop, AMissingReaderLibraryIsNamedAsTheReason)
{
    m_dialogs.expect<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.informativeText(), QStringLiteral("The reader library was not found"));
        ModalDriver::press(box, QMessageBox::Ok);
    });
    EXPECT_TRUE(drop(*m_window, {file("lap.xrk")}));
}

TEST_F(MainWindowDrop, APackageThatCannotBeOpenedSaysSo)
{
    const QString bad = file("bad.zconf2");
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to open file:\n") + bad);
    EXPECT_TRUE(drop(*m_window, {bad}));
}

TEST_F(MainWindowDrop, AnythingElseIsRefused)
{
    EXPECT_FALSE(drop(*m_window, {file("a.zip")}));
    EXPECT_FALSE(drop(canvas(), {m_folder.path()}));
    EXPECT_FALSE(drop(*m_window, {}));
    EXPECT_EQ(status(), QStringLiteral("Ready -- Open a .zconf2 file to begin"));
}

TEST_F(MainWindowDrop, ASourceThatOnlyMovesIsRefused)
{
    EXPECT_FALSE(drop(*m_window, {writeUsualPackage()}, Qt::MoveAction));
    EXPECT_FALSE(drop(*m_window, {writeUsualPackage()}, Qt::MoveAction | Qt::LinkAction));
    EXPECT_TRUE(drop(*m_window, {writeUsualPackage()}, Qt::CopyAction));
}

TEST_F(MainWindowDrop, ADragThatMovesOverTheWindowStaysAccepted)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(writeUsualPackage())});
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QWindow* const window = m_window->windowHandle(); // which finds the widget below the pointer
    const QPoint overCanvas = canvas().mapTo(m_window.get(), QPoint(50, 50));
    QDragEnterEvent enter(overCanvas, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(window, &enter);
    for (const QPoint& point : {overCanvas + QPoint(20, 20),
                                pageList().mapTo(m_window.get(), QPoint(20, 20)), overCanvas}) {
        QDragMoveEvent move(point, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
        move.setDropAction(enter.dropAction()); // as a drag goes on
        move.setAccepted(enter.isAccepted());
        QCoreApplication::sendEvent(window, &move);
        EXPECT_TRUE(move.isAccepted());
        EXPECT_EQ(move.dropAction(), Qt::CopyAction);
    }
    QDropEvent dropped(overCanvas, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(window, &dropped);
    QCoreApplication::processEvents();
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

TEST_F(MainWindowDrop, TheSourceDoesNotWaitForTheFilesToBeOpened)
{
    ASSERT_TRUE(deliver(*m_window, {file("bad.zconf2")}));
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to open file:\n") +
                            path(QStringLiteral("bad.zconf2")));
    EXPECT_EQ(m_dialogs.pending(), 1U);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_dialogs.pending(), 0U);
}

TEST_F(MainWindowDrop, ADialogThatComesUpAfterTheDropWins)
{
    openUsual();
    ASSERT_TRUE(deliver(*m_window, {writeUsualPackage(QStringLiteral("other.zconf2"))}));
    m_dialogs.expect<QDialog>([](QDialog& dialog) {
        QCoreApplication::processEvents(); // on Windows a timer may come before what was posted
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    trigger("insertElementAction");
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

TEST_F(MainWindowDrop, ADropInTheMiddleOfADragEndsIt)
{
    openUsual();
    const QPoint from = centerOf(1);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(50, 50));
    ASSERT_NE(elements()[1].x, 200);
    const QString recording = file("lap.xrk");
    m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                        QStringLiteral("Failed to load XRK file:\n%1\n\nCheck DLL path: %2")
                            .arg(recording, FixedPaths::readerLibrary()));
    EXPECT_TRUE(drop(*m_window, {recording}));
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    QTest::mouseMove(&canvas(), from + QPoint(80, 80));
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(80, 80));
    EXPECT_EQ(geometryOf(elements()[1]), (ElementGeometry{200, 50, 120, 60}));
    EXPECT_EQ(stack().count(), 0);
}

TEST_F(MainWindowDrop, NothingIsTakenWhileADialogWorksOnTheDocument)
{
    openUsual();
    const QString other = writeUsualPackage(QStringLiteral("other.zconf2"));
    m_dialogs.expect<AddElementDialog>([&](AddElementDialog& dialog) {
        EXPECT_FALSE(drop(*m_window, {other}));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    trigger("insertElementAction");
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}
