#pragma once

#include "document/ChannelDef.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <vector>

/// Sample packages as plain data. The overlay XML and the page backgrounds are both made from it,
/// so that the artwork is always below its elements. Lengths are pixels of the target display.
namespace SamplePackage {

/// What a tile shows. The order matters to the comparisons in Tile.
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

/// Scale of an instrument; the zone is the part of it that is drawn red.
struct Range
{
    double minimum = 0;
    double maximum = 100;
    double zoneFrom = 100;
    double zoneTo = 100;
};

struct Channel : ChannelDef
{
    Range range; ///< usual scale
};

struct Tile
{
    Instrument instrument = Instrument::Readout;
    QString title;
    const Channel* channel = nullptr; ///< null for fixed texts and artwork
    Range range;
    Tone tone = Tone::Plain;
    bool labelled = false; ///< the element repeats its title as a label
    QRect bezel;
    QRect element; ///< inside the bezel, below the title

    [[nodiscard]] bool isElement() const { return instrument <= Instrument::Strip; }
    /// Whether the artwork shows the title above the element.
    [[nodiscard]] bool hasTitleBand() const { return instrument <= Instrument::IconReadout; }
};

struct Page
{
    QString name;
    QColor accent;
    bool hasBackground = true;
    std::vector<Tile> tiles{}; ///< of the header, then of the page
};

struct Package
{
    QLatin1StringView fileName;
    QLatin1StringView title;
    QLatin1StringView deviceType;
    int deviceTypeCode = 0;
    QLatin1StringView layoutFolder; ///< folder in the archive with overlay and images
    QSize size;
    int header = 0;    ///< height of the band with the page's name, fixed texts and lamps
    int gap = 0;       ///< between tiles, and between tiles and the edge
    int titleBand = 0; ///< height of a tile's title
    QSize grid;        ///< columns and rows of tiles on a page
    std::vector<Page> pages{};
};

/// The channels of the sample devices. Long names are unique.
[[nodiscard]] const std::vector<Channel>& channels();
[[nodiscard]] std::vector<Package> all();
/// The part of the header that shows the page's name.
[[nodiscard]] QRect nameBand(const Package& package);

/// Everything on a page that does not change while driving. Needs a QGuiApplication.
[[nodiscard]] QImage paintBackground(const Package& package, const Page& page);

} // namespace SamplePackage
