#include "telemetry/XrkLibrary.h"

#include "tests/support/ScriptedReader.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <random>

// No Qt in here: the same tests run on Windows, cross-compiled.

namespace {

constexpr std::array<const char*, 20> kNames = {
    "open_file",
    "close_file_i",
    "get_vehicle_name",
    "get_racer_name",
    "get_laps_count",
    "get_channels_count",
    "get_channel_name",
    "get_channel_units",
    "get_channel_samples_count",
    "get_channel_samples",
    "get_GPS_channels_count",
    "get_GPS_channel_name",
    "get_GPS_channel_units",
    "get_GPS_channel_samples_count",
    "get_GPS_channel_samples",
    "get_GPS_raw_channels_count",
    "get_GPS_raw_channel_name",
    "get_GPS_raw_channel_units",
    "get_GPS_raw_channel_samples_count",
    "get_GPS_raw_channel_samples",
};

/// Whether each slot is filled, in the order of the slots.
std::array<bool, kNames.size()> filledSlots(const XrkLibrary& library)
{
    return {
        library.open_file != nullptr,
        library.close_file_i != nullptr,
        library.get_vehicle_name != nullptr,
        library.get_racer_name != nullptr,
        library.get_laps_count != nullptr,
        library.get_channels_count != nullptr,
        library.get_channel_name != nullptr,
        library.get_channel_units != nullptr,
        library.get_channel_samples_count != nullptr,
        library.get_channel_samples != nullptr,
        library.get_GPS_channels_count != nullptr,
        library.get_GPS_channel_name != nullptr,
        library.get_GPS_channel_units != nullptr,
        library.get_GPS_channel_samples_count != nullptr,
        library.get_GPS_channel_samples != nullptr,
        library.get_GPS_raw_channels_count != nullptr,
        library.get_GPS_raw_channel_name != nullptr,
        library.get_GPS_raw_channel_units != nullptr,
        library.get_GPS_raw_channel_samples_count != nullptr,
        library.get_GPS_raw_channel_samples != nullptr,
    };
}

std::array<bool, kNames.size()> allSlots(bool filled)
{
    std::array<bool, kNames.size()> slots{};
    slots.fill(filled);
    return slots;
}

TEST(XrkLibrary, IsAllNullWithoutALibrary)
{
    constexpr const char* kNoPath = nullptr;
    for (const char* path : {"/no/such/library", "", ".", kNoPath}) {
        const XrkLibrary library(path);
        EXPECT_FALSE(library.isLoaded());
        EXPECT_EQ(filledSlots(library), allSlots(false));
    }
}

TEST(XrkLibrary, IsAllNullWhenTheFileIsNoLibrary)
{
    const auto path = std::filesystem::temp_directory_path() /
                      ("not-a-library-" + std::to_string(std::random_device()()));
    std::ofstream(path) << "plain text";

    std::string error;
    const XrkLibrary library(path.string().c_str(), &error);
    EXPECT_FALSE(library.isLoaded());
    EXPECT_EQ(filledSlots(library), allSlots(false));
    // Not every loader names the file, but none may leave a gap where the name belongs.
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(error.find("%1"), std::string::npos) << error;
    std::filesystem::remove(path);
}

TEST(XrkLibrary, GivesTheLoadersOwnWordsWhenItRefuses)
{
    std::string error;
    const XrkLibrary missing("/no/such/library", &error);
    EXPECT_FALSE(error.empty());
#ifndef _WIN32
    EXPECT_NE(error.find("/no/such/library"), std::string::npos) << error;
#endif
    EXPECT_EQ(std::string(". \r\n").find(error.back()), std::string::npos) << error;
}

TEST(XrkLibrary, LeavesTheErrorAloneWhenItLoads)
{
    const ScriptedReader reader;
    std::string error = "untouched";
    const XrkLibrary library(ScriptedReader::path().c_str(), &error);
    EXPECT_TRUE(library.isLoaded());
    EXPECT_EQ(error, "untouched");
}

TEST(XrkLibrary, FillsEverySlot)
{
    const ScriptedReader reader;
    const XrkLibrary library(ScriptedReader::path().c_str());
    EXPECT_TRUE(library.isLoaded());
    EXPECT_EQ(filledSlots(library), allSlots(true));
}

TEST(XrkLibrary, KeepsTheSlotsInTheOrderOfTheExports)
{
    const ScriptedReader reader;
    const XrkLibrary library(ScriptedReader::path().c_str());
    const void* const* const first = reinterpret_cast<const void* const*>(&library.open_file);
    const void* const* const last =
        reinterpret_cast<const void* const*>(&library.get_GPS_raw_channel_samples);
    EXPECT_EQ(first, reinterpret_cast<const void* const*>(&library) + 1);
    EXPECT_EQ(last - first, 19);
    EXPECT_EQ(sizeof(XrkLibrary), 21 * sizeof(void*));
}

TEST(XrkLibrary, LeavesExactlyTheMissingExportNull)
{
    for (std::size_t missing = 0; missing < kNames.size(); ++missing) {
        ScriptedReader reader;
        const XrkLibrary library(reader.libraryWithout({kNames[missing]}).c_str());
        auto expected = allSlots(true);
        expected[missing] = false;
        EXPECT_TRUE(library.isLoaded());
        EXPECT_EQ(filledSlots(library), expected) << kNames[missing];
    }
}

TEST(XrkLibrary, LoadsALibraryWithoutAnyOfTheExports)
{
    ScriptedReader reader;
    const XrkLibrary library(reader.libraryWithout({kNames.begin(), kNames.end()}).c_str());
    EXPECT_TRUE(library.isLoaded());
    EXPECT_EQ(filledSlots(library), allSlots(false));
}

/// What the scripted library notes when every export is called once.
const std::vector<std::string> kCalls = {
    "loaded",
    "open_file(/r.xrk)",
    "get_channels_count(3)",
    "get_channel_name(3,0)",
    "get_channel_units(3,0)",
    "get_channel_samples_count(3,0)",
    "get_channel_samples(3,0)",
    "unexpected",
    "unexpected",
    "unexpected",
    "get_GPS_channels_count(3)",
    "get_GPS_channel_name(3,0)",
    "get_GPS_channel_units(3,0)",
    "get_GPS_channel_samples_count(3,0)",
    "get_GPS_channel_samples(3,0)",
    "get_GPS_raw_channels_count(3)",
    "get_GPS_raw_channel_name(3,0)",
    "get_GPS_raw_channel_units(3,0)",
    "get_GPS_raw_channel_samples_count(3,0)",
    "get_GPS_raw_channel_samples(3,0)",
    "close_file_i(3)",
};

void callTheOthers(const XrkLibrary& library)
{
    double times[2] = {};
    double values[2] = {};
    library.get_vehicle_name();
    library.get_racer_name();
    library.get_laps_count();
    library.get_GPS_channels_count(3);
    library.get_GPS_channel_name(3, 0);
    library.get_GPS_channel_units(3, 0);
    library.get_GPS_channel_samples_count(3, 0);
    library.get_GPS_channel_samples(3, 0, times, values, 2);
    library.get_GPS_raw_channels_count(3);
    library.get_GPS_raw_channel_name(3, 0);
    library.get_GPS_raw_channel_units(3, 0);
    library.get_GPS_raw_channel_samples_count(3, 0);
    library.get_GPS_raw_channel_samples(3, 0, times, values, 2);
    library.close_file_i(3);
}

TEST(XrkLibrary, CallsTheExportOfEachSlotsName)
{
    ScriptedReader reader;
    for (auto& family : reader.channels)
        family = {{"name", {1.0, 2.0}, {10.0, 20.0}, "units"}};
    const XrkLibrary library(ScriptedReader::path().c_str());
    double times[2] = {};
    double values[2] = {};

    EXPECT_EQ(library.open_file("/r.xrk"), reader.fileIndex);
    EXPECT_EQ(library.get_channels_count(3), 1);
    EXPECT_STREQ(library.get_channel_name(3, 0), "name");
    EXPECT_STREQ(library.get_channel_units(3, 0), "units");
    EXPECT_EQ(library.get_channel_samples_count(3, 0), 2);
    EXPECT_EQ(library.get_channel_samples(3, 0, times, values, 2), 2);
    EXPECT_EQ(times[1], 2.0);
    EXPECT_EQ(values[1], 20.0);
    callTheOthers(library);
    EXPECT_EQ(reader.log, kCalls);
}

TEST(XrkLibrary, UnloadsWhenDestroyed)
{
    const ScriptedReader reader;
    {
        const XrkLibrary library(ScriptedReader::path().c_str());
        EXPECT_EQ(reader.log, std::vector<std::string>{"loaded"});
    }
    EXPECT_EQ(reader.log, (std::vector<std::string>{"loaded", "unloaded"}));
}

TEST(XrkLibrary, StaysLoadedWhileAnotherBindingHoldsTheSameLibrary)
{
    const ScriptedReader reader;
    {
        const XrkLibrary outer(ScriptedReader::path().c_str());
        {
            const XrkLibrary inner(ScriptedReader::path().c_str());
        }
        EXPECT_EQ(reader.calls("unloaded"), 0);
        EXPECT_EQ(outer.get_channels_count(3), 0);
    }
    EXPECT_EQ(reader.calls("unloaded"), 1);
}

} // namespace
