// Reads arbitrary bytes as an overlay, writes it back and reads that again: the records must be the
// same. A further save must write the same bytes: by then texts that a reference to a NUL has
// emptied are written as empty properties.

#include "fuzz/FuzzTarget.h"
#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/RandomOverlay.h"

#include <random>

std::vector<QByteArray> fuzzSeeds()
{
    std::vector<QByteArray> seeds{
        TestPackage::overlayXml(
            {TestPackage::page("Race", 320, 240,
                               {TestPackage::digitElement("mask.1", 1, 2, 30, 40),
                                TestPackage::labelElement("mask.2", 5, 6, 7, 8, "Oil")})}),
        LoadedOverlay::around(R"(<e c="GPageParam"><p n="PAGE_NAME"><![CDATA[<a>]]>b</p></e>)"),
        "<?xml version='1.0' encoding='latin1'?><!DOCTYPE x [<!ENTITY a '&a;'>]>" +
            LoadedOverlay::around(R"(<!-- c --><e c="GPageParam" c="x"/><?pi?>)")};
    std::mt19937 random(1); // the same seeds every time
    for (int i = 0; i < 10; ++i) {
        std::vector<std::uint8_t> bytes(200);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        ByteSource source(bytes);
        seeds.push_back(RandomOverlay::xml(source));
    }
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ensureApplication();
    LoadedOverlay overlay(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    FUZZ_REQUIRE(InStep::firstDisagreement(overlay.document).isEmpty());
    FUZZ_REQUIRE(overlay.isLoaded() == (overlay.document.pageCount() > 0));
    if (!overlay.isLoaded())
        return 0;
    const QByteArray records = InStep::recordsText(overlay.document);
    FUZZ_REQUIRE(overlay.load(overlay.written()));
    FUZZ_REQUIRE(InStep::recordsText(overlay.document) == records);
    const QByteArray settled = overlay.written();
    FUZZ_REQUIRE(overlay.load(settled));
    FUZZ_REQUIRE(overlay.written() == settled);
    FUZZ_REQUIRE(InStep::firstDisagreement(overlay.document).isEmpty());
    return 0;
}
