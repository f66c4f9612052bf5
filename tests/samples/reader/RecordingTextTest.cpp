#include "samples/reader/RecordingText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace RecordingText;
using testing::ElementsAre;
using testing::IsEmpty;

std::optional<Recording> parseLines(const std::string& lines)
{
    return parse("gaugewright recording 1\n" + lines);
}

TEST(RecordingText, MayBeEmptyButForItsFirstLine)
{
    const auto recording = parse("gaugewright recording 1");
    ASSERT_TRUE(recording);
    EXPECT_THAT(recording->channels, testing::Each(IsEmpty()));
    EXPECT_EQ(recording->vehicle, "");
    EXPECT_EQ(recording->racer, "");
    EXPECT_EQ(recording->laps, 0);
}

TEST(RecordingText, NeedsItsFirstLine)
{
    EXPECT_FALSE(parse(""));
    EXPECT_FALSE(parse("gaugewright recording 2\n"));
    EXPECT_FALSE(parse("\ngaugewright recording 1\n"));
    EXPECT_FALSE(parse("channel\tplain\trpm\t\n"));
}

TEST(RecordingText, ReadsChannelsOfAllFamiliesInOrder)
{
    const auto recording = parseLines("channel\tplain\trpm\trpm\n"
                                      "0.5\t1000\n"
                                      "1\t-1.5e3\n"
                                      "channel\tgps\tGPS Speed\tm/s\n"
                                      "100\t0.25\n"
                                      "channel\tgps-raw\tGPS Altitude\tm\n"
                                      "channel\tplain\tOil Temp\t°C\n"
                                      "0\t80\n");
    ASSERT_TRUE(recording);
    const auto& [plain, gps, raw] = recording->channels;
    ASSERT_EQ(plain.size(), 2U);
    EXPECT_EQ(plain[0].name, "rpm");
    EXPECT_EQ(plain[0].units, "rpm");
    EXPECT_THAT(plain[0].times, ElementsAre(0.5, 1.0));
    EXPECT_THAT(plain[0].values, ElementsAre(1000.0, -1500.0));
    EXPECT_EQ(plain[1].name, "Oil Temp");
    EXPECT_EQ(plain[1].units, "°C");
    EXPECT_THAT(plain[1].times, ElementsAre(0.0));
    ASSERT_EQ(gps.size(), 1U);
    EXPECT_EQ(gps[0].name, "GPS Speed");
    EXPECT_THAT(gps[0].times, ElementsAre(100.0));
    ASSERT_EQ(raw.size(), 1U);
    EXPECT_THAT(raw[0].times, IsEmpty());
}

TEST(RecordingText, ReadsWhoDroveWhatHowFar)
{
    const auto recording = parseLines("vehicle\tCar 7\nracer\tA. Driver\nlaps\t12\n");
    ASSERT_TRUE(recording);
    EXPECT_EQ(recording->vehicle, "Car 7");
    EXPECT_EQ(recording->racer, "A. Driver");
    EXPECT_EQ(recording->laps, 12);
}

TEST(RecordingText, IgnoresCommentsAndEmptyLines)
{
    const auto recording =
        parseLines("# a comment\n\nchannel\tplain\ta\t\n# between samples\n0\t1\n\n1\t2");
    ASSERT_TRUE(recording);
    EXPECT_THAT(recording->channels[kPlain][0].values, ElementsAre(1.0, 2.0));
}

TEST(RecordingText, AcceptsBothKindsOfLineEnds)
{
    const auto recording =
        parse("gaugewright recording 1\r\nchannel\tplain\ta\tbar\r\n0\t1\r\n1\t2\r\n");
    ASSERT_TRUE(recording);
    EXPECT_EQ(recording->channels[kPlain][0].units, "bar");
    EXPECT_THAT(recording->channels[kPlain][0].values, ElementsAre(1.0, 2.0));
}

TEST(RecordingText, TakesAMissingNameOrUnitForAnEmptyOne)
{
    const auto recording = parseLines("channel\tplain\nchannel\tplain\ta\n");
    ASSERT_TRUE(recording);
    EXPECT_EQ(recording->channels[kPlain][0].name, "");
    EXPECT_EQ(recording->channels[kPlain][1].name, "a");
    EXPECT_EQ(recording->channels[kPlain][1].units, "");
}

TEST(RecordingText, RefusesLinesItDoesNotUnderstand)
{
    for (const char* lines : {"0\t1\n", "channel\tother\ta\tb\n", "channel\n", "laps\tmany\n",
                              "laps\t\n", "channel\tplain\ta\t\n0\n", "channel\tplain\ta\t\n0 1\n",
                              "channel\tplain\ta\t\n0\t1\t2\n", "channel\tplain\ta\t\n0\tx\n",
                              "channel\tplain\ta\t\n0,5\t1\n", "nonsense\n"})
        EXPECT_FALSE(parseLines(lines)) << lines;
}

} // namespace
