// The rules of the shell that need no widget.

#include "app/ElementKey.h"
#include "app/InsertPlacement.h"
#include "app/ReplayText.h"
#include "app/WindowTitle.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

ElementGeometry geometry(int x, int y, int w, int h)
{
    return {x, y, w, h};
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name that the test library looks for
void PrintTo(const ElementGeometry& g, std::ostream* out)
{
    *out << g.x << ", " << g.y << ", " << g.w << " x " << g.h;
}

TEST(InsertPlacement, CentresADonorOfKnownSize)
{
    EXPECT_EQ(centredPlacement(800, 480, 120, 40), geometry(340, 220, 120, 40));
}

TEST(InsertPlacement, AnUnknownSideGetsAUsualSize)
{
    EXPECT_EQ(centredPlacement(320, 240, 0, 0), geometry(60, 80, 200, 80));
    EXPECT_EQ(centredPlacement(320, 240, -5, 1), geometry(60, 119, 200, 1));
}

TEST(InsertPlacement, NothingIsLargerThanThePage)
{
    EXPECT_EQ(centredPlacement(320, 240, 500, 300), geometry(0, 0, 320, 240));
    EXPECT_EQ(centredPlacement(100, 50, 0, 0), geometry(0, 0, 100, 50));
}

TEST(InsertPlacement, OddRemaindersTruncate)
{
    EXPECT_EQ(centredPlacement(101, 51, 10, 10), geometry(45, 20, 10, 10));
}

TEST(InsertPlacement, PagesWithoutExtentDoNotOverflow)
{
    EXPECT_EQ(centredPlacement(0, 0, 120, 40), geometry(0, 0, 0, 0));
    EXPECT_EQ(centredPlacement(kSmallest, -3, 0, 0), geometry(0, 0, kSmallest, -3));
    EXPECT_EQ(centredPlacement(kLargest, kLargest, 1, kLargest),
              geometry((kLargest - 1) / 2, 0, 1, kLargest));
}

TEST(ReplayText, TimeIsMinutesSecondsAndTenths)
{
    EXPECT_EQ(ReplayText::timeText(0), QStringLiteral("00:00.0"));
    EXPECT_EQ(ReplayText::timeText(9), QStringLiteral("00:00.9"));
    EXPECT_EQ(ReplayText::timeText(754), QStringLiteral("01:15.4"));
    EXPECT_EQ(ReplayText::timeText(6000), QStringLiteral("10:00.0"));
    EXPECT_EQ(ReplayText::timeText(60000 + 599), QStringLiteral("100:59.9"));
}

TEST(ReplayText, LastPositionTruncatesAndStaysInRange)
{
    EXPECT_EQ(ReplayText::lastPosition(12.34), 123);
    EXPECT_EQ(ReplayText::lastPosition(12.39), 123);
    EXPECT_EQ(ReplayText::lastPosition(0.0), 0);
    EXPECT_EQ(ReplayText::lastPosition(-3.0), 0);
    EXPECT_EQ(ReplayText::lastPosition(1e300), kLargest);
    EXPECT_EQ(ReplayText::lastPosition(std::numeric_limits<double>::infinity()), kLargest);
    EXPECT_EQ(ReplayText::lastPosition(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(ReplayText, LoadedTextTruncatesTheDuration)
{
    EXPECT_EQ(ReplayText::loadedText(QStringLiteral("lap.xrk"), 40, 75.9),
              QStringLiteral("Loaded XRK: lap.xrk | 40 channels | Duration: 01:15"));
    EXPECT_EQ(ReplayText::loadedText(QStringLiteral("%2%3%4.xrk"), 0, 6000.0),
              QStringLiteral("Loaded XRK: %2%3%4.xrk | 0 channels | Duration: 100:00"));
}

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

TEST(ElementKey, FindsTheElementWhereverItStands)
{
    pugi::xml_document xml;
    DashPage page;
    for (const char* const name : {"a", "b", "c"}) {
        DashElement element;
        element.name = QLatin1String(name);
        element.node = xml.append_child("e");
        page.elements.push_back(element);
    }
    const ElementKey key(page.elements[1]);
    EXPECT_EQ(key.indexIn(&page), 1);
    page.elements.erase(page.elements.begin());
    EXPECT_EQ(key.indexIn(&page), 0);
    page.elements.erase(page.elements.begin());
    EXPECT_EQ(key.indexIn(&page), -1);
    EXPECT_EQ(key.indexIn(nullptr), -1);
}

TEST(ElementKey, ANodeThatCameBackUnderAnotherNameIsAnotherElement)
{
    pugi::xml_document xml;
    DashPage page;
    page.elements.resize(1);
    page.elements[0].name = QStringLiteral("former");
    page.elements[0].node = xml.append_child("e");
    const ElementKey key(page.elements[0]);
    page.elements[0].name = QStringLiteral("latter");
    EXPECT_EQ(key.indexIn(&page), -1);
}

TEST(ElementKey, TheEmptyKeyNamesNothing)
{
    DashPage page;
    page.elements.resize(1);
    EXPECT_EQ(ElementKey().indexIn(&page), -1);
}
