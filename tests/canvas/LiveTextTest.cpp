#include "canvas/LiveText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

std::string shown(double value)
{
    return LiveText::format(value).toStdString();
}

} // namespace

TEST(LiveTextFormat, DecimalsFollowTheMagnitude)
{
    EXPECT_EQ(LiveText::decimals(1000.0), 0);
    EXPECT_EQ(LiveText::decimals(999.999), 1);
    EXPECT_EQ(LiveText::decimals(1.0), 1);
    EXPECT_EQ(LiveText::decimals(0.999), 2);
    EXPECT_EQ(LiveText::decimals(0.0), 2);
}

TEST(LiveTextFormat, TheSignDoesNotMatter)
{
    EXPECT_EQ(LiveText::decimals(-1000.0), 0);
    EXPECT_EQ(LiveText::decimals(-1.0), 1);
    EXPECT_EQ(LiveText::decimals(-0.5), 2);
    EXPECT_EQ(shown(-57.26), "-57.3");
}

TEST(LiveTextFormat, TypicalValues)
{
    EXPECT_EQ(shown(12345.6), "12346");
    EXPECT_EQ(shown(57.26), "57.3");
    EXPECT_EQ(shown(0.5), "0.50");
    EXPECT_EQ(shown(0.0), "0.00");
}

TEST(LiveTextFormat, ZeroHasNoSign)
{
    EXPECT_EQ(shown(-0.0), "0.00");
    EXPECT_EQ(shown(-0.004), "0.00");
    EXPECT_EQ(shown(-0.006), "-0.01");
}

TEST(LiveTextFormat, DecimalsAreChosenBeforeRounding)
{
    EXPECT_EQ(shown(999.99), "1000.0");
    EXPECT_EQ(shown(0.999), "1.00");
}

TEST(LiveTextFormat, ValuesThatAreNoNumbersAreHarmless)
{
    EXPECT_EQ(shown(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(shown(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(shown(1e300).size(), 301U);
}

TEST(LiveTextSize, WithoutAFontSizeItIsAShareOfTheHeight)
{
    EXPECT_EQ(LiveText::valuePixelSize(0, 50, 50.0), 20);
    EXPECT_EQ(LiveText::valuePixelSize(-1, 50, 50.0), 20);
}

TEST(LiveTextSize, IsNeverBelowTen)
{
    EXPECT_EQ(LiveText::valuePixelSize(0, 20, 20.0), 10); // nominal 8
    EXPECT_EQ(LiveText::valuePixelSize(3, 50, 50.0), 10);
    EXPECT_EQ(LiveText::valuePixelSize(20, 50, 0.0), 10);
}

TEST(LiveTextSize, TheElementsOwnSizeScalesWithTheBox)
{
    EXPECT_EQ(LiveText::valuePixelSize(30, 100, 100.0), 30);
    EXPECT_EQ(LiveText::valuePixelSize(30, 100, 50.0), 15);
    EXPECT_EQ(LiveText::valuePixelSize(30, 100, 200.0), 60);
}

TEST(LiveTextSize, IsAtMostThreeFifthsOfTheBox)
{
    EXPECT_EQ(LiveText::valuePixelSize(60, 100, 100.0), 60);
    EXPECT_EQ(LiveText::valuePixelSize(61, 100, 100.0), 60);
    EXPECT_EQ(LiveText::valuePixelSize(300, 100, 50.0), 30);
}

TEST(LiveTextSize, NominalAndResultAreTruncated)
{
    EXPECT_EQ(LiveText::valuePixelSize(0, 99, 99.0), 39);    // 39.6 is 39
    EXPECT_EQ(LiveText::valuePixelSize(33, 100, 101.0), 33); // 33.33
    EXPECT_EQ(LiveText::valuePixelSize(33, 100, 105.9), 34); // 34.9
}

TEST(LiveTextSize, AnElementWithoutHeightDividesByOne)
{
    EXPECT_EQ(LiveText::valuePixelSize(40, 0, 0.0), 10);
}

TEST(LiveTextSize, AnAbsurdBoxDoesNotAskForAnAbsurdFont)
{
    EXPECT_LE(LiveText::valuePixelSize(0, std::numeric_limits<int>::max(), 2e9), 10'000);
    EXPECT_LE(LiveText::captionPixelSize(1e12), 10'000);
    EXPECT_LE(LiveText::placeholderPixelSize(std::numeric_limits<double>::infinity()), 10'000);
}

TEST(LiveTextFit, TheWidthAvailableIsSixLessThanTheBox)
{
    EXPECT_EQ(LiveText::availableWidth(100.0), 94);
    EXPECT_EQ(LiveText::availableWidth(100.9), 94);
    EXPECT_EQ(LiveText::availableWidth(3.0), -3);
}

TEST(LiveTextFit, ATextThatFitsKeepsItsSize)
{
    EXPECT_EQ(LiveText::fittedPixelSize(40, 94, 94), 40);
    EXPECT_EQ(LiveText::fittedPixelSize(40, 10, 94), 40);
}

TEST(LiveTextFit, ATextThatIsTooWideShrinksInProportionTruncated)
{
    EXPECT_EQ(LiveText::fittedPixelSize(40, 95, 94), 39);
    EXPECT_EQ(LiveText::fittedPixelSize(40, 200, 100), 20);
    EXPECT_EQ(LiveText::fittedPixelSize(40, 300, 100), 13);
}

TEST(LiveTextFit, StopsAtEightPixels)
{
    EXPECT_EQ(LiveText::fittedPixelSize(40, 1000, 100), 8);
    EXPECT_EQ(LiveText::fittedPixelSize(10, 12, 11), 9);
}

TEST(LiveTextFit, WithoutAnyRoomTheSizeStays)
{
    EXPECT_EQ(LiveText::fittedPixelSize(40, 100, 0), 40);
    EXPECT_EQ(LiveText::fittedPixelSize(40, 100, -5), 40);
}

TEST(LiveTextCaptions, GrowWithTheScaleFromAMinimumOn)
{
    EXPECT_EQ(LiveText::captionPixelSize(1.0), 8);
    EXPECT_EQ(LiveText::captionPixelSize(1.49), 11);
    EXPECT_EQ(LiveText::captionPixelSize(0.5), 7);
    EXPECT_EQ(LiveText::placeholderPixelSize(1.0), 10);
    EXPECT_EQ(LiveText::placeholderPixelSize(1.49), 14);
    EXPECT_EQ(LiveText::placeholderPixelSize(0.5), 8);
}

TEST(LiveTextSpeed, OnlyTheChannelOfThatNameIsASpeed)
{
    EXPECT_TRUE(LiveText::isSpeed(QStringLiteral("gps speed")));
    EXPECT_TRUE(LiveText::isSpeed(QStringLiteral("GPS Speed")));
    EXPECT_TRUE(LiveText::isSpeed(QStringLiteral("GpS sPeEd")));
    for (const char16_t* const other : {u"", u"speed", u"gps_speed", u"gps speed ", u"gpsspeed",
                                        u"gps  speed", u"gps spee\u0111"})
        EXPECT_FALSE(LiveText::isSpeed(QString::fromUtf16(other)));
}
