#include "app/FitToScreen.h"

#include <QScreen>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

TEST(FitToScreen, AWindowThatIsTooLargeFitsFrameIncluded)
{
    QWidget window;
    const QRect available = window.screen()->availableGeometry();
    window.resize(available.width() + 300, available.height() - 100);
    fitToScreen(window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(available.contains(window.frameGeometry()));
    EXPECT_EQ(window.height(), available.height() - 100) << "a side that fits is left alone";
    EXPECT_GT(window.width(), available.width() - 50) << "as large as there is room";
}

TEST(FitToScreen, AWindowAsLargeAsTheScreenLeavesRoomForItsFrame)
{
    QWidget window;
    window.resize(window.screen()->availableSize());
    fitToScreen(window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
}

TEST(FitToScreen, AWindowThatFitsIsLeftAlone)
{
    QWidget window;
    window.resize(300, 200);
    window.move(20, 30);
    fitToScreen(window);
    EXPECT_EQ(window.size(), QSize(300, 200));
    EXPECT_EQ(window.pos(), QPoint(20, 30));
}
