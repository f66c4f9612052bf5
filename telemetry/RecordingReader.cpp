#include "telemetry/RecordingReader.h"

#include "telemetry/XrkLibrary.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace {

// A damaged file can make the library claim any count. A system that overcommits memory would grant
// the array and kill the program when it is filled.
constexpr int kMaxChannels = 1 << 16; // per family
constexpr int kMaxSamples = 1 << 27;  // per channel: 37 hours at 1000 Hz, 2 GiB

/// The exports of one family of channels, any of which may be missing.
struct Family
{
    XrkLibrary::Count count;
    XrkLibrary::Text name;
    XrkLibrary::Text units;
    XrkLibrary::SampleCount sampleCount;
    XrkLibrary::Samples samples;
    bool mayCountMilliseconds;
};

template <typename Result, typename... Arguments>
Result callOr(Result fallback, Result (*function)(Arguments...), Arguments... arguments)
{
    return function != nullptr ? function(arguments...) : fallback;
}

/// Copied at once: the library may answer every call from the same buffer. A null string for null.
QString readText(XrkLibrary::Text function, int file, int index)
{
    constexpr const char* kNoText = nullptr;
    return QString::fromUtf8(callOr(kNoText, function, file, index));
}

std::optional<TelemetryChannel> readChannel(const Family& family, int file, int index)
{
    const QString name = readText(family.name, file, index);
    const QString units = readText(family.units, file, index);
    const int count = callOr(0, family.sampleCount, file, index);
    if (name.isNull() || count < 1 || count > kMaxSamples)
        return std::nullopt;

    const auto size = static_cast<std::size_t>(count);
    TelemetryChannel channel{name, units, SampleArray(size), SampleArray(size)};
    if (channel.times.empty() || channel.values.empty())
        return std::nullopt; // no memory for it
    if (family.samples != nullptr)
        family.samples(file, index, channel.times.data(), channel.values.data(), count);
    return channel;
}

void readFamily(const Family& family, int file, Recording& recording)
{
    constexpr double kBeyondSeconds = 10.0; // times the length so far means milliseconds
    constexpr double kMillisecondsPerSecond = 1000.0;

    const int count = std::min(callOr(0, family.count, file), kMaxChannels);
    for (int index = 0; index < count; ++index) {
        std::optional<TelemetryChannel> channel = readChannel(family, file, index);
        if (!channel)
            continue;
        SampleArray& times = channel->times;
        if (family.mayCountMilliseconds && times.back() > recording.duration * kBeyondSeconds) {
            for (double& time : times)
                time /= kMillisecondsPerSecond;
        }
        recording.duration = std::max(recording.duration, times.back());
        const QString key = channel->name.toLower();
        recording.channels.insert_or_assign(key, *std::move(channel));
    }
}

/// The latest end among the channels that end within twice the median end, so that a stray time
/// stamp does not stretch the replay. The fallback when no channel ends after 0.
double replayLength(const std::map<QString, TelemetryChannel>& channels, double fallback)
{
    std::vector<double> ends;
    for (const auto& [key, channel] : channels) {
        if (channel.times.back() > 0.0)
            ends.push_back(channel.times.back());
    }
    if (ends.empty())
        return fallback;
    std::sort(ends.begin(), ends.end());
    const double bound = 2.0 * ends[ends.size() / 2];
    return *std::prev(std::upper_bound(ends.begin(), ends.end(), bound));
}

} // namespace

Recording readRecording(const XrkLibrary& library, int file)
{
    const Family plain = {library.get_channels_count,  library.get_channel_name,
                          library.get_channel_units,   library.get_channel_samples_count,
                          library.get_channel_samples, false};
    const Family gps = {library.get_GPS_channels_count,  library.get_GPS_channel_name,
                        library.get_GPS_channel_units,   library.get_GPS_channel_samples_count,
                        library.get_GPS_channel_samples, true};
    const Family gpsRaw = {
        library.get_GPS_raw_channels_count,  library.get_GPS_raw_channel_name,
        library.get_GPS_raw_channel_units,   library.get_GPS_raw_channel_samples_count,
        library.get_GPS_raw_channel_samples, true};
    Recording recording;
    for (const Family& family : {plain, gps, gpsRaw})
        readFamily(family, file, recording);
    recording.duration = replayLength(recording.channels, recording.duration);
    return recording;
}
