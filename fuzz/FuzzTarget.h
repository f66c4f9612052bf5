#pragma once

#include <QByteArray>
#include <QCoreApplication>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

// What every fuzz target defines.

/// Runs one input; ends the process when a promise does not hold.
// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's own name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Inputs to start from, made by our own tools.
[[nodiscard]] std::vector<QByteArray> fuzzSeeds();

/// For targets that read pages: a page holds a pixmap, and even a null pixmap needs an application.
/// It lives to the very end, because a fuzzer's own main never leaves.
inline void ensureApplication()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static const QCoreApplication* const application = new QCoreApplication(argc, argv);
    Q_UNUSED(application);
}

/// A promise that every input must keep. Ends the process, which is how a fuzzer and the replay see
/// a failure.
#define FUZZ_REQUIRE(condition)                                                                    \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: broken promise: %s\n", __FILE__, __LINE__, #condition);   \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)
