// The program from its first to its last line: main itself runs here, watched from within its event
// loop.

#include "app/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>
#include <functional>

int programMain(int argc, char** argv); // the program's main under another name

namespace {

std::function<void(MainWindow&)> watch;

void watchTheOnlyWindow()
{
    QList<MainWindow*> windows;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible())
            windows << qobject_cast<MainWindow*>(widget);
    }
    if (windows.size() == 1 && windows[0]) {
        watch(*windows[0]);
        return;
    }
    ADD_FAILURE() << windows.size() << " visible windows";
    QCoreApplication::exit(-1);
}

void watchWhenRunning()
{
    QTimer::singleShot(0, QCoreApplication::instance(), watchTheOnlyWindow);
}
Q_COREAPP_STARTUP_FUNCTION(watchWhenRunning)

int runProgram(const std::function<void(MainWindow&)>& watcher)
{
    watch = watcher;
    std::array<char, 12> name{"gaugewright"};
    std::array<char*, 2> arguments{name.data(), nullptr};
    return programMain(1, arguments.data());
}

} // namespace

TEST(StartUp, ShowsTheWindowWithoutDocumentUnderTheProgramsIdentity)
{
    const QString before = QDir::currentPath();
    const QTemporaryDir elsewhere;
    ASSERT_TRUE(QDir::setCurrent(elsewhere.path()));
    const int result = runProgram([](MainWindow& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Gaugewright Studio"));
        EXPECT_EQ(window.statusBar()->currentMessage(),
                  QStringLiteral("Ready -- Open a .zconf2 file to begin"));
        EXPECT_EQ(window.document().pageCount(), 0);
        EXPECT_EQ(QCoreApplication::organizationName(), QStringLiteral("Orlenvik"));
        EXPECT_EQ(QCoreApplication::applicationName(), QStringLiteral("Gaugewright"));
        EXPECT_EQ(QCoreApplication::applicationVersion(), QStringLiteral("0.2.0"));
        EXPECT_FALSE(window.windowIcon().pixmap(64).isNull())
            << "the icon stands beside the executable, not in the working directory";
        QCoreApplication::exit(7);
    });
    EXPECT_EQ(result, 7) << "the result of the event loop";
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST(StartUp, TheWindowFitsOnTheScreen)
{
    EXPECT_EQ(runProgram([](MainWindow& window) {
                  const QRect available = window.screen()->availableGeometry();
                  ASSERT_LT(available.width(), 1280) << "a screen too small for the usual size";
                  EXPECT_TRUE(available.contains(window.frameGeometry()));
                  QCoreApplication::exit(0);
              }),
              0);
}

TEST(StartUp, LeavingByTheMenuEndsTheProgram)
{
    EXPECT_EQ(runProgram([](MainWindow& window) {
                  window.findChild<QAction*>(QStringLiteral("exitAction"))->trigger();
              }),
              0);
}

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
