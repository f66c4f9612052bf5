#include "canvas/SpeedUnit.h"

#include <gtest/gtest.h>

TEST(SpeedUnit, TextsFollowTheOrderOfTheEnumeration)
{
    EXPECT_EQ(SpeedUnits::texts(), (QStringList{QStringLiteral("km/h"), QStringLiteral("mph"),
                                                QStringLiteral("knots")}));
    EXPECT_EQ(static_cast<int>(SpeedUnit::KilometresPerHour), 0);
    EXPECT_EQ(static_cast<int>(SpeedUnit::MilesPerHour), 1);
    EXPECT_EQ(static_cast<int>(SpeedUnit::Knots), 2);
}

TEST(SpeedUnit, ConvertsMetresPerSecond)
{
    EXPECT_DOUBLE_EQ(SpeedUnits::fromMetresPerSecond(1.0, SpeedUnit::KilometresPerHour), 3.6);
    EXPECT_DOUBLE_EQ(SpeedUnits::fromMetresPerSecond(1.0, SpeedUnit::MilesPerHour), 2.23694);
    EXPECT_DOUBLE_EQ(SpeedUnits::fromMetresPerSecond(1.0, SpeedUnit::Knots), 1.94384);
}

TEST(SpeedUnit, AnyOtherIndexConvertsNothing)
{
    EXPECT_DOUBLE_EQ(SpeedUnits::fromMetresPerSecond(10.0, static_cast<SpeedUnit>(3)), 10.0);
    EXPECT_DOUBLE_EQ(SpeedUnits::fromMetresPerSecond(10.0, static_cast<SpeedUnit>(-1)), 10.0);
}
