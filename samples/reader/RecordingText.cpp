#include "samples/reader/RecordingText.h"

#include <algorithm>
#include <charconv>

namespace RecordingText {

namespace {

/// Takes the text before the separator off the front of the rest, and the separator with it.
std::string_view takeUntil(char separator, std::string_view& rest)
{
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return taken;
}

std::string_view takeLine(std::string_view& text)
{
    std::string_view line = takeUntil('\n', text);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

template <typename Number>
bool readNumber(std::string_view text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

class Parser
{
public:
    bool readLine(std::string_view line)
    {
        if (line.empty() || line.starts_with('#'))
            return true;
        std::string_view fields = line;
        const std::string_view first = takeUntil('\t', fields);
        if (first == "channel")
            return beginChannel(fields);
        if (first == "vehicle")
            m_recording.vehicle = fields;
        else if (first == "racer")
            m_recording.racer = fields;
        else if (first == "laps")
            return readNumber(fields, m_recording.laps);
        else
            return addSample(first, fields);
        return true;
    }

    Recording takeRecording() { return std::move(m_recording); }

private:
    bool beginChannel(std::string_view fields)
    {
        const std::string_view word = takeUntil('\t', fields);
        const auto* const family = std::find(kFamilyWords.begin(), kFamilyWords.end(), word);
        if (family == kFamilyWords.end())
            return false;
        const std::string_view name = takeUntil('\t', fields);
        auto& channels =
            m_recording.channels[static_cast<std::size_t>(family - kFamilyWords.begin())];
        channels.push_back({std::string(name), std::string(fields), {}, {}});
        m_channel = &channels.back();
        return true;
    }

    bool addSample(std::string_view timeText, std::string_view valueText)
    {
        double time = 0.0;
        double value = 0.0;
        if (m_channel == nullptr || !readNumber(timeText, time) || !readNumber(valueText, value))
            return false;
        m_channel->times.push_back(time);
        m_channel->values.push_back(value);
        return true;
    }

    Recording m_recording;
    Channel* m_channel = nullptr; ///< the last one begun, to which samples go
};

} // namespace

std::optional<Recording> parse(std::string_view text)
{
    if (takeLine(text) != kFirstLine)
        return std::nullopt;
    Parser parser;
    while (!text.empty()) {
        if (!parser.readLine(takeLine(text)))
            return std::nullopt;
    }
    return parser.takeRecording();
}

} // namespace RecordingText
