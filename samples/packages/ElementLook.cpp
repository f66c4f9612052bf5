#include "samples/packages/ElementLook.h"

#include <algorithm>

using SampleLayout::Instrument;
using SampleLayout::PlacedTile;
using SampleLayout::Sheet;
using SampleLayout::Tone;

namespace {

constexpr int kSmallestSize = 8; // pixels; the devices' smallest characters

// The fonts that the displays carry.
QString wideFont()
{
    return QStringLiteral("MicrogrammaDBolExt");
}

QString plainFont()
{
    return QStringLiteral("Basic Sans SF");
}

QString heavyFont()
{
    return QStringLiteral("Huge Basic Sans Heavy SF");
}

QColor toneColor(Tone tone)
{
    switch (tone) {
    case Tone::Plain:
        return {0xff, 0xff, 0xff};
    case Tone::Good:
        return {0x4c, 0xd9, 0x64};
    case Tone::Caution:
        return {0xff, 0xc2, 0x33};
    case Tone::Alert:
        return {0xff, 0x5a, 0x4d};
    case Tone::Info:
        return {0x5a, 0xc8, 0xfa};
    case Tone::Dimmed:
        return {0xc8, 0xd2, 0xdc, 0xb4};
    }
    return {};
}

// Share of an element's height that its value takes.
double valueShare(Instrument instrument)
{
    if (instrument == Instrument::Dial)
        return 0.14;
    return instrument == Instrument::BarReadout ? 0.4 : 0.55;
}

} // namespace

QString ElementLook::namePrefix(Instrument instrument)
{
    switch (instrument) {
    case Instrument::Dial:
        return QStringLiteral("gauge");
    case Instrument::Bar:
    case Instrument::BarReadout:
        return QStringLiteral("bar");
    case Instrument::Readout:
    case Instrument::IconReadout:
        return QStringLiteral("value");
    case Instrument::Lamp:
        return QStringLiteral("lamp");
    case Instrument::Caption:
    case Instrument::Strip:
        return QStringLiteral("text");
    case Instrument::TrackMap:
    case Instrument::CarPlan:
        break;
    }
    return {};
}

ElementLook::TextStyle ElementLook::valueStyle(const PlacedTile& placed)
{
    constexpr int kLargeValue = 48; // pixels; from here on the heavy font reads better
    const double share = valueShare(placed.tile.instrument);
    const int size = std::max(kSmallestSize, static_cast<int>(placed.element.height() * share));
    if (size >= kLargeValue)
        return {heavyFont(), size, toneColor(placed.tile.tone)};
    const bool quiet = placed.tile.tone == Tone::Dimmed || placed.tile.tone == Tone::Info;
    return {quiet ? plainFont() : wideFont(), size, toneColor(placed.tile.tone)};
}

ElementLook::TextStyle ElementLook::labelStyle(const PlacedTile& placed, const Sheet& sheet)
{
    const int titleSize = std::max(kSmallestSize, sheet.titleBand * 5 / 8);
    if (placed.tile.instrument == Instrument::Caption)
        return {wideFont(), titleSize + 4, toneColor(Tone::Caution)};
    return {plainFont(), titleSize, {0xd7, 0xde, 0xe6, 0xc8}};
}
