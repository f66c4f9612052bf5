#include "telemetry/RecordingReader.h"

#include "telemetry/XrkLibrary.h"
#include "tests/support/ScriptedReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>

#ifdef __unix__
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int kGreatestCount = std::numeric_limits<int>::max();

Recording read(const ScriptedReader& reader)
{
    const XrkLibrary library(ScriptedReader::path().c_str());
    return readRecording(library, reader.fileIndex);
}

Recording readWithout(ScriptedReader& reader, const std::vector<std::string>& exports)
{
    const XrkLibrary library(reader.libraryWithout(exports).c_str());
    return readRecording(library, reader.fileIndex);
}

Recording readPlain(std::vector<ScriptedChannel> channels)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = std::move(channels);
    return read(reader);
}

std::vector<QString> keys(const Recording& recording)
{
    std::vector<QString> result;
    result.reserve(recording.channels.size());
    for (const auto& [key, channel] : recording.channels)
        result.push_back(key);
    return result;
}

std::vector<double> all(const SampleArray& samples)
{
    return {samples.begin(), samples.end()};
}

class EveryFamily : public testing::TestWithParam<ReaderHost::Family>
{
protected:
    std::vector<ScriptedChannel>& channels() { return m_reader.channels[GetParam()]; }
    /// The export's full name in this family.
    static std::string name(const char* rest)
    {
        constexpr std::array prefixes = {"get_", "get_GPS_", "get_GPS_raw_"};
        return std::string(prefixes[GetParam()]) + rest;
    }

    ScriptedReader m_reader;
};

INSTANTIATE_TEST_SUITE_P(RecordingReader, EveryFamily,
                         testing::Values(ReaderHost::kPlain, ReaderHost::kGps,
                                         ReaderHost::kGpsRaw));

TEST_P(EveryFamily, IsReadWhole)
{
    channels() = {{"Oil Temp", {-2.0, -1.0}, {80.0, 81.0}, "°C"}};
    const Recording recording = read(m_reader);
    ASSERT_THAT(keys(recording), ElementsAre(u"oil temp"_s));
    const TelemetryChannel& channel = recording.channels.at(u"oil temp"_s);
    EXPECT_EQ(channel.name, u"Oil Temp"_s);
    EXPECT_EQ(channel.units, u"°C"_s);
    EXPECT_THAT(all(channel.times), ElementsAre(-2.0, -1.0));
    EXPECT_THAT(all(channel.values), ElementsAre(80.0, 81.0));
}

TEST_P(EveryFamily, IsReadRightFromALibraryWithOneTextBuffer)
{
    m_reader.sharesOneTextBuffer = true;
    channels() = {{"Oil Temp", {-1.0}, {80.0}, "°C"}, {"Gear", {-1.0}, {3.0}}};
    const Recording recording = read(m_reader);
    ASSERT_THAT(keys(recording), ElementsAre(u"gear"_s, u"oil temp"_s));
    EXPECT_EQ(recording.channels.at(u"oil temp"_s).name, u"Oil Temp"_s);
    EXPECT_EQ(recording.channels.at(u"oil temp"_s).units, u"°C"_s);
    EXPECT_EQ(recording.channels.at(u"gear"_s).units, QString());
}

TEST_P(EveryFamily, IsSkippedWithoutACount)
{
    channels() = {endingAt("a", -1.0)};
    EXPECT_TRUE(readWithout(m_reader, {name("channels_count")}).channels.empty());
    EXPECT_EQ(m_reader.calls(name("channel_name") + "(3,0)"), 0);
}

TEST_P(EveryFamily, IsSkippedWithoutNames)
{
    channels() = {endingAt("a", -1.0)};
    EXPECT_TRUE(readWithout(m_reader, {name("channel_name")}).channels.empty());
}

TEST_P(EveryFamily, IsSkippedWithoutSampleCounts)
{
    channels() = {endingAt("a", -1.0)};
    EXPECT_TRUE(readWithout(m_reader, {name("channel_samples_count")}).channels.empty());
}

TEST_P(EveryFamily, HasEmptyUnitsWithoutUnits)
{
    channels() = {{"a", {-2.0, -1.0}, {80.0, 81.0}, "bar"}};
    const Recording recording = readWithout(m_reader, {name("channel_units")});
    EXPECT_EQ(recording.channels.at(u"a"_s).units, QString());
    EXPECT_THAT(all(recording.channels.at(u"a"_s).values), ElementsAre(80.0, 81.0));
}

