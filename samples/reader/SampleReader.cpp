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

using RecordingText::Channel;
using RecordingText::Family;
using RecordingText::Recording;

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

int openFile(const char* utf8Path)
{
    std::ifstream file(std::filesystem::path(reinterpret_cast<const char8_t*>(utf8Path)),
                       std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    auto recording = RecordingText::parse(text.view());
    if (!recording)
        return -1;
    const int index = openFiles.empty() ? 0 : openFiles.rbegin()->first + 1;
    openFiles[index] = *std::move(recording);
    return index;
}

} // namespace

// NOLINTBEGIN(readability-identifier-naming): exports are found by these very names

READER_EXPORT int open_file(const char* path)
{
    try {
        return openFile(path);
    } catch (...) {
        return -1; // not enough memory: C callers know no exceptions
    }
}

READER_EXPORT int close_file_i(int file)
{
    return openFiles.erase(file) == 1 ? 0 : -1;
}

READER_EXPORT const char* get_vehicle_name(int file)
{
    const Recording* const recording = findFile(file);
    return recording ? recording->vehicle.c_str() : nullptr;
}

READER_EXPORT const char* get_racer_name(int file)
{
    const Recording* const recording = findFile(file);
    return recording ? recording->racer.c_str() : nullptr;
}

READER_EXPORT int get_laps_count(int file)
{
    const Recording* const recording = findFile(file);
    return recording ? recording->laps : -1;
}

// The five exports of one family.
#define FAMILY(prefix, family)                                                                     \
    READER_EXPORT int prefix##channels_count(int file)                                             \
    {                                                                                              \
        const Recording* const found = findFile(file);                                             \
        return found ? static_cast<int>(found->channels[family].size()) : -1;                      \
    }                                                                                              \
    READER_EXPORT const char* prefix##channel_name(int file, int channel)                          \
    {                                                                                              \
        const Channel* const found = findChannel(family, file, channel);                           \
        return found ? found->name.c_str() : nullptr;                                              \
    }                                                                                              \
    READER_EXPORT const char* prefix##channel_units(int file, int channel)                         \
    {                                                                                              \
        const Channel* const found = findChannel(family, file, channel);                           \
        return found ? found->units.c_str() : nullptr;                                             \
    }                                                                                              \
    READER_EXPORT int prefix##channel_samples_count(int file, int channel)                         \
    {                                                                                              \
        const Channel* const found = findChannel(family, file, channel);                           \
        return found ? static_cast<int>(found->times.size()) : -1;                                 \
    }                                                                                              \
    READER_EXPORT int prefix##channel_samples(int file, int channel, double* times,                \
                                              double* values, int count)                           \
    {                                                                                              \
        const Channel* const found = findChannel(family, file, channel);                           \
        if (!found)                                                                                \
            return -1;                                                                             \
        const auto copied = std::clamp<std::ptrdiff_t>(count, 0, std::ssize(found->times));        \
        std::copy_n(found->times.begin(), copied, times);                                          \
        std::copy_n(found->values.begin(), copied, values);                                        \
        return static_cast<int>(copied);                                                           \
    }

FAMILY(get_, RecordingText::kPlain)
FAMILY(get_GPS_, RecordingText::kGps)
FAMILY(get_GPS_raw_, RecordingText::kGpsRaw)

// NOLINTEND(readability-identifier-naming)
