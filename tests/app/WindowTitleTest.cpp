#include "app/WindowTitle.h"

#include <QTest>
#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

TEST(WindowTitle, NamesFileAndDeviceWhereKnown)
{
    EXPECT_EQ(mainWindowTitle(), QStringLiteral("Gaugewright Studio"));
    EXPECT_EQ(mainWindowTitle({}, QStringLiteral("MXG")),
              QStringLiteral("Gaugewright Studio [MXG]"));
    EXPECT_EQ(mainWindowTitle(QStringLiteral("a.zconf2")),
              QStringLiteral("Gaugewright Studio - a.zconf2"));
    EXPECT_EQ(mainWindowTitle(QStringLiteral("a.zconf2"), QStringLiteral("MXG")),
              QStringLiteral("Gaugewright Studio - a.zconf2 [MXG]"));
}

TEST(WindowTitle, PlaceholdersInNamesStayAsTheyAre)
{
    EXPECT_EQ(mainWindowTitle(QStringLiteral("%2 %1"), QStringLiteral("%1")),
              QStringLiteral("Gaugewright Studio - %2 %1 [%1]"));
}

TEST(WindowTitle, AsterisksInBracketsStayAsTheyAre)
{
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const auto shownTitle = [&](const QString& file, const QString& device) {
        window.setWindowTitle(mainWindowTitle(file, device));
        return window.windowHandle()->title();
    };
    EXPECT_EQ(shownTitle(QStringLiteral("a[*].zconf2"), {}),
              QStringLiteral("Gaugewright Studio - a[*].zconf2"));
    EXPECT_EQ(shownTitle(QStringLiteral("[*][*]"), QStringLiteral("*")),
              QStringLiteral("Gaugewright Studio - [*][*] [*]"));
}
