#include "app/ReplayText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kLargest = std::numeric_limits<int>::max();

} // namespace

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

TEST(ReplayText, TheTipNamesTheRecordingItsChannelsAndItsLength)
{
    EXPECT_EQ(
        ReplayText::recordingTip(QStringLiteral("lap.xrk"),
                                 {QStringLiteral("Engine_RPM"), QStringLiteral("%1 %5")}, 75.9),
        QStringLiteral("lap.xrk | 2 channels | Duration: 01:15 | Channels: Engine_RPM, %1 %5"));
}

TEST(ReplayText, TheTipNamesNoMoreChannelsThanItHasRoomFor)
{
    QStringList channels;
    for (int i = 0; i < 100; ++i)
        channels << QStringLiteral("c%1").arg(i);
    const QString tip = ReplayText::recordingTip(QStringLiteral("lap.xrk"), channels, 1.0);
    EXPECT_TRUE(tip.startsWith(QStringLiteral("lap.xrk | 100 channels | ")));
    EXPECT_TRUE(tip.endsWith(QStringLiteral("c28, c29, ..."))) << tip.toStdString();
}
