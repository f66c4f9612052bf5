#include "telemetry/TelemetryChannel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

TelemetryChannel channelOf(const std::vector<double>& times, const std::vector<double>& values)
{
    TelemetryChannel channel{{}, {}, SampleArray(times.size()), SampleArray(values.size())};
    std::copy(times.begin(), times.end(), channel.times.begin());
    std::copy(values.begin(), values.end(), channel.values.begin());
    return channel;
}

TEST(TelemetryChannel, HasNoValueWithoutSamples)
{
    EXPECT_EQ(TelemetryChannel().valueAt(1.0), 0.0);
}

TEST(TelemetryChannel, AnswersForASingleSample)
{
    const TelemetryChannel channel = channelOf({5.0}, {7.0});
    for (const double time : {0.0, 5.0, 9.0})
        EXPECT_EQ(channel.valueAt(time), 7.0);
}

TEST(TelemetryChannel, InterpolatesBetweenSamplesAndHoldsBothEnds)
{
    const TelemetryChannel channel = channelOf({1.0, 2.0, 4.0}, {10.0, 20.0, -20.0});
    EXPECT_EQ(channel.valueAt(-1e300), 10.0);
    EXPECT_EQ(channel.valueAt(1.0), 10.0);
    EXPECT_EQ(channel.valueAt(1.25), 12.5);
    EXPECT_EQ(channel.valueAt(2.0), 20.0);
    EXPECT_EQ(channel.valueAt(3.0), 0.0);
    EXPECT_EQ(channel.valueAt(4.0), -20.0);
    EXPECT_EQ(channel.valueAt(1e300), -20.0);
}

TEST(TelemetryChannel, TakesTheLaterOfEqualTimesFromThenOn)
{
    const TelemetryChannel channel = channelOf({0.0, 1.0, 1.0, 2.0}, {0.0, 10.0, 30.0, 40.0});
    EXPECT_EQ(channel.valueAt(0.5), 5.0);
    EXPECT_EQ(channel.valueAt(1.0), 30.0);
    EXPECT_EQ(channel.valueAt(1.5), 35.0);
}

TEST(TelemetryChannel, TakesTheEarlierOfTimesTooCloseForASlope)
{
    const double close = 1.0 + 9e-13;
    const double apart = 1.0 + 2e-12;
    EXPECT_EQ(channelOf({0.0, 1.0, close, 2.0}, {0.0, 10.0, 30.0, 40.0}).valueAt(1.0 + 5e-13),
              10.0);
    EXPECT_NEAR(channelOf({0.0, 1.0, apart, 2.0}, {0.0, 10.0, 30.0, 40.0}).valueAt(1.0 + 1e-12),
                20.0, 0.1);
    EXPECT_EQ(channelOf({0.0, 1e-12}, {0.0, 10.0}).valueAt(5e-13), 5.0);
}

TEST(TelemetryChannel, HoldsTheOuterOfEqualTimesAtBothEnds)
{
    const TelemetryChannel channel = channelOf({1.0, 1.0, 2.0, 2.0}, {10.0, 20.0, 30.0, 40.0});
    EXPECT_EQ(channel.valueAt(1.0), 10.0);
    EXPECT_EQ(channel.valueAt(1.5), 25.0);
    EXPECT_EQ(channel.valueAt(2.0), 40.0);
}

TEST(SampleArray, BeginsWithZeros)
{
    const SampleArray array(3);
    EXPECT_EQ(std::count(array.begin(), array.end(), 0.0), 3);
}

TEST(SampleArray, IsEmptyOnceMovedFrom)
{
    SampleArray from(3);
    SampleArray to(std::move(from));
    EXPECT_TRUE(from.empty()); // NOLINT(bugprone-use-after-move): the very question
    EXPECT_EQ(to.size(), 3U);
    from = std::move(to);
    EXPECT_TRUE(to.empty()); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(from.size(), 3U);
}

} // namespace
