#include <QApplication>

#include <gtest/gtest.h>

// Every suite runs with a real application object on the offscreen platform, so that widgets,
// pixmaps and events work without a display.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