TEST_P(EveryFamily, KeepsZerosWithoutSamples)
{
    channels() = {{"a", {-2.0, -1.0}, {80.0, 81.0}, "bar"}};
    const Recording recording = readWithout(m_reader, {name("channel_samples")});
    EXPECT_EQ(recording.channels.at(u"a"_s).units, u"bar"_s);
    EXPECT_THAT(all(recording.channels.at(u"a"_s).times), ElementsAre(0.0, 0.0));
    EXPECT_THAT(all(recording.channels.at(u"a"_s).values), ElementsAre(0.0, 0.0));
}

TEST_P(EveryFamily, SkipsChannelsWithoutNameOrSamples)
{
    channels() = {endingAt("a", -1.0),
                  {std::nullopt, {-1.0}, {1.0}},
                  {"none", {}, {}},
                  {"zero", {-1.0}, {1.0}, {}, 0},
                  {"minus", {-1.0}, {1.0}, {}, -5},
                  endingAt("b", -1.0)};
    const Recording recording = read(m_reader);
    EXPECT_THAT(keys(recording), ElementsAre(u"a"_s, u"b"_s));
    EXPECT_EQ(recording.channels.at(u"a"_s).units, QString()); // a null pointer
    EXPECT_EQ(m_reader.calls(name("channel_samples") + "(3,3)"), 0);
}

TEST_P(EveryFamily, IsSkippedForANegativeCount)
{
    channels() = {endingAt("a", -1.0)};
    for (const int count : {0, -1, -kGreatestCount - 1}) {
        m_reader.claimedChannelCounts[GetParam()] = count;
        EXPECT_TRUE(read(m_reader).channels.empty());
    }
}

TEST_P(EveryFamily, EndsDespiteACountOfChannelsThatCannotBe)
{
    channels() = {endingAt("a", -1.0), endingAt("b", -1.0)};
    m_reader.claimedChannelCounts[GetParam()] = kGreatestCount;
    EXPECT_THAT(keys(read(m_reader)), ElementsAre(u"a"_s, u"b"_s));
}

TEST_P(EveryFamily, IsReadUpToTheChannelLimit)
{
    m_reader.claimedChannelCounts[GetParam()] = kGreatestCount;
    static_cast<void>(read(m_reader));
    EXPECT_EQ(m_reader.calls(name("channel_name") + "(3,65535)"), 1);
    EXPECT_EQ(m_reader.calls(name("channel_name") + "(3,65536)"), 0);
}

TEST_P(EveryFamily, SkipsAChannelWhoseSampleCountCannotBe)
{
    channels() = {
        endingAt("a", -1.0), {"lie", {-1.0}, {1.0}, {}, kGreatestCount}, endingAt("b", -1.0)};
    EXPECT_THAT(keys(read(m_reader)), ElementsAre(u"a"_s, u"b"_s));
    EXPECT_EQ(m_reader.calls(name("channel_samples") + "(3,1)"), 0);
}

// Durations. Times of the GPS families may be milliseconds.

TEST(RecordingReader, LastsAsLongAsItsOnlyChannel)
{
    EXPECT_EQ(readPlain({endingAt("a", 12.34)}).duration, 12.34);
}

TEST(RecordingReader, LastsNoTimeWithoutChannelsOrPositiveEnds)
{
    EXPECT_EQ(readPlain({}).duration, 0.0);
    EXPECT_EQ(readPlain({endingAt("a", 0.0), endingAt("b", -3.0)}).duration, 0.0);
}

TEST(RecordingReader, LastsAsLongAsAReplacedChannelWhenNoOtherEndsAfterZero)
{
    EXPECT_EQ(readPlain({endingAt("Speed", 100.0), endingAt("SPEED", -1.0)}).duration, 100.0);
}

TEST(RecordingReader, IgnoresEndsBeyondTwiceTheMedian)
{
    const auto durationOf = [](const std::vector<double>& ends) {
        std::vector<ScriptedChannel> channels;
        channels.reserve(ends.size());
        for (const double end : ends)
            channels.push_back(endingAt(std::to_string(channels.size()).c_str(), end));
        return readPlain(channels).duration;
    };
    EXPECT_EQ(durationOf({10.0, 11.0, 12.0, 500.0}), 12.0); // the upper median of an even number
    EXPECT_EQ(durationOf({500.0, 12.0, 11.0, 10.0}), 12.0);
    EXPECT_EQ(durationOf({10.0, 20.0, 20.0001}), 20.0001);
    EXPECT_EQ(durationOf({9.0, 10.0, 20.0}), 20.0); // just twice
    EXPECT_EQ(durationOf({9.0, 10.0, 20.0001}), 10.0);
    EXPECT_EQ(durationOf({1.0, 10.0}), 10.0);
    EXPECT_EQ(durationOf({-5.0, 0.0, 10.0, 15.0, 31.0}), 15.0); // of 10, 15 and 31
    EXPECT_EQ(durationOf({1.0, 1.0, 1.0, 2.0, 500.0}), 2.0);
}

