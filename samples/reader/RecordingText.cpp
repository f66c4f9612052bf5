#include "samples/reader/RecordingText.h"

#include <algorithm>
#include <charconv>

namespace {

using namespace RecordingText;

// Removes the text before the separator, and the separator, from the front.
std::string_view takeUntil(char separator, std::string_view& rest)
{
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return taken;
}

std::string_view takeLine(std::string_view& text)
{
    const std::string_view line = takeUntil('\n', text);
    return line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0));
}

bool readNumber(std::string_view text, auto& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

// Returns whether the line is well-formed. family is that of the channel begun last.
bool readLine(std::string_view line, Recording& recording, std::size_t& family)
{
    if (line.empty() || line.starts_with('#'))
        return true;
    const std::string_view first = takeUntil('\t', line);
    if (first == "laps")
        return readNumber(line, recording.laps);
    if (first == "vehicle" || first == "racer") {
        (first == "racer" ? recording.racer : recording.vehicle) = line;
        return true;
    }
    if (first == "channel") {
        const auto* const word =
            std::find(kFamilyWords.begin(), kFamilyWords.end(), takeUntil('\t', line));
        family = static_cast<std::size_t>(word - kFamilyWords.begin());
        if (family < kFamilies)
            recording.channels[family].push_back(
                {std::string(takeUntil('\t', line)), std::string(line), {}, {}});
        return family < kFamilies;
    }
    return family < kFamilies &&
           readNumber(first, recording.channels[family].back().times.emplace_back()) &&
           readNumber(line, recording.channels[family].back().values.emplace_back());
}

} // namespace

std::optional<Recording> RecordingText::parse(std::string_view text)
{
    Recording recording;
    std::size_t family = kFamilies; // none yet
    bool wellFormed = takeLine(text) == kFirstLine;
    while (wellFormed && !text.empty())
        wellFormed = readLine(takeLine(text), recording, family);
    return wellFormed ? std::optional(std::move(recording)) : std::nullopt;
}
