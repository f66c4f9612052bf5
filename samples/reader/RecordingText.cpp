#include "samples/reader/RecordingText.h"

#include <algorithm>
#include <charconv>

namespace {

using RecordingText::Channel;
using RecordingText::kFamilyWords;
using RecordingText::Recording;

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

template <typename Number>
bool readNumber(std::string_view text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

// The new channel, or null when the line is malformed.
Channel* beginChannel(std::string_view fields, Recording& recording)
{
    const auto* const family =
        std::find(kFamilyWords.begin(), kFamilyWords.end(), takeUntil('\t', fields));
    if (family == kFamilyWords.end())
        return nullptr;
    auto& channels = recording.channels[static_cast<std::size_t>(family - kFamilyWords.begin())];
    channels.emplace_back().name = takeUntil('\t', fields);
    channels.back().units = fields;
    return &channels.back();
}

// Returns whether the line is well-formed. Samples go to the channel, the one begun last.
bool readLine(std::string_view line, Recording& recording, Channel*& channel)
{
    if (line.empty() || line.starts_with('#'))
        return true;
    const std::string_view first = takeUntil('\t', line);
    if (first == "channel")
        return (channel = beginChannel(line, recording)) != nullptr;
    if (first == "laps")
        return readNumber(line, recording.laps);
    if (first == "vehicle" || first == "racer") {
        (first == "racer" ? recording.racer : recording.vehicle) = line;
        return true;
    }
    return channel && readNumber(first, channel->times.emplace_back()) &&
           readNumber(line, channel->values.emplace_back());
}

} // namespace

std::optional<Recording> RecordingText::parse(std::string_view text)
{
    if (takeLine(text) != kFirstLine)
        return std::nullopt;
    Recording recording;
    Channel* channel = nullptr;
    while (!text.empty()) {
        if (!readLine(takeLine(text), recording, channel))
            return std::nullopt;
    }
    return recording;
}
