#include "samples/packages/PageArtist.h"

#include "samples/packages/Artwork.h"
#include "samples/packages/ChannelTable.h"
#include "samples/packages/Placement.h"

#include <QPainter>

using SampleLayout::Instrument;
using SampleLayout::Page;
using SampleLayout::PlacedTile;
using SampleLayout::Sheet;
using SampleLayout::Tone;

namespace {

constexpr int kStripColumns = 3;
constexpr QColor kAlertGlass{0xff, 0x3b, 0x30};
constexpr QColor kCautionGlass{0xff, 0xb3, 0x00};

void paintFrame(QPainter& painter, const PlacedTile& placed, const Sheet& sheet,
                const QColor& accent)
{
    Artwork::bezel(painter, placed.bezel);
    Artwork::well(painter, placed.element);
    if (!Placement::hasTitleBand(placed.tile.instrument))
        return;
    QRect band = placed.bezel;
    band.setHeight(sheet.titleBand);
    Artwork::title(painter, band, QString::fromStdString(placed.tile.title),
                   ChannelTable::channel(placed.tile.channel).uiv, accent);
}

// What lies in the well of an instrument.
void paintFace(QPainter& painter, const PlacedTile& placed, const QColor& accent)
{
    switch (placed.tile.instrument) {
    case Instrument::Dial:
        return Artwork::dial(painter, placed.element, placed.tile.range, accent);
    case Instrument::Bar:
    case Instrument::BarReadout:
        return Artwork::bar(painter, placed.element, placed.tile.range, accent);
    case Instrument::Lamp:
        return Artwork::lamp(painter, placed.element,
                             placed.tile.tone == Tone::Alert ? kAlertGlass : kCautionGlass);
    case Instrument::Strip:
        return Artwork::columns(painter, placed.element, kStripColumns);
    case Instrument::TrackMap:
        return Artwork::trackMap(painter, placed.bezel, accent);
    case Instrument::CarPlan:
        return Artwork::carPlan(painter, placed.bezel, accent);
    case Instrument::Readout:
    case Instrument::IconReadout:
    case Instrument::Caption:
        break;
    }
}

} // namespace

QImage PageArtist::paintPage(const Sheet& sheet, const Page& page)
{
    QImage image(sheet.size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    Artwork::backdrop(painter, image.rect());
    Artwork::header(painter, QRect(0, 0, sheet.size.width(), sheet.header), page.accent);
    Artwork::pageName(painter, Placement::nameBand(sheet), QString::fromStdString(page.name),
                      page.accent);
    for (const PlacedTile& placed : Placement::placeTiles(sheet, page)) {
        if (Placement::isElement(placed.tile.instrument))
            paintFrame(painter, placed, sheet, page.accent);
        paintFace(painter, placed, page.accent);
    }
    return image;
}
