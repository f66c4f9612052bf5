#include "samples/packages/SamplePackage.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <span>

using namespace Qt::StringLiterals;
using namespace SamplePackage;

namespace {

constexpr QColor kInk(0xd7, 0xde, 0xe6);
constexpr QColor kDimInk(0x86, 0x92, 0x9f);
constexpr QColor kZone(0xe5, 0x39, 0x35);

QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

QLinearGradient shade(const QRectF& rect, QRgb top, QRgb bottom)
{
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setStops({{0, QColor(top)}, {1, QColor(bottom)}});
    return gradient;
}

// Bold type, spaced for capitals, and the pen that writes it.
void setType(QPainter& painter, double pixelSize, const QColor& color)
{
    QFont font(u"DejaVu Sans"_s, -1, QFont::Bold);
    font.setPixelSize(std::max(static_cast<int>(pixelSize), 5));
    font.setLetterSpacing(QFont::PercentageSpacing, 104);
    painter.setFont(font);
    painter.setPen(color);
}

// A texture like carbon fibre, two strands that cross, and the band of the header.
void paintBackdrop(QPainter& painter, const QRect& page, int headerHeight, const QColor& accent)
{
    QImage weave(8, 8, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 64; ++i) {
        const bool light = (i % 8 < 4) == (i / 8 < 4);
        weave.setPixelColor(i % 8, i / 8, light ? QColor(255, 255, 255, 9) : QColor(0, 0, 0, 60));
    }
    painter.fillRect(page, shade(page, 0x1d2127, 0x0c0e11));
    painter.fillRect(page, QBrush(weave));

    const QRect band(0, 0, page.width(), headerHeight);
    QLinearGradient edge(band.bottomLeft(), band.bottomRight());
    edge.setStops({{0, accent}, {1, withAlpha(accent, 40)}});
    painter.fillRect(band, shade(band, 0x2a2f37, 0x121519));
    painter.fillRect(0, band.bottom() - 1, band.width(), 2, edge);
}

// The name behind a flag of three leaning stripes.
void paintName(QPainter& painter, const QRectF& band, const QString& name, const QColor& accent)
{
    const double height = band.height() * 0.6;
    const double width = height / 3; // of a stripe, and how far it leans
    const QPolygonF stripe({{width, 0}, {2 * width, 0}, {width, height}, {0, height}});
    QPointF corner = band.topLeft() + QPointF(width, (band.height() - height) / 2);
    painter.setPen(Qt::NoPen);
    for (const int alpha : {255, 170, 90}) {
        painter.setBrush(withAlpha(accent, alpha));
        painter.drawPolygon(stripe.translated(corner));
        corner.rx() += width * 1.4;
    }
    setType(painter, band.height() * 0.5, kInk);
    painter.drawText(band.adjusted(corner.x() + 2 * width - band.left(), 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft, name.toUpper());
}

// A raised frame or a sunken field, with a bright line along its upper or lower edge.
void paintPanel(QPainter& painter, const QRect& rect, bool raised)
{
    const QRectF panel = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = raised ? 5 : 3;
    const double edge = raised ? panel.top() + 1 : panel.bottom();
    painter.setPen(raised ? QColor(0x040506) : QColor(0, 0, 0, 200));
    painter.setBrush(raised ? shade(panel, 0x2c323a, 0x16191d) : shade(panel, 0x020304, 0x111418));
    painter.drawRoundedRect(panel, radius, radius);
    painter.setPen(QColor(255, 255, 255, raised ? 34 : 20));
    painter.drawLine(QPointF(panel.left() + radius, edge), QPointF(panel.right() - radius, edge));
}

// The title at the left, the unit at the right when there is room for it.
void paintTitle(QPainter& painter, const Tile& tile, int height)
{
    const QRect band(tile.bezel.topLeft(), QSize(tile.bezel.width(), height));
    const int size = band.height() * 5 / 8;
    const QRect mark(band.left() + size / 2, band.top() + (band.height() - size) / 2 + 1, 3, size);
    painter.fillRect(mark, tile.accent);
    const QRect text = band.adjusted(mark.right() + size / 2 - band.left(), 1, -size / 2, 1);
    setType(painter, size, kInk);
    QRect used;
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, tile.title, &used);
    setType(painter, size, kDimInk);
    const int room = text.right() - used.right() - size / 2;
    if (painter.fontMetrics().horizontalAdvance(tile.channel->uiv) <= room)
        painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, tile.channel->uiv);
}

