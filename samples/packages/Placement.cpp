#include "samples/packages/Placement.h"

using SampleLayout::Cell;
using SampleLayout::Instrument;
using SampleLayout::Page;
using SampleLayout::PlacedTile;
using SampleLayout::Sheet;
using SampleLayout::Tile;
using SampleLayout::Tone;

namespace {

constexpr int kHeaderColumns = 16;
constexpr int kNameColumns = 5;
constexpr int kNarrowDisplay = 480; // below this width the header carries fewer tiles

QRect cellRect(const QRect& area, int columns, int rows, const Cell& cell, int gap)
{
    const int left = area.left() + cell.column * area.width() / columns;
    const int right = area.left() + (cell.column + cell.columns) * area.width() / columns;
    const int top = area.top() + cell.row * area.height() / rows;
    const int bottom = area.top() + (cell.row + cell.rows) * area.height() / rows;
    return {left, top, right - left - gap, bottom - top - gap};
}

QRect headerRect(const Sheet& sheet, const Cell& cell)
{
    const QRect area(sheet.gap, sheet.gap, sheet.size.width() - sheet.gap,
                     sheet.header - sheet.gap);
    return cellRect(area, kHeaderColumns, 1, cell, sheet.gap);
}

QRect pageRect(const Sheet& sheet, const Page& page, const Cell& cell)
{
    const QRect area(sheet.gap, sheet.header + sheet.gap, sheet.size.width() - sheet.gap,
                     sheet.size.height() - sheet.header - sheet.gap);
    return cellRect(area, page.columns, page.rows, cell, sheet.gap);
}

std::vector<Tile> headerTiles(const Sheet& sheet)
{
    if (sheet.size.width() < kNarrowDisplay) {
        return {{Instrument::Caption, {5, 0, 5, 1}, "CAR 12"},
                {Instrument::Lamp, {10, 0, 3, 1}, "OIL", "Oil Press", {}, Tone::Alert},
                {Instrument::Lamp, {13, 0, 3, 1}, "FUEL", "Fuel Level", {}, Tone::Caution}};
    }
    return {{Instrument::Caption, {5, 0, 2, 1}, "CAR 12"},
            {Instrument::Strip, {7, 0, 5, 1}, "LAP|POS|GAP"},
            {Instrument::Lamp, {12, 0}, "OIL", "Oil Press", {}, Tone::Alert},
            {Instrument::Lamp, {13, 0}, "WTR", "Water Temp", {}, Tone::Alert, true},
            {Instrument::Lamp, {14, 0}, "FUEL", "Fuel Level", {}, Tone::Caution},
            {Instrument::Lamp, {15, 0}, "BATT", "Battery", {}, Tone::Caution}};
}

PlacedTile place(const Tile& tile, const QRect& bezel, const Sheet& sheet)
{
    const int inset = sheet.gap / 2;
    QRect element = bezel.adjusted(inset, inset, -inset, -inset);
    if (Placement::hasTitleBand(tile.instrument))
        element.setTop(bezel.top() + sheet.titleBand);
    return {tile, bezel, element};
}

} // namespace

QRect Placement::nameBand(const Sheet& sheet)
{
    return headerRect(sheet, {0, 0, kNameColumns, 1});
}

std::vector<PlacedTile> Placement::placeTiles(const Sheet& sheet, const Page& page)
{
    std::vector<PlacedTile> placed;
    for (const Tile& tile : headerTiles(sheet))
        placed.push_back(place(tile, headerRect(sheet, tile.cell), sheet));
    for (const Tile& tile : page.tiles)
        placed.push_back(place(tile, pageRect(sheet, page, tile.cell), sheet));
    return placed;
}

bool Placement::isElement(Instrument instrument)
{
    return instrument != Instrument::TrackMap && instrument != Instrument::CarPlan;
}

bool Placement::hasTitleBand(Instrument instrument)
{
    switch (instrument) {
    case Instrument::Dial:
    case Instrument::Bar:
    case Instrument::BarReadout:
    case Instrument::Readout:
    case Instrument::IconReadout:
        return true;
    case Instrument::Lamp:
    case Instrument::Caption:
    case Instrument::Strip:
    case Instrument::TrackMap:
    case Instrument::CarPlan:
        break;
    }
    return false;
}
