#pragma once

#include "document/ChannelDef.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <vector>

class QPainter;

/// Sample packages as plain data. The overlay XML and the page backgrounds are both made from it,
/// so that the artwork is always below its elements. Lengths are pixels of the target display.
namespace SamplePackage {

inline constexpr QLatin1StringView kWideFont("MicrogrammaDBolExt");
inline constexpr QLatin1StringView kPlainFont("Basic Sans SF");

struct Tile;

/// Paints what does not change of an instrument into its tile.
using PaintInstrument = void(QPainter& painter, const Tile& tile);
PaintInstrument paintDial, paintBar, paintLamp, paintStrip, paintTrackMap, paintCarPlan;

/// What a tile shows, and what its element consists of.
struct Instrument
{
    QLatin1StringView name;    ///< in the layouts
    QLatin1StringView element; ///< beginning of the element's name; empty for artwork only
    QLatin1StringView gauge{}; ///< XML that opens the object with the zone; empty without a zone
    double valueHeight = 0;    ///< share of the element's height; 0 without a value
    PaintInstrument* paint = nullptr;
    bool hasTitleBand = false; ///< the artwork shows title and unit above the element
    bool hasIcon = false;
};

/// Role of a value: its font and its colour.
struct Tone
{
    QLatin1StringView name; ///< in the layouts
    QLatin1StringView font;
    QLatin1StringView color;
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
    const Instrument* instrument = nullptr;
    QString title;                    ///< of a strip, three texts separated by '|'
    const Channel* channel = nullptr; ///< null for fixed texts and artwork
    const Tone* tone = nullptr;
    Range range;
    bool labelled = false; ///< the element has its title as a label
    QColor accent;         ///< of its page
    QRect bezel;
    QRect field; ///< inside the bezel, below the title: where the element is
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
    QRect nameBand{}; ///< the part of the header that shows the page's name
};

/// The channels of the sample devices. Long names are unique.
[[nodiscard]] const std::vector<Channel>& channels();
[[nodiscard]] std::vector<Package> all();

/// Everything on a page that does not change while driving. Needs a QGuiApplication.
[[nodiscard]] QImage paintBackground(const Package& package, const Page& page);

} // namespace SamplePackage
