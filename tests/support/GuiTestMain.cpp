#include "tests/support/FolderTools.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// Every suite runs with a real application object on the offscreen platform, so that widgets,
// pixmaps and events work without a display.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Unpack directories outlive documents on purpose; those of the tests go away with this one.
    const QTemporaryDir scratch;
    qputenv(FolderTools::kTempVariable, scratch.path().toLocal8Bit());
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
