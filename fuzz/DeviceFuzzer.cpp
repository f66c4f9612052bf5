// Reads arbitrary bytes as a device file. Only channels that can be bound to may appear, a file
// that is refused changes nothing, and a second reading appends the same rows again.

#include "fuzz/FuzzTarget.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/RandomOverlay.h"

#include <random>

std::vector<QByteArray> fuzzSeeds()
{
    std::vector<QByteArray> seeds{
        TestPackage::deviceXml("MXS", 12, {{7, "Engine RPM", "RPM", "rpm"}, {0, "Zero", "", ""}}),
        "<CfgFileFormat/>", "<CfgFileFormat><e/></CfgFileFormat>"};
    std::mt19937 random(1); // the same seeds every time
    for (int i = 0; i < 5; ++i) {
        std::vector<std::uint8_t> bytes(50);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        ByteSource source(bytes);
        seeds.push_back(RandomOverlay::deviceXml(source));
    }
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ensureApplication();
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<p n="DIMENSIONE_X">320</p><p n="DIMENSIONE_Y">240</p><e c="GPageParam"/>)"));
    const QByteArray xml(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const bool loaded = overlay.loadDevice(xml);
    const DashboardDocument& document = overlay.document;
    FUZZ_REQUIRE(document.displayWidth() == (loaded ? 320 : 800));
    FUZZ_REQUIRE(loaded || (document.channels().empty() && document.deviceTypeCode() == -1 &&
                            document.deviceType().isEmpty()));
    for (const ChannelDef& channel : document.channels())
        FUZZ_REQUIRE(channel.fid > 0 && !channel.longName.isEmpty());

    const std::size_t count = document.channels().size();
    FUZZ_REQUIRE(overlay.loadDevice(xml) == loaded);
    FUZZ_REQUIRE(document.channels().size() == 2 * count);
    return 0;
}