TEST(RecordingReader, MayEndBeforeItsLastPlainChannelWouldMakeIt)
{
    EXPECT_EQ(readPlain({endingAt("a", 10.0), endingAt("b", 10.0), endingAt("c", 1000.0)}).duration,
              10.0);
}

TEST(RecordingReader, DividesGpsTimesBeyondTenTimesTheLengthSoFar)
{
    for (const auto family : {ReaderHost::kGps, ReaderHost::kGpsRaw}) {
        ScriptedReader reader;
        reader.channels[ReaderHost::kPlain] = {endingAt("plain", 10.0)};
        reader.channels[family] = {{"ms", {100.5, 9500.0}, {1.0, 2.0}},
                                   {"s", {1.0, 9.5}, {1.0, 2.0}},
                                   {"edge", {1.0, 100.0}, {1.0, 2.0}},
                                   {"beyond", {1.0, 100.125}, {1.0, 2.0}}};
        const Recording recording = read(reader);
        EXPECT_THAT(all(recording.channels.at(u"ms"_s).times), ElementsAre(0.1005, 9.5));
        EXPECT_THAT(all(recording.channels.at(u"ms"_s).values), ElementsAre(1.0, 2.0));
        EXPECT_THAT(all(recording.channels.at(u"s"_s).times), ElementsAre(1.0, 9.5));
        // Exactly ten times is not beyond; and it makes the length so far 100.
        EXPECT_THAT(all(recording.channels.at(u"edge"_s).times), ElementsAre(1.0, 100.0));
        EXPECT_THAT(all(recording.channels.at(u"beyond"_s).times), ElementsAre(1.0, 100.125));
    }
}

TEST(RecordingReader, NeverDividesPlainTimes)
{
    const Recording recording = readPlain({endingAt("a", 1.0), endingAt("b", 90'000.0)});
    EXPECT_EQ(recording.channels.at(u"b"_s).times.back(), 90'000.0);
}

TEST(RecordingReader, DividesGpsTimesWhenNothingHasALengthYet)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kGps] = {endingAt("gps", 60.0), endingAt("second", 0.5)};
    const Recording recording = read(reader);
    EXPECT_EQ(recording.channels.at(u"gps"_s).times.back(), 0.06);   // although they were seconds
    EXPECT_EQ(recording.channels.at(u"second"_s).times.back(), 0.5); // 0.06 is the length by now
}

TEST(RecordingReader, LeavesGpsTimesThatEndAtZeroOrBefore)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kGps] = {{"a", {-5.0, 0.0}, {1.0, 2.0}},
                                         {"b", {-5.0, -1.0}, {1.0, 2.0}}};
    const Recording recording = read(reader);
    EXPECT_THAT(all(recording.channels.at(u"a"_s).times), ElementsAre(-5.0, 0.0));
    EXPECT_THAT(all(recording.channels.at(u"b"_s).times), ElementsAre(-5.0, -1.0));
}

