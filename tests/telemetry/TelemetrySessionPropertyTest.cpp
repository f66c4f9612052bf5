#include "telemetry/TelemetrySession.h"
#include "telemetry/XrkLibrary.h"
#include "tests/support/ScriptedReader.h"
#include "tests/telemetry/TelemetryReference.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <limits>

namespace {

namespace gen = rc::gen;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Names of a few short words, so that random names often are related.
rc::Gen<std::string> anyName()
{
    const auto word =
        gen::element<std::string>("port", "Port", "stbd", "STAR", "rpm", "RPM", "speed", "Speedo",
                                  "oil", "Boil", "temp", "T", "gps", "1", "12", "ä", "Ä", "");
    const auto separator = gen::element<std::string>(" ", "_", "  ", "-", "");
    const auto piece = gen::map(gen::pair(word, separator),
                                [](const auto& parts) { return parts.first + parts.second; });
    return gen::map(gen::resize(4, gen::container<std::vector<std::string>>(piece)),
                    [](const std::vector<std::string>& pieces) {
                        std::string name;
                        for (const std::string& one : pieces)
                            name += one;
                        return name;
                    });
}

rc::Gen<double> anyTime()
{
    return gen::map(gen::inRange(-100, 5000), [](int tenths) { return tenths / 10.0; });
}

/// Ascending times with repetitions, on one of several scales.
rc::Gen<std::vector<double>> ascendingTimes()
{
    return gen::map(gen::pair(gen::container<std::vector<double>>(anyTime()),
                              gen::element(1.0, 1.0, 0.001, 50.0, 1000.0)),
                    [](std::pair<std::vector<double>, double> input) {
                        std::sort(input.first.begin(), input.first.end());
                        for (double& time : input.first)
                            time *= input.second;
                        return input.first;
                    });
}

rc::Gen<std::vector<double>> wildTimes()
{
    return gen::container<std::vector<double>>(gen::oneOf(
        anyTime(), gen::element(kNaN, kInfinity, -kInfinity, 0.0, -0.0, 1e308, -1e308, 5e-324)));
}

rc::Gen<ScriptedChannel> anyChannel(const rc::Gen<std::vector<double>>& times)
{
    return gen::exec([times] {
        ScriptedChannel channel;
        if (*gen::inRange(0, 10) != 0)
            channel.name = *anyName();
        channel.times = *times;
        channel.values = *gen::container<std::vector<double>>(
            channel.times.size(), gen::map(anyTime(), [](double v) { return v * 3.25; }));
        if (*gen::arbitrary<bool>())
            channel.units = "km/h";
        return channel;
    });
}

void script(ScriptedReader& reader, const rc::Gen<std::vector<double>>& times)
{
    for (auto& family : reader.channels)
        family = *gen::resize(12, gen::container<std::vector<ScriptedChannel>>(anyChannel(times)));
}

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

template <typename Left, typename Right>
bool sameAll(const Left& left, const Right& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), same);
}

RC_GTEST_PROP(TelemetryProperties, MatchingAndInterpolationAgreeWithTheReference, ())
{
    ScriptedReader reader;
    script(reader, ascendingTimes());
    const auto expected = TelemetryReference::load(reader);

    TelemetrySession session;
    RC_ASSERT(
        session.load(QStringLiteral("/r.xrk"), QString::fromStdString(ScriptedReader::path())));
    RC_ASSERT(same(session.duration(), expected.duration));
    QStringList names;
    for (const auto& entry : expected.channels)
        names.append(entry.second.name);
    RC_ASSERT(session.channelNames() == names);

    const auto asked = *gen::container<std::vector<std::string>>(40, anyName());
    for (const std::string& bytes : asked) {
        const QString name = QString::fromStdString(bytes);
        const QString match = TelemetryReference::matchChannel(expected, name);
        RC_ASSERT(session.matchChannel(name) == match);
        for (const double t : *gen::container<std::vector<double>>(5, anyTime())) {
            RC_ASSERT(same(session.value(name, t), TelemetryReference::value(expected, name, t)));
            RC_ASSERT(session.matchedName(name) == match);
        }
    }
}

