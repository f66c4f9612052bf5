// Loads a recording and looks up values in it. Each is compared with the least that any program has
// to do: the reader's copying into fresh memory; a search in the samples and a map lookup.

#include "telemetry/TelemetrySession.h"
#include "telemetry/XrkLibrary.h"
#include "tests/support/ScriptedReader.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kChannels = 300;
constexpr int kSamples = 100'000;
constexpr std::size_t kLayoutNames = 60; // elements of a full page
constexpr double kSeconds = 600.0;

/// Hands out the same samples under many names, as fast as memory can be copied.
class CopyingReader : public ScriptedReader
{
public:
    CopyingReader()
    {
        channels[kPlain].resize(kChannels);
        for (int i = 0; i < kChannels; ++i)
            channels[kPlain][static_cast<std::size_t>(i)].name =
                "Sensor_" + std::to_string(i) + " Front Temperature";
        for (int i = 0; i < kSamples; ++i) {
            m_times.push_back(kSeconds * i / kSamples);
            m_values.push_back(std::sin(i * 0.001));
        }
    }

    int sampleCount(Family, int, int) override { return kSamples; }
    int samples(Family, int, int, double* times, double* values, int count) override
    {
        const auto bytes = static_cast<std::size_t>(count) * sizeof(double);
        std::memcpy(times, m_times.data(), bytes);
        std::memcpy(values, m_values.data(), bytes);
        return count;
    }

private:
    std::vector<double> m_times;
    std::vector<double> m_values;
};

QString library()
{
    return QString::fromStdString(ScriptedReader::path());
}

double residentBytes()
{
    std::ifstream file("/proc/self/statm");
    double total = 0.0;
    double resident = 0.0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void loadFloor(benchmark::State& state)
{
    const CopyingReader reader;
    for ([[maybe_unused]] const auto iteration : state) {
        const XrkLibrary binding(ScriptedReader::path().c_str());
        const int file = binding.open_file("/r.xrk");
        std::vector<std::unique_ptr<double[]>> arrays;
        for (int i = 0; i < kChannels; ++i) {
            // Memory that has never been written, as every loaded sample needs.
            auto times = std::make_unique_for_overwrite<double[]>(kSamples);
            auto values = std::make_unique_for_overwrite<double[]>(kSamples);
            binding.get_channel_samples(file, i, times.get(), values.get(), kSamples);
            arrays.push_back(std::move(times));
            arrays.push_back(std::move(values));
        }
        benchmark::DoNotOptimize(arrays);
        binding.close_file_i(file);
    }
}
BENCHMARK(loadFloor)->Unit(benchmark::kMillisecond);

void load(benchmark::State& state)
{
    const CopyingReader reader;
    for ([[maybe_unused]] const auto iteration : state) {
        TelemetrySession session;
        if (!session.load(QStringLiteral("/r.xrk"), library()))
            state.SkipWithError("the recording does not load");
    }
}
BENCHMARK(load)->Unit(benchmark::kMillisecond);

void memory(benchmark::State& state)
{
    const CopyingReader reader;
    const double before = residentBytes();
    double grown = 0.0;
    for ([[maybe_unused]] const auto iteration : state) {
        TelemetrySession session;
        if (!session.load(QStringLiteral("/r.xrk"), library()))
            state.SkipWithError("the recording does not load");
        grown = residentBytes() - before;
    }
    state.counters["bytes_per_sample"] = grown / (1.0 * kChannels * kSamples);
}
BENCHMARK(memory)->Unit(benchmark::kMillisecond)->Iterations(1);

/// What a page asks for during a replay: every name at one time, then all at the next one.
struct Questions
{
    std::vector<QString> names;
    std::vector<double> times;

    Questions()
    {
        for (std::size_t i = 0; i < kLayoutNames; ++i)
            names.push_back(QStringLiteral("sensor %1 temp").arg(i * 5));
        for (int tenth = 0; tenth < kSeconds * 10; ++tenth)
            times.push_back(tenth / 10.0);
    }
};

void valueFloor(benchmark::State& state)
{
    const CopyingReader reader;
    const XrkLibrary binding(ScriptedReader::path().c_str());
    const Recording recording = readRecording(binding, 0);
    const Questions questions;
    std::map<QString, const TelemetryChannel*> channels;
    auto channel = recording.channels.begin();
    for (const QString& name : questions.names)
        channels[name] = &channel++->second;

    std::size_t frame = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        const double time = questions.times[frame++ % questions.times.size()];
        for (const QString& name : questions.names) {
            const TelemetryChannel& found = *channels.find(name)->second;
            benchmark::DoNotOptimize(
                std::upper_bound(found.times.begin(), found.times.end(), time));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int>(kLayoutNames));
}
BENCHMARK(valueFloor)->Unit(benchmark::kMicrosecond);

void value(benchmark::State& state)
{
    const CopyingReader reader;
    TelemetrySession session;
    if (!session.load(QStringLiteral("/r.xrk"), library()))
        state.SkipWithError("the recording does not load");
    const Questions questions;
    for (const QString& name : questions.names)
        benchmark::DoNotOptimize(session.matchedName(name));

    std::size_t frame = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        const double time = questions.times[frame++ % questions.times.size()];
        for (const QString& name : questions.names)
            benchmark::DoNotOptimize(session.value(name, time));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int>(kLayoutNames));
}
BENCHMARK(value)->Unit(benchmark::kMicrosecond);

/// The one frame that needs the matcher: 60 names against 300.
void firstFrame(benchmark::State& state)
{
    const CopyingReader reader;
    TelemetrySession session;
    if (!session.load(QStringLiteral("/r.xrk"), library()))
        state.SkipWithError("the recording does not load");
    const Questions questions;
    for ([[maybe_unused]] const auto iteration : state) {
        for (const QString& name : questions.names)
            benchmark::DoNotOptimize(session.matchChannel(name));
    }
}
BENCHMARK(firstFrame)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
