// A reader library for the sample recordings, with the twenty exports that the editor looks for.
// Replaces the logger maker's library where there is none. Not installed.
#include "samples/reader/RecordingText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#ifdef _WIN32
#define READER_EXPORT extern "C" __declspec(dllexport)
#else
#define READER_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

using namespace RecordingText;

std::map<int, Recording> openFiles; // by the number that stands for the file in every call

const Recording* findFile(int file)
{
    const auto found = openFiles.find(file);
    return found != openFiles.end() ? &found->second : nullptr;
}

const Channel* findChannel(Family family, int file, int channel)
{
    const Recording* const recording = findFile(file);
    if (!recording || channel < 0 || channel >= std::ssize(recording->channels[family]))
        return nullptr;
    return &recording->channels[family][static_cast<std::size_t>(channel)];
}

int copySamples(const Channel& channel, double* times, double* values, int count)
{
    const auto copied = std::clamp<std::ptrdiff_t>(count, 0, std::ssize(channel.times));
    std::copy_n(channel.times.begin(), copied, times);
    std::copy_n(channel.values.begin(), copied, values);
    return static_cast<int>(copied);
}

} // namespace

// NOLINTBEGIN(readability-identifier-naming): exports are found by these very names

READER_EXPORT int open_file(const char* path)
{
    try {
        std::ifstream file(std::filesystem::path(reinterpret_cast<const char8_t*>(path)),
                           std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        auto recording = parse(text.view());
        if (!recording)
            return -1;
        const int index = openFiles.empty() ? 0 : openFiles.rbegin()->first + 1;
        openFiles[index] = *std::move(recording);
        return index;
    } catch (...) {
        return -1; // not enough memory: C callers know no exceptions
    }
}

READER_EXPORT int close_file_i(int file)
{
    return openFiles.erase(file) == 1 ? 0 : -1;
}

// A function that answers for what was found: texts null and numbers -1 when that is nothing.
#define ANSWER(type, missing, name, parameters, lookUp, answer)                                    \
    READER_EXPORT type name parameters                                                             \
    {                                                                                              \
        const auto* const found = (lookUp);                                                        \
        return found ? (answer) : (missing);                                                       \
    }
#define FILE_TEXT(name, text) ANSWER(const char*, nullptr, name, (int file), findFile(file), text)
#define FILE_NUMBER(name, number) ANSWER(int, -1, name, (int file), findFile(file), number)
#define FAMILY(prefix, family)                                                                     \
    FILE_NUMBER(prefix##channels_count, static_cast<int>(found->channels[family].size()))          \
    ANSWER(const char*, nullptr, prefix##channel_name, (int file, int channel),                    \
           findChannel(family, file, channel), found->name.c_str())                                \
    ANSWER(const char*, nullptr, prefix##channel_units, (int file, int channel),                   \
           findChannel(family, file, channel), found->units.c_str())                               \
    ANSWER(int, -1, prefix##channel_samples_count, (int file, int channel),                        \
           findChannel(family, file, channel), static_cast<int>(found->times.size()))              \
    ANSWER(int, -1, prefix##channel_samples,                                                       \
           (int file, int channel, double* times, double* values, int count),                      \
           findChannel(family, file, channel), copySamples(*found, times, values, count))

FILE_TEXT(get_vehicle_name, found->vehicle.c_str())
FILE_TEXT(get_racer_name, found->racer.c_str())
FILE_NUMBER(get_laps_count, found->laps)
FAMILY(get_, kPlain)
FAMILY(get_GPS_, kGps)
FAMILY(get_GPS_raw_, kGpsRaw)

// NOLINTEND(readability-identifier-naming)