RC_GTEST_PROP(TelemetryProperties, LoadingAgreesWithTheReferenceOnWildTimesAndLyingCounts, ())
{
    ScriptedReader reader;
    script(reader, wildTimes());
    const auto lie = gen::oneOf(
        gen::just(std::optional<int>()),
        gen::map(gen::inRange(-3, 40), [](int claim) { return std::optional<int>(claim); }));
    for (auto& claim : reader.claimedChannelCounts)
        claim = *lie;
    for (auto& family : reader.channels) {
        for (ScriptedChannel& channel : family)
            channel.claimedCount = *lie;
    }
    const auto expected = TelemetryReference::load(reader);

    const XrkLibrary library(ScriptedReader::path().c_str());
    const Recording recording = readRecording(library, reader.fileIndex);
    RC_ASSERT(same(recording.duration, expected.duration));
    RC_ASSERT(recording.channels.size() == expected.channels.size());
    for (const auto& [key, channel] : expected.channels) {
        const TelemetryChannel& actual = recording.channels.at(key);
        RC_ASSERT(actual.name == channel.name);
        RC_ASSERT(actual.units == channel.units);
        RC_ASSERT(sameAll(actual.times, channel.times));
        RC_ASSERT(sameAll(actual.values, channel.values));
        // Whatever the times are, every lookup ends within the samples.
        for (const double t : *wildTimes())
            static_cast<void>(actual.valueAt(t));
    }
}

using Exports = std::vector<std::string>;

rc::Gen<Exports> someExports()
{
    return gen::resize(
        6, gen::unique<Exports>(gen::element<std::string>(
               "close_file_i", "get_vehicle_name", "get_racer_name", "get_laps_count",
               "get_channels_count", "get_channel_name", "get_channel_units",
               "get_channel_samples_count", "get_channel_samples", "get_GPS_channels_count",
               "get_GPS_channel_name", "get_GPS_channel_units", "get_GPS_channel_samples_count",
               "get_GPS_channel_samples", "get_GPS_raw_channels_count", "get_GPS_raw_channel_name",
               "get_GPS_raw_channel_units", "get_GPS_raw_channel_samples_count",
               "get_GPS_raw_channel_samples")));
}

/// Puts what the session reads for missing exports into the script, for the reference.
void scriptMissing(ScriptedReader& reader, const Exports& missing)
{
    const auto lacks = [&missing](const std::string& name) {
        return std::find(missing.begin(), missing.end(), name) != missing.end();
    };
    const std::array<std::string, ReaderHost::kFamilies> prefixes = {"get_", "get_GPS_",
                                                                     "get_GPS_raw_"};
    for (std::size_t family = 0; family < prefixes.size(); ++family) {
        const std::string& prefix = prefixes[family];
        if (lacks(prefix + "channels_count"))
            reader.claimedChannelCounts[family] = -1;
        for (ScriptedChannel& channel : reader.channels[family]) {
            if (lacks(prefix + "channel_name"))
                channel.name.reset();
            if (lacks(prefix + "channel_units"))
                channel.units.reset();
            if (lacks(prefix + "channel_samples")) {
                channel.claimedCount = static_cast<int>(channel.times.size());
                channel.times.assign(channel.times.size(), 0.0);
                channel.values.assign(channel.values.size(), 0.0);
            }
            if (lacks(prefix + "channel_samples_count"))
                channel.claimedCount = -1;
        }
    }
}

RC_GTEST_PROP(TelemetryProperties, AnySetOfExportsMayBeMissing, ())
{
    ScriptedReader reader;
    script(reader, ascendingTimes());
    const Exports missing = *someExports();
    const QString library = QString::fromStdString(reader.libraryWithout(missing));
    scriptMissing(reader, missing);
    const auto expected = TelemetryReference::load(reader);

    {
        TelemetrySession session;
        RC_ASSERT(session.load(QStringLiteral("/r.xrk"), library));
        RC_ASSERT(same(session.duration(), expected.duration));
        RC_ASSERT(static_cast<std::size_t>(session.channelNames().size()) ==
                  expected.channels.size());
        for (const auto& [key, channel] : expected.channels) {
            if (!channel.name.isEmpty()) {
                RC_ASSERT(same(session.value(channel.name, 1.5),
                               TelemetryReference::value(expected, channel.name, 1.5)));
            }
        }
    }
    const auto unclosed = std::count(missing.begin(), missing.end(), "close_file_i");
    RC_ASSERT(reader.calls("close_file_i(3)") == 1 - unclosed);
    RC_ASSERT(reader.log.back() == "unloaded");
}

} // namespace
