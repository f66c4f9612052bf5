// Editing, reading and writing back pages of 10 to 10,000 elements, and documents of as many pages.

#include "app/commands/ClearPageCommand.h"
#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/PackageBuilder.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

namespace {

constexpr int kFewest = 10;
constexpr int kMost = 10'000;

QByteArray overlayOf(int pages, int elementsPerPage)
{
    std::vector<TestPackage::Object> elements;
    elements.reserve(static_cast<std::size_t>(elementsPerPage));
    for (int i = 0; i < elementsPerPage; ++i) {
        elements.push_back(
            TestPackage::digitElement("mask." + QByteArray::number(i), i, i, 50, 20));
    }
    const TestPackage::Object page = TestPackage::page("Race", 800, 480, elements);
    return TestPackage::overlayXml(
        std::vector<TestPackage::Object>(static_cast<std::size_t>(pages), page));
}

/// The growth with the page is what matters: the fit at the end of a group, and the time for each
/// element of the page.
void setSize(benchmark::State& state, int count)
{
    state.SetComplexityN(count);
    state.counters["per_element"] = benchmark::Counter(
        count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// Makes a command, does it and undoes it, so that each round starts alike.
template <typename MakeCommand>
void doAndUndo(benchmark::State& state, const MakeCommand& makeCommand)
{
    const auto count = static_cast<int>(state.range(0));
    LoadedOverlay overlay(overlayOf(1, count));
    for ([[maybe_unused]] const auto iteration : state) {
        auto command = makeCommand(overlay, count);
        command.redo();
        command.undo();
    }
    setSize(state, count);
}

void clearPage(benchmark::State& state)
{
    doAndUndo(state,
              [](LoadedOverlay& overlay, int) { return ClearPageCommand(&overlay.document, 0); });
}

/// The first element: every other record moves.
void deleteFirst(benchmark::State& state)
{
    doAndUndo(state,
              [](LoadedOverlay& overlay, int) { return DeleteCommand(&overlay.document, 0, 0); });
}

void deleteLast(benchmark::State& state)
{
    doAndUndo(state, [](LoadedOverlay& overlay, int count) {
        return DeleteCommand(&overlay.document, 0, count - 1);
    });
}

void insertElement(benchmark::State& state)
{
    const ChannelDef channel{7, QStringLiteral("Oil Temp"), QStringLiteral("OilT"), {}, {}};
    doAndUndo(state, [&](LoadedOverlay& overlay, int count) {
        return InsertElementCommand(&overlay.document, 0, channel, 1, 2, 3, 4,
                                    overlay.element(0, count / 2).node);
    });
}

void load(benchmark::State& state, const QByteArray& xml)
{
    LoadedOverlay overlay(xml);
    const QString path = overlay.path();
    for ([[maybe_unused]] const auto iteration : state) {
        if (!overlay.document.loadOverlay(path))
            state.SkipWithError("the overlay does not load");
    }
    setSize(state, static_cast<int>(state.range(0)));
}

void write(benchmark::State& state, const QByteArray& xml)
{
    LoadedOverlay overlay(xml);
    for ([[maybe_unused]] const auto iteration : state) {
        if (!overlay.document.writeBack(overlay.path()))
            state.SkipWithError("the overlay cannot be written");
    }
    setSize(state, static_cast<int>(state.range(0)));
}

void loadElements(benchmark::State& state)
{
    load(state, overlayOf(1, static_cast<int>(state.range(0))));
}

void loadPages(benchmark::State& state)
{
    load(state, overlayOf(static_cast<int>(state.range(0)), 1));
}

void writeElements(benchmark::State& state)
{
    write(state, overlayOf(1, static_cast<int>(state.range(0))));
}

void writePages(benchmark::State& state)
{
    write(state, overlayOf(static_cast<int>(state.range(0)), 1));
}

#define SCALED_BENCHMARK(function)                                                                 \
    BENCHMARK(function)                                                                            \
        ->RangeMultiplier(10)                                                                      \
        ->Range(kFewest, kMost)                                                                    \
        ->Unit(benchmark::kMicrosecond)                                                            \
        ->Complexity()

SCALED_BENCHMARK(deleteFirst);
SCALED_BENCHMARK(deleteLast);
SCALED_BENCHMARK(insertElement);
SCALED_BENCHMARK(clearPage);
SCALED_BENCHMARK(loadElements);
SCALED_BENCHMARK(loadPages);
SCALED_BENCHMARK(writeElements);
SCALED_BENCHMARK(writePages);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
