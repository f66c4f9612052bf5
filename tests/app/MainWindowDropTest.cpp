// Files that are dropped on the window.

#include "dialogs/AddElementDialog.h"
#include "document/FixedPaths.h"
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
    /// Drags files over a widget and drops them there. @return whether the drag was accepted.
    bool drop(QWidget& target, const QStringList& paths,
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
