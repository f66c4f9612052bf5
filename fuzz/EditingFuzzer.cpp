// Bytes choose a document and what a user does with it; see EditingWalk for what must hold.

#include "fuzz/FuzzTarget.h"
#include "tests/support/EditingWalk.h"

#include <random>

std::vector<QByteArray> fuzzSeeds()
{
    std::vector<QByteArray> seeds;
    std::mt19937 random(1); // the same seeds every time
    for (int i = 0; i < 30; ++i) {
        QByteArray seed(20 + 20 * i, '\0');
        for (char& byte : seed)
            byte = static_cast<char>(random());
        seeds.push_back(seed);
    }
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ensureApplication();
    ByteSource source({data, size});
    const QByteArray failure = EditingWalk(source).run();
    if (!failure.isEmpty())
        std::fprintf(stderr, "%s\n", failure.constData());
    FUZZ_REQUIRE(failure.isEmpty());
    return 0;
}
