// Matches arbitrary names: the first line of the input against the others. The matcher must agree
// with the rules as the tests write them down a second time.

#include "fuzz/FuzzTarget.h"
#include "telemetry/ChannelMatcher.h"
#include "telemetry/RecordedNames.h"
#include "tests/telemetry/TelemetryReference.h"

std::vector<QByteArray> fuzzSeeds()
{
    return {"RPM\nrpm\nEngine RPM Avg\nPort RPM",
            "Gear_Pos\nGearPos\ngear  pos_",
            "port rpm\nPort_Engine_RPM\nStbd_Engine_RPM\nStar RPM",
            "star boost\nStbd Boost",
            "Water Temp\nWaterTemp1\nOil_Pressure Main",
            "speed\nspeedo speed\nxspeed",
            "_\n\n \n__",
            "\xC3\x96l Temp\n\xC3\xB6l_temp\n\xF0\x90\x90\x80\n\xFF\xFE",
            ""};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QStringList names = text.split(u'\n');
    const QString wanted = names.takeFirst();

    TelemetryReference::Session session;
    for (const QString& name : names)
        session.channels[name.toLower()].name = name;
    QStringList recorded;
    for (const auto& [key, channel] : session.channels)
        recorded.append(channel.name);

    const QString match = ChannelMatcher::match(wanted, RecordedNames(recorded)).name;
    FUZZ_REQUIRE(match == TelemetryReference::matchChannel(session, wanted));
    FUZZ_REQUIRE(match.isEmpty() || recorded.contains(match));
    return 0;
}