// Where a value lies on the range, 0 to 1.
double fraction(const Range& range, double value)
{
    return std::clamp((value - range.minimum) / (range.maximum - range.minimum), 0.0, 1.0);
}

// The least round step that cuts the range into no more than maxSteps intervals.
double roundStep(double span, int maxSteps)
{
    const double decade = std::pow(10.0, std::floor(std::log10(span / maxSteps)));
    for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
        if (span / (factor * decade) <= maxSteps + 1e-9)
            return factor * decade;
    }
    return 10 * decade;
}

// Draws the numbers of a scale and kMinor - 1 marks between every two of them. draw is called with
// the place on the range, 0 to 1, and the number, empty between numbers.
void paintScale(const Range& range, int maxSteps, const auto& draw)
{
    constexpr int kMinor = 5;
    constexpr double kTolerance = 1e-9; // of a step, against rounding
    const double step = roundStep(range.maximum - range.minimum, maxSteps);
    const double first = std::ceil(range.minimum / step - kTolerance) * step;
    const int steps = static_cast<int>(std::floor((range.maximum - first) / step + kTolerance));
    const double divisor = range.maximum >= 2000 ? 1000 : 1; // 7000 reads 7
    for (int i = 0; i <= steps * kMinor; ++i) {
        const double value = first + step * i / kMinor;
        draw(fraction(range, value),
             i % kMinor == 0 ? QString::number(value / divisor) : QString());
    }
}

void paintDialFace(QPainter& painter, const QPointF& centre, double radius)
{
    const QColor light(0x6b7580);
    const QColor dark(0x2a2f36);
    QConicalGradient rim(centre, 90);
    rim.setStops({{0, light}, {0.25, dark}, {0.5, QColor(0x3d444d)}, {0.75, dark}, {1, light}});
    QRadialGradient face(centre, radius);
    face.setStops({{0, QColor(0x1b2026)}, {1, QColor(0x0a0c0f)}});
    painter.setPen(Qt::NoPen);
    painter.setBrush(rim);
    painter.drawEllipse(centre, radius, radius);
    painter.setBrush(face);
    painter.drawEllipse(centre, radius * 0.95, radius * 0.95);
}

// Outlines as the control points of a smooth closed curve. Percent of the box round them.
constexpr QPointF kCircuit[] = {{18, 78}, {10, 60}, {12, 40}, {26, 30}, {36, 40}, {46, 46},
                                {54, 34}, {50, 18}, {62, 10}, {82, 14}, {91, 28}, {84, 42},
                                {72, 50}, {74, 64}, {88, 72}, {84, 86}, {64, 88}, {40, 90}};
constexpr QPointF kCarBody[] = {{37, 6},  {50, 4},  {63, 6},  {67, 26}, {64, 40},
                                {70, 56}, {70, 76}, {67, 94}, {50, 96}, {33, 94},
                                {30, 76}, {30, 56}, {36, 40}, {33, 26}};
constexpr QPointF kCockpit[] = {{42, 36}, {58, 36}, {58, 52}, {57, 66}, {43, 66}, {42, 52}};

QPointF into(const QRectF& box, const QPointF& percent)
{
    return {box.left() + percent.x() / 100 * box.width(),
            box.top() + percent.y() / 100 * box.height()};
}

