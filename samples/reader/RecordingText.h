#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The recording format of the samples: lines of text with fields separated by tabs, as described
/// in docs/reader-library.md. Needs no Qt.
namespace RecordingText {

enum Family
{
    kPlain,
    kGps,
    kGpsRaw,
    kFamilies
};

/// First line of every recording; the number is the version of the format.
inline constexpr std::string_view kFirstLine = "gaugewright recording 1";
/// The word for each family in a channel's line.
inline constexpr std::array<std::string_view, kFamilies> kFamilyWords = {"plain", "gps", "gps-raw"};

struct Channel
{
    std::string name;          ///< UTF-8, as are all texts
    std::string units;         ///< may be empty
    std::vector<double> times; ///< seconds, or milliseconds in the GPS families
    std::vector<double> values;
};

struct Recording
{
    std::string vehicle;
    std::string racer;
    int laps = 0;
    std::array<std::vector<Channel>, kFamilies> channels;
};

/// Nothing when any line is malformed.
[[nodiscard]] std::optional<Recording> parse(std::string_view text);

} // namespace RecordingText
