#include "samples/packages/Artwork.h"

#include <QConicalGradient>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

using SampleLayout::Range;

namespace {

// A dial runs clockwise through three quarters of a turn, open at the bottom. Degrees.
constexpr double kStartAngle = 225;
constexpr double kSweep = 270;
constexpr int kMinorTicks = 5; // intervals between two numbers

QPointF onCircle(const QPointF& centre, double radius, double fraction)
{
    const double angle = (kStartAngle - kSweep * fraction) * M_PI / 180;
    return centre + radius * QPointF(std::cos(angle), -std::sin(angle));
}

void arc(QPainter& painter, const QPointF& centre, double radius, double from, double to)
{
    constexpr int kPerDegree = 16; // Qt's unit of angles
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    painter.drawArc(box, static_cast<int>((kStartAngle - kSweep * from) * kPerDegree),
                    static_cast<int>(-kSweep * (to - from) * kPerDegree));
}

void dialFace(QPainter& painter, const QPointF& centre, double radius)
{
    QConicalGradient rim(centre, 90);
    rim.setColorAt(0, QColor(0x6b, 0x75, 0x80));
    rim.setColorAt(0.25, QColor(0x2a, 0x2f, 0x36));
    rim.setColorAt(0.5, QColor(0x3d, 0x44, 0x4d));
    rim.setColorAt(0.75, QColor(0x2a, 0x2f, 0x36));
    rim.setColorAt(1, QColor(0x6b, 0x75, 0x80));
    painter.setPen(Qt::NoPen);
    painter.setBrush(rim);
    painter.drawEllipse(centre, radius, radius);
    QRadialGradient face(centre, radius);
    face.setColorAt(0, QColor(0x1b, 0x20, 0x26));
    face.setColorAt(1, QColor(0x0a, 0x0c, 0x0f));
    painter.setBrush(face);
    painter.drawEllipse(centre, radius * 0.95, radius * 0.95);
}

// The coloured ring outside the ticks, red and wider in the zone.
void dialRing(QPainter& painter, const QPointF& centre, double radius, const Range& range,
              const QColor& accent)
{
    const double width = radius * 0.04;
    const double zoneFrom = Artwork::fraction(range, range.zoneFrom);
    const double zoneTo = Artwork::fraction(range, range.zoneTo);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(accent, width, Qt::SolidLine, Qt::FlatCap));
    arc(painter, centre, radius * 0.88, 0, zoneFrom);
    arc(painter, centre, radius * 0.88, zoneTo, 1);
    painter.setPen(QPen(Artwork::kZone, width * 2, Qt::SolidLine, Qt::FlatCap));
    arc(painter, centre, radius * 0.865, zoneFrom, zoneTo);
}

void dialNumber(QPainter& painter, const QPointF& place, double radius, double number)
{
    Artwork::setType(painter, static_cast<int>(radius * 0.15), Artwork::kInk);
    const double half = radius * 0.3;
    painter.drawText(QRectF(place.x() - half, place.y() - half, 2 * half, 2 * half),
                     Qt::AlignCenter, QString::number(number));
}

void dialTicks(QPainter& painter, const QPointF& centre, double radius, const Range& range,
               int maxSteps)
{
    const Artwork::Scale scale = Artwork::scaleOf(range, maxSteps);
    const double outer = radius * 0.84;
    for (int i = 0; i < (scale.count - 1) * kMinorTicks + 1; ++i) {
        const double value = scale.first + scale.step * i / kMinorTicks;
        const double at = Artwork::fraction(range, value);
        const bool major = i % kMinorTicks == 0;
        painter.setPen(major ? QPen(Artwork::kInk, std::max(1.5, radius * 0.018))
                             : QPen(Artwork::kDimInk, 1));
        painter.drawLine(onCircle(centre, outer, at),
                         onCircle(centre, outer * (major ? 0.88 : 0.95), at));
        if (major)
            dialNumber(painter, onCircle(centre, radius * 0.6, at), radius, value / scale.divisor);
    }
}

// A row of blocks like those of a light strip, red in the zone.
void barBlocks(QPainter& painter, const QRectF& trough, const Range& range, const QColor& accent)
{
    constexpr double kPitch = 6; // pixels, about
    constexpr double kGap = 1.5;
    const int count = static_cast<int>(trough.width() / kPitch);
    const double pitch = trough.width() / count;
    for (int i = 0; i < count; ++i) {
        const double value = range.minimum + (i + 0.5) / count * (range.maximum - range.minimum);
        const bool inZone = value >= range.zoneFrom && value <= range.zoneTo;
        QColor color = inZone ? Artwork::kZone : accent;
        color.setAlpha(inZone ? 170 : 115);
        painter.fillRect(
            QRectF(trough.left() + i * pitch, trough.top(), pitch - kGap, trough.height()), color);
    }
}

void barNumbers(QPainter& painter, const QRectF& line, const Range& range)
{
    constexpr int kPixelsPerNumber = 34;
    constexpr double kHalf = 10; // of the room that a number needs
    const int maxSteps = std::max(2, static_cast<int>(line.width()) / kPixelsPerNumber);
    const Artwork::Scale scale = Artwork::scaleOf(range, maxSteps);
    Artwork::setType(painter, static_cast<int>(line.height() * 0.8), Artwork::kDimInk);
    for (int i = 0; i < scale.count; ++i) {
        const double value = scale.first + i * scale.step;
        const double x = line.left() + Artwork::fraction(range, value) * line.width();
        const double centre = std::clamp(x, line.left() + kHalf, line.right() - kHalf);
        painter.drawLine(QPointF(x, line.top() - 1), QPointF(x, line.top() + 1));
        painter.drawText(QRectF(centre - 2 * kHalf, line.top(), 4 * kHalf, line.height()),
                         Qt::AlignCenter, QString::number(value / scale.divisor));
    }
}

} // namespace

void Artwork::dial(QPainter& painter, const QRect& rect, const Range& range, const QColor& accent)
{
    constexpr double kRoomyRadius = 60; // pixels; smaller dials carry fewer numbers
    painter.save();
    const QPointF centre = QRectF(rect).center();
    const double radius = std::min(rect.width(), rect.height()) / 2.0 - 2;
    dialFace(painter, centre, radius);
    dialRing(painter, centre, radius, range, accent);
    dialTicks(painter, centre, radius, range, radius > kRoomyRadius ? 10 : 5);
    painter.restore();
}

void Artwork::bar(QPainter& painter, const QRect& rect, const Range& range, const QColor& accent)
{
    painter.save();
    const QRectF inner = QRectF(rect).adjusted(4, 3, -4, -3);
    const double numbers = std::min(inner.height() * 0.3, 11.0);
    const double blocks = std::min(inner.height() * 0.38, 16.0);
    const double top = inner.bottom() - numbers - blocks - 1;
    barBlocks(painter, QRectF(inner.left(), top, inner.width(), blocks), range, accent);
    barNumbers(painter, QRectF(inner.left(), inner.bottom() - numbers, inner.width(), numbers),
               range);
    painter.restore();
}