// The middles between the points lie on the curve.
QPainterPath closedCurve(const QRectF& box, std::span<const QPointF> points)
{
    QPainterPath path(into(box, (points.back() + points.front()) / 2));
    for (std::size_t i = 0; i < points.size(); ++i)
        path.quadTo(into(box, points[i]),
                    into(box, (points[i] + points[(i + 1) % points.size()]) / 2));
    return path;
}

} // namespace

void SamplePackage::paintDial(QPainter& painter, const Tile& tile)
{
    // Runs clockwise through three quarters of a turn, open at the bottom. Degrees.
    constexpr double kStart = 225;
    constexpr double kSweep = 270;
    const QPointF centre = QRectF(tile.field).center();
    const double radius = std::min(tile.field.width(), tile.field.height()) / 2.0 - 2;
    const auto point = [&](double share, double at) {
        const double angle = (kStart - kSweep * at) * M_PI / 180;
        return centre + radius * share * QPointF(std::cos(angle), -std::sin(angle));
    };
    const auto arc = [&](const QColor& color, double width, double share, double from, double to) {
        const QPointF corner(radius * share, radius * share);
        painter.setPen(QPen(color, radius * width, Qt::SolidLine, Qt::FlatCap));
        painter.drawArc(QRectF(centre - corner, centre + corner),
                        static_cast<int>((kStart - kSweep * from) * 16), // sixteenths of a degree
                        static_cast<int>(-kSweep * (to - from) * 16));
    };
    paintDialFace(painter, centre, radius);
    const double zoneFrom = fraction(tile.range, tile.range.zoneFrom);
    const double zoneTo = fraction(tile.range, tile.range.zoneTo);
    arc(tile.accent, 0.04, 0.88, 0, zoneFrom);
    arc(tile.accent, 0.04, 0.88, zoneTo, 1);
    arc(kZone, 0.08, 0.865, zoneFrom, zoneTo);
    paintScale(tile.range, radius > 60 ? 10 : 5, [&](double at, const QString& number) {
        const bool major = !number.isEmpty();
        painter.setPen(major ? QPen(kInk, std::max(1.5, radius * 0.018)) : QPen(kDimInk, 1));
        painter.drawLine(point(0.84, at), point(0.84 * (major ? 0.88 : 0.95), at));
        setType(painter, radius * 0.15, kInk);
        const QPointF half(radius * 0.3, radius * 0.3);
        painter.drawText(QRectF(point(0.6, at) - half, point(0.6, at) + half), Qt::AlignCenter,
                         number);
    });
}

// A row of blocks like a light strip, red in the zone, above numbers.
void SamplePackage::paintBar(QPainter& painter, const Tile& tile)
{
    const QRectF rect = QRectF(tile.field).adjusted(4, 3, -4, -3);
    const double numbers = std::min(rect.height() * 0.3, 11.0); // height
    const double blocks = std::min(rect.height() * 0.38, 16.0); // height
    const double pitch = rect.width() / std::floor(rect.width() / 6);
    const double top = rect.bottom() - numbers;
    for (double x = 0; x + 1 < rect.width(); x += pitch) {
        const double at = (x + pitch / 2) / rect.width();
        const bool inZone = at >= fraction(tile.range, tile.range.zoneFrom) &&
                            at <= fraction(tile.range, tile.range.zoneTo);
        painter.fillRect(QRectF(rect.left() + x, top - blocks - 1, pitch - 1.5, blocks),
                         inZone ? withAlpha(kZone, 170) : withAlpha(tile.accent, 115));
    }
    setType(painter, numbers * 0.8, kDimInk);
    const int maxSteps = std::max(2, static_cast<int>(rect.width()) / 34);
    paintScale(tile.range, maxSteps, [&](double at, const QString& number) {
        if (number.isEmpty())
            return;
        const double x = rect.left() + at * rect.width();
        const double centre = std::clamp(x, rect.left() + 10, rect.right() - 10);
        painter.drawLine(QPointF(x, top - 1), QPointF(x, top + 1));
        painter.drawText(QRectF(centre - 20, top, 40, numbers), Qt::AlignCenter, number);
    });
}