TEST(RecordingReader, MeasuresRawGpsAgainstGps)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kGps] = {endingAt("gps", 10'000.0)}; // becomes 10 s
    reader.channels[ReaderHost::kGpsRaw] = {endingAt("raw", 100.0), endingAt("ms", 1'000.5)};
    const Recording recording = read(reader);
    EXPECT_EQ(recording.channels.at(u"raw"_s).times.back(), 100.0);
    EXPECT_EQ(recording.channels.at(u"ms"_s).times.back(), 1.0005); // beyond ten times 100
}

TEST(RecordingReader, LooksAtGpsEndsForTheDurationAsWell)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("plain", 10.0)};
    reader.channels[ReaderHost::kGps] = {endingAt("gps", 15'000.0)};
    EXPECT_EQ(read(reader).duration, 15.0);
}

// Readers that misbehave

TEST(RecordingReader, KeepsZerosThatTheReaderDidNotFill)
{
    const Recording recording = readPlain({{"a", {1.0}, {5.0}, {}, 3}});
    EXPECT_THAT(all(recording.channels.at(u"a"_s).times), ElementsAre(1.0, 0.0, 0.0));
    EXPECT_THAT(all(recording.channels.at(u"a"_s).values), ElementsAre(5.0, 0.0, 0.0));
}

TEST(RecordingReader, ReadsNoMoreThanClaimed)
{
    const Recording recording = readPlain({{"a", {1.0, 2.0, 3.0}, {5.0, 6.0, 7.0}, {}, 2}});
    EXPECT_THAT(all(recording.channels.at(u"a"_s).times), ElementsAre(1.0, 2.0));
}

TEST(RecordingReader, SurvivesTimesThatAreNotFinite)
{
    const Recording recording =
        readPlain({{"first", {kNaN, 1.0, 2.0}, {1.0, 2.0, 3.0}},
                   {"last", {0.0, 1.0, kNaN}, {1.0, 2.0, 3.0}},
                   {"infinite", {-kInfinity, 0.0, kInfinity}, {1.0, 2.0, 3.0}},
                   {"values", {0.0, 1.0, 2.0}, {kNaN, kInfinity, -kInfinity}}});
    EXPECT_EQ(recording.channels.at(u"first"_s).valueAt(1.5), 2.5);
    EXPECT_EQ(recording.channels.at(u"last"_s).valueAt(0.5), 3.0);
    EXPECT_EQ(recording.channels.at(u"last"_s).valueAt(kNaN), 3.0);
    EXPECT_TRUE(std::isnan(recording.channels.at(u"values"_s).valueAt(0.5)));
    EXPECT_EQ(recording.channels.at(u"values"_s).valueAt(2.0), -kInfinity);
    static_cast<void>(recording.channels.at(u"infinite"_s).valueAt(1.0));
    EXPECT_EQ(recording.duration, 2.0); // of 2, 2 and infinity
}

TEST(RecordingReader, MayLastForever)
{
    EXPECT_EQ(readPlain({endingAt("a", kInfinity)}).duration, kInfinity);
}

TEST(RecordingReader, SurvivesTimesThatDoNotAscend)
{
    const Recording recording = readPlain({{"a", {5.0, 1.0, 9.0, 2.0, 7.0}, {1, 2, 3, 4, 5}}});
    for (int tenth = -10; tenth < 120; ++tenth) {
        const double value = recording.channels.at(u"a"_s).valueAt(tenth / 10.0);
        EXPECT_TRUE(std::isfinite(value));
    }
}

#ifdef __linux__

std::size_t residentBytes()
{
    std::ifstream file("/proc/self/statm");
    std::size_t total = 0;
    std::size_t resident = 0;
    file >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

TEST(RecordingReader, PaysOnlyForSamplesThatAreFilledIn)
{
    // Two arrays of 800 MB each, of which one page is written.
    const std::size_t before = residentBytes();
    const Recording recording = readPlain({{"lie", {1.0}, {5.0}, {}, 100'000'000}});
    EXPECT_LT(residentBytes(), before + 100'000'000);
    ASSERT_EQ(recording.channels.size(), 1U);
    EXPECT_EQ(recording.channels.at(u"lie"_s).valueAt(1.5), 0.0); // held after the last time, 0
}

TEST(RecordingReader, ReadsAsManySamplesAsAChannelMayHave)
{
    constexpr int kMost = 134'217'728; // two arrays of 1 GiB, of which one page is written
    const Recording recording =
        readPlain({{"most", {1.0}, {5.0}, {}, kMost}, {"one more", {1.0}, {5.0}, {}, kMost + 1}});
    EXPECT_THAT(keys(recording), ElementsAre(u"most"_s));
}

TEST(RecordingReader, KeepsSixteenBytesASample)
{
    constexpr std::size_t kSamples = 4'000'000;
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {
        {"a", std::vector<double>(kSamples, 1.0), std::vector<double>(kSamples, 2.0)}};
    const std::size_t before = residentBytes();
    const Recording recording = read(reader);
    EXPECT_LT(residentBytes() - before, kSamples * 16 * 11 / 10);
    EXPECT_EQ(recording.channels.at(u"a"_s).times.size(), kSamples);
}

#if !defined(__SANITIZE_ADDRESS__)

TEST(RecordingReader, SkipsAChannelForWhichThereIsNoMemory)
{
    constexpr int kSamples = 100'000'000;
    rlimit unlimited{};
    ASSERT_EQ(getrlimit(RLIMIT_AS, &unlimited), 0);
    // The process may grow by one array but not by two: both requests are refused in turn.
    std::ifstream file("/proc/self/statm");
    rlim_t pages = 0;
    file >> pages;
    rlimit limited = unlimited;
    for (const rlim_t room : {400'000'000UL, 1'200'000'000UL}) {
        limited.rlim_cur = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + room;
        ASSERT_EQ(setrlimit(RLIMIT_AS, &limited), 0);
        const Recording recording = readPlain(
            {endingAt("a", 1.0), {"large", {1.0}, {5.0}, {}, kSamples}, endingAt("b", 1.0)});
        ASSERT_EQ(setrlimit(RLIMIT_AS, &unlimited), 0);
        EXPECT_THAT(keys(recording), ElementsAre(u"a"_s, u"b"_s));
    }
}

#endif
#endif

} // namespace
