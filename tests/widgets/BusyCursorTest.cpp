#include "widgets/BusyCursor.h"

#include <gtest/gtest.h>

TEST(BusyCursor, IsShownWhileTheActionRuns)
{
    const int result = runBusy([] {
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        return 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