void SamplePackage::paintLamp(QPainter& painter, const Tile& tile)
{
    const QColor color(tile.tone->name == "Alert"_L1 ? 0xff3b30 : 0xffb300);
    const QPointF centre = QRectF(tile.field).center();
    const double radius = std::min(tile.field.width(), tile.field.height()) * 0.42;
    QRadialGradient glass(centre - QPointF(0, radius / 2), radius * 1.6);
    glass.setStops({{0, withAlpha(color.lighter(130), 190)},
                    {0.6, withAlpha(color.darker(260), 230)},
                    {1, QColor(0x040506)}});
    painter.setPen(QPen(QColor(0x505862), 1.5));
    painter.setBrush(glass);
    painter.drawEllipse(centre, radius, radius);
}

// Thin lines between the texts.
void SamplePackage::paintStrip(QPainter& painter, const Tile& tile)
{
    for (const int third : {1, 2})
        painter.fillRect(tile.field.left() + third * tile.field.width() / 3, tile.field.top() + 4,
                         1, tile.field.height() - 8, QColor(255, 255, 255, 40));
}

void SamplePackage::paintTrackMap(QPainter& painter, const Tile& tile)
{
    const QRectF box = QRectF(tile.field).adjusted(8, 8, -8, -8);
    const QPainterPath path = closedCurve(box, kCircuit);
    for (const auto& [color, width] : {std::pair(QColor(0x464e58), 15), std::pair(tile.accent, 3)})
        painter.strokePath(path, QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF start = path.pointAtPercent(0);
    painter.setPen(QPen(kInk, 3));
    painter.drawLine(start - QPointF(-7, 9), start + QPointF(-7, 9));
    setType(painter, 10, kDimInk);
    painter.drawText(start + QPointF(12, -12), u"START"_s);
    painter.drawText(into(box, kCircuit[5]) + QPointF(-4, 26), u"S1"_s);
    painter.drawText(into(box, kCircuit[11]) + QPointF(-4, 26), u"S2"_s);
}

void SamplePackage::paintCarPlan(QPainter& painter, const Tile& tile)
{
    const QRectF box = QRectF(tile.field).adjusted(8, 8, -8, -8);
    const auto part = [&](const QRectF& percent, double radius, QRgb color) {
        painter.setBrush(QColor(color));
        painter.drawRoundedRect({into(box, percent.topLeft()), into(box, percent.bottomRight())},
                                radius, radius);
    };
    painter.setPen(QPen(QColor(0x5a6470), 2));
    for (const double y : {21.0, 80.0}) // axles
        painter.drawLine(into(box, {14, y}), into(box, {86, y}));
    painter.setPen(QPen(tile.accent, 2));
    for (const QPointF& wheel : {QPointF(9, 12), QPointF(9, 70), QPointF(76, 12), QPointF(76, 70)})
        part({wheel, QSizeF(15, 19)}, 5, 0x0d0f12);
    painter.setPen(QPen(QColor(0x8b95a1), 2));
    for (const QRectF& wing : {QRectF(24, 1, 52, 5), QRectF(22, 94, 56, 6)})
        part(wing, 3, 0x1e2329);
    painter.drawPath(closedCurve(box, kCarBody));
    painter.drawPath(closedCurve(box, kCockpit));
}

QImage SamplePackage::paintBackground(const Package& package, const Page& page)
{
    QImage image(package.size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBackdrop(painter, image.rect(), package.header, page.accent);
    paintName(painter, package.nameBand, page.name, page.accent);
    for (const Tile& tile : page.tiles) {
        paintPanel(painter, tile.bezel, true);
        paintPanel(painter, tile.field, false);
        if (tile.instrument->hasTitleBand)
            paintTitle(painter, tile, package.titleBand);
        if (tile.instrument->paint)
            tile.instrument->paint(painter, tile);
    }
    return image;
}
