#pragma once

#include <QColor>
#include <QRect>
#include <QSize>

#include <string>
#include <vector>

/// What a sample package shows: plain data, from which both the page backgrounds and the overlay
/// XML are made, so that the artwork always lies under the elements it belongs to.
///
/// Texts are UTF-8. Lengths are whole pixels of the target display.
namespace SampleLayout {

enum class Instrument
{
    Dial,        ///< round gauge with a value in the middle
    Bar,         ///< horizontal bar
    BarReadout,  ///< horizontal bar with a value
    Readout,     ///< value
    IconReadout, ///< value with a pictogram
    Lamp,        ///< pictogram alone, lit when its channel enters the zone
    Caption,     ///< fixed text
    Strip,       ///< three fixed texts side by side, separated by '|' in the title
    TrackMap,    ///< artwork only: outline of a circuit
    CarPlan,     ///< artwork only: the car seen from above
};

/// Place on the page's grid of columns and rows.
struct Cell
{
    int column = 0;
    int row = 0;
    int columns = 1;
    int rows = 1;
};

/// Scale of an instrument; the zone is the part of it that is drawn red.
struct Range
{
    double minimum = 0;
    double maximum = 100;
    double zoneFrom = 100;
    double zoneTo = 100;
};

/// Role of a value, which decides its colour.
enum class Tone
{
    Plain,
    Good,
    Caution,
    Alert,
    Info,
    Dimmed
};

struct Tile
{
    Instrument instrument = Instrument::Readout;
    Cell cell{};
    std::string title{};
    std::string channel{}; ///< long name in the channel table; empty for fixed texts and artwork
    Range range{};
    Tone tone = Tone::Plain;
    bool labelled = false; ///< the element carries its title as a label of its own
};

struct Page
{
    std::string name{};
    QColor accent{};
    bool hasBackground = true;
    int columns = 12;
    int rows = 6;
    std::vector<Tile> tiles{};
};

/// Measures that depend on the display.
struct Sheet
{
    QSize size;
    int header = 0;    ///< height of the band with the page's name, fixed texts and lamps
    int gap = 0;       ///< between tiles, and between tiles and the edge
    int titleBand = 0; ///< height of a tile's title
};

struct Package
{
    std::string fileName;
    std::string title;
    std::string deviceType;
    int deviceTypeCode = 0;
    std::string layoutFolder; ///< folder in the archive that holds overlay and images
    Sheet sheet;
    std::vector<Page> pages;
};

/// A tile where it stands on the page.
struct PlacedTile
{
    Tile tile;
    QRect bezel;
    QRect element; ///< inside the bezel, below its title
};

} // namespace SampleLayout
