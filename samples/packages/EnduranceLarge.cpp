#include "samples/packages/ChannelTable.h"
#include "samples/packages/SamplePackages.h"

#include <array>

using SampleLayout::Cell;
using SampleLayout::Instrument;
using SampleLayout::Package;
using SampleLayout::Page;
using SampleLayout::Range;
using SampleLayout::Sheet;
using SampleLayout::Tile;
using SampleLayout::Tone;

namespace {

constexpr int kColumns = 10;
constexpr int kRows = 6;
constexpr int kDialCells = 2; // a dial is as many cells wide and high
constexpr int kDials = 2;
constexpr int kSmallTiles = kColumns * kRows - kDials * kDialCells * kDialCells;

constexpr std::array kPageNames{"Start",   "Stint 1",    "Stint 2",  "Stint 3", "Night",
                                "Rain",    "Safety car", "Traffic",  "Engine",  "Cooling",
                                "Gearbox", "Fuel",       "Electric", "Brakes",  "Tyres",
                                "Dampers", "Body",       "Driver",   "Timing",  "Box"};

// What fills the small cells, in turn.
constexpr std::array kTurn{Instrument::Readout,    Instrument::Readout, Instrument::Bar,
                           Instrument::BarReadout, Instrument::Readout, Instrument::IconReadout,
                           Instrument::Caption};
constexpr std::array kTones{Tone::Plain, Tone::Good,   Tone::Plain,
                            Tone::Info,  Tone::Dimmed, Tone::Caution};
constexpr int kLabelledEvery = 3;

bool underDial(int column, int row)
{
    const bool dialColumn = column < kDialCells || column >= kColumns - kDialCells;
    return dialColumn && row < kDialCells;
}

Tile dial(int column, const char* title, const char* channel, const Range& range)
{
    const Cell cell{column, 0, kDialCells, kDialCells};
    return {Instrument::Dial, cell, title, channel, range, Tone::Plain, true};
}

// Channels come from the catalogue in its order, page after page, so that each is shown somewhere.
Tile smallTile(const Cell& cell, int serial)
{
    const auto at = static_cast<std::size_t>(serial);
    const std::vector<ChannelDef>& catalogue = ChannelTable::channels();
    const ChannelDef& channel = catalogue[at % catalogue.size()];
    Tile tile{kTurn[at % kTurn.size()], cell, channel.shortName.toStdString()};
    if (tile.instrument == Instrument::Caption)
        return tile;
    tile.channel = channel.longName.toStdString();
    tile.range = {0, 100, 85, 100};
    tile.tone = kTones[at % kTones.size()];
    tile.labelled = serial % kLabelledEvery == 0;
    return tile;
}

Page page(int index)
{
    const int hue = 360 * index / static_cast<int>(kPageNames.size());
    Page result{kPageNames[static_cast<std::size_t>(index)], QColor::fromHsv(hue, 190, 220), true,
                kColumns, kRows};
    result.tiles.push_back(dial(0, "ENGINE", "RPM", {0, 9000, 7600, 9000}));
    result.tiles.push_back(dial(kColumns - kDialCells, "SPEED", "GPS Speed", {0, 280, 280, 280}));
    int serial = index * kSmallTiles;
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            if (!underDial(column, row))
                result.tiles.push_back(smallTile({column, row}, serial++));
        }
    }
    return result;
}

} // namespace

Package SamplePackages::enduranceLarge()
{
    const Sheet sheet{{1024, 600}, 48, 6, 16};
    Package package{"endurance-large.zconf2", "Endurance", "MXG", 1010, "layout", sheet, {}};
    for (int index = 0; index < static_cast<int>(kPageNames.size()); ++index)
        package.pages.push_back(page(index));
    return package;
}
