#pragma once

#include "tests/support/ReaderHost.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// One channel of a scripted recording. The texts are the raw bytes that the library hands out.
struct ScriptedChannel
{
    std::optional<std::string> name; ///< none: a null pointer
    std::vector<double> times;
    std::vector<double> values;
    std::optional<std::string> units = std::nullopt; ///< none: a null pointer
    std::optional<int> claimedCount = std::nullopt;  ///< none: the number of times
};

/// A channel that ends at that time, in the reader's unit, and goes from 0 to 10.
[[nodiscard]] inline ScriptedChannel endingAt(const char* name, double end)
{
    return {name, {0.0, end}, {0.0, 10.0}};
}

/// A reader library whose answers a test writes down as data, and that writes down every call.
///
/// path() names a real shared library for the loader; libraryWithout() names copies of it that lack
/// some exports. At most one object may live at a time, and it must outlive whatever loads the
/// library. Its samples functions deliver min(count, times.size()) samples and never more, also
/// when the claimed count lies. Needs no Qt.
class ScriptedReader : public ReaderHost
{
public:
    ScriptedReader();
    ~ScriptedReader() override;
    ScriptedReader(const ScriptedReader&) = delete;
    ScriptedReader& operator=(const ScriptedReader&) = delete;

    // The script.
    int fileIndex = 3; ///< what open_file answers
    std::array<std::vector<ScriptedChannel>, kFamilies> channels;
    std::array<std::optional<int>, kFamilies> claimedChannelCounts; ///< none: the true number
    bool sharesOneTextBuffer = false; ///< every call overwrites the text returned before

    /// Every call in order, "open_file(/a.xrk)", "get_GPS_channel_name(3,0)", and the library's own
    /// "loaded" and "unloaded".
    std::vector<std::string> log;
    [[nodiscard]] std::ptrdiff_t calls(const std::string& entry) const;

    /// The library, UTF-8 with forward slashes.
    [[nodiscard]] static std::string path();
    /// A copy of the library in which those exports cannot be found; lives as long as this object.
    [[nodiscard]] std::string libraryWithout(const std::vector<std::string>& exports);

    void loaded() override;
    void unloaded() override;
    void unexpectedCall() override;
    int openFile(const char* path) override;
    int closeFile(int file) override;
    int channelCount(Family family, int file) override;
    const char* channelName(Family family, int file, int channel) override;
    const char* channelUnits(Family family, int file, int channel) override;
    int sampleCount(Family family, int file, int channel) override;
    int samples(Family family, int file, int channel, double* times, double* values,
                int count) override;

private:
    [[nodiscard]] const ScriptedChannel* find(Family family, int channel) const;
    [[nodiscard]] const char* text(const std::optional<std::string>& text);
    void logCall(const std::string& entry);

    std::filesystem::path m_copies; // folder of the copies, empty while there are none
    int m_copyCount = 0;
    std::array<char, 256> m_textBuffer{};
};
