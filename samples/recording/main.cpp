// Records the sample session: ten minutes on a made-up circuit, always the same.
#include "samples/recording/ChannelTable.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

constexpr double kSeconds = 600.0;
constexpr int kMillisecondsPerSecond = 1000;

/// A number from -1 to 1 that belongs to this sample of this channel: the same in every run.
double noise(std::size_t channel, std::size_t sample)
{
    std::uint64_t bits = (channel + 1) * 0x9E3779B97F4A7C15U + (sample + 1) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 30U)) * 0x94D049BB133111EBU;
    return static_cast<double>(bits >> 33U) / static_cast<double>(1U << 30U) - 1.0;
}

void append(std::string& text, double number, int decimals)
{
    char digits[64];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number,
                                   std::chars_format::fixed, decimals);
    text.append(digits, end.ptr);
}

void appendChannel(std::string& text, std::size_t index, const std::vector<CarState>& states,
                   const Circuit& circuit)
{
    const RecordedChannel& channel = recordedChannels()[index];
    text += "channel\t";
    text += RecordingText::kFamilyWords[channel.family];
    text += std::string("\t") + channel.name + "\t" + channel.units + "\n";

    const auto stride = static_cast<std::size_t>(kStatesPerSecond / channel.rate);
    for (std::size_t i = 0; i < states.size(); i += stride) {
        if (channel.family == RecordingText::kPlain)
            append(text, states[i].time, 2);
        else
            append(text, states[i].time * kMillisecondsPerSecond, 0);
        text += '\t';
        const double value = channel.value(states[i], circuit) + channel.noise * noise(index, i);
        append(text, std::max(channel.least, value), channel.decimals);
        text += '\n';
    }
}

std::string record()
{
    const Circuit circuit;
    const std::vector<CarState> states = drive(circuit, kSeconds);
    std::string text(RecordingText::kFirstLine);
    text += "\n# Made by the sample recorder; no such car, driver or circuit exists.\n"
            "vehicle\tPrototype 7\nracer\tSample Driver\nlaps\t";
    text += std::to_string(states.back().lap) + "\n";
    for (std::size_t index = 0; index < recordedChannels().size(); ++index)
        appendChannel(text, index, states, circuit);
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: gaugewright_record FILE\n", stderr);
        return 2;
    }
    const std::string text = record();
    std::ofstream file(argv[1], std::ios::binary);
    file << text << std::flush;
    if (!file) {
        std::fprintf(stderr, "gaugewright_record: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
