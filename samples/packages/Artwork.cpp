#include "samples/packages/Artwork.h"

#include <QFont>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <array>
#include <cmath>

using SampleLayout::Range;

namespace {

constexpr QColor kBlack{0x04, 0x05, 0x06};

QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

QLinearGradient shade(const QRectF& rect, const QColor& top, const QColor& bottom)
{
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

// The carbon fibre look: two strands that cross.
QImage weave()
{
    constexpr int kStrand = 4; // pixels
    QImage tile(2 * kStrand, 2 * kStrand, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    const QColor light(255, 255, 255, 9);
    const QColor dark(0, 0, 0, 60);
    painter.fillRect(0, 0, kStrand, kStrand, light);
    painter.fillRect(kStrand, kStrand, kStrand, kStrand, light);
    painter.fillRect(kStrand, 0, kStrand, kStrand, dark);
    painter.fillRect(0, kStrand, kStrand, kStrand, dark);
    return tile;
}

} // namespace

Artwork::Scale Artwork::scaleOf(const Range& range, int maxSteps)
{
    constexpr double kTolerance = 1e-9; // of a step, against rounding
    const double span = range.maximum - range.minimum;
    const double decade = std::pow(10.0, std::floor(std::log10(span / maxSteps)));
    Scale scale;
    for (const double factor : {1.0, 2.0, 2.5, 5.0, 10.0}) {
        scale.step = factor * decade;
        if (span / scale.step <= maxSteps + kTolerance)
            break;
    }
    scale.first = std::ceil(range.minimum / scale.step - kTolerance) * scale.step;
    const double steps = std::floor((range.maximum - scale.first) / scale.step + kTolerance);
    scale.count = static_cast<int>(steps) + 1;
    scale.divisor = range.maximum >= 2000 ? 1000 : 1;
    return scale;
}

double Artwork::fraction(const Range& range, double value)
{
    return std::clamp((value - range.minimum) / (range.maximum - range.minimum), 0.0, 1.0);
}

void Artwork::setType(QPainter& painter, int pixelSize, const QColor& color)
{
    constexpr int kSmallestSize = 5;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(std::max(pixelSize, kSmallestSize));
    font.setBold(true);
    font.setLetterSpacing(QFont::PercentageSpacing, 104);
    painter.setFont(font);
    painter.setPen(color);
}

void Artwork::backdrop(QPainter& painter, const QRect& page)
{
    painter.fillRect(page, shade(page, QColor(0x1d, 0x21, 0x27), QColor(0x0c, 0x0e, 0x11)));
    painter.fillRect(page, QBrush(weave()));
}

void Artwork::header(QPainter& painter, const QRect& band, const QColor& accent)
{
    painter.fillRect(band, shade(band, QColor(0x2a, 0x2f, 0x37), QColor(0x12, 0x15, 0x19)));
    QLinearGradient line(band.bottomLeft(), band.bottomRight());
    line.setColorAt(0, accent);
    line.setColorAt(1, withAlpha(accent, 40));
    painter.fillRect(band.left(), band.bottom() - 1, band.width(), 2, line);
}

void Artwork::pageName(QPainter& painter, const QRect& band, const QString& name,
                       const QColor& accent)
{
    painter.save();
    const double height = band.height() * 0.6;
    const double top = band.top() + (band.height() - height) / 2;
    const double width = height / 3; // of a stripe, and how far it leans
    double left = band.left() + width;
    painter.setPen(Qt::NoPen);
    for (const int alpha : {255, 170, 90}) {
        const std::array stripe{QPointF(left + width, top), QPointF(left + 2 * width, top),
                                QPointF(left + width, top + height), QPointF(left, top + height)};
        painter.setBrush(withAlpha(accent, alpha));
        painter.drawPolygon(stripe.data(), static_cast<int>(stripe.size()));
        left += width * 1.4;
    }
    setType(painter, static_cast<int>(band.height() * 0.5), kInk);
    const QRectF text = QRectF(band).adjusted(left + 2 * width - band.left(), 0, 0, 0);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, name.toUpper());
    painter.restore();
}

void Artwork::bezel(QPainter& painter, const QRect& rect)
{
    constexpr double kRadius = 5;
    painter.save();
    const QRectF frame = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(kBlack, 1));
    painter.setBrush(shade(frame, QColor(0x2c, 0x32, 0x3a), QColor(0x16, 0x19, 0x1d)));
    painter.drawRoundedRect(frame, kRadius, kRadius);
    painter.setPen(QPen(QColor(255, 255, 255, 34), 1));
    painter.drawLine(QPointF(frame.left() + kRadius, frame.top() + 1),
                     QPointF(frame.right() - kRadius, frame.top() + 1));
    painter.restore();
}

void Artwork::title(QPainter& painter, const QRect& band, const QString& text, const QString& unit,
                    const QColor& accent)
{
    painter.save();
    const int size = band.height() * 5 / 8;
    const QRect mark(band.left() + size / 2, band.top() + (band.height() - size) / 2 + 1, 3, size);
    painter.fillRect(mark, accent);
    const QRect line = band.adjusted(mark.right() + size / 2 - band.left(), 1, -size / 2, 1);
    setType(painter, size, kInk);
    QRect used;
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, text, &used);
    setType(painter, size, kDimInk);
    const int room = line.right() - used.right() - size / 2;
    if (painter.fontMetrics().horizontalAdvance(unit) <= room)
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, unit);
    painter.restore();
}

void Artwork::well(QPainter& painter, const QRect& rect)
{
    constexpr double kRadius = 3;
    painter.save();
    const QRectF field = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(QColor(0, 0, 0, 200), 1));
    painter.setBrush(shade(field, QColor(0x02, 0x03, 0x04), QColor(0x11, 0x14, 0x18)));
    painter.drawRoundedRect(field, kRadius, kRadius);
    painter.setPen(QPen(QColor(255, 255, 255, 20), 1));
    painter.drawLine(QPointF(field.left() + kRadius, field.bottom()),
                     QPointF(field.right() - kRadius, field.bottom()));
    painter.restore();
}

void Artwork::lamp(QPainter& painter, const QRect& rect, const QColor& color)
{
    painter.save();
    const double radius = std::min(rect.width(), rect.height()) * 0.42;
    const QPointF centre = QRectF(rect).center();
    QRadialGradient glass(centre - QPointF(0, radius / 2), radius * 1.6);
    glass.setColorAt(0, withAlpha(color.lighter(130), 190));
    glass.setColorAt(0.6, withAlpha(color.darker(260), 230));
    glass.setColorAt(1, kBlack);
    painter.setPen(QPen(QColor(0x50, 0x58, 0x62), 1.5));
    painter.setBrush(glass);
    painter.drawEllipse(centre, radius, radius);
    painter.restore();
}

void Artwork::columns(QPainter& painter, const QRect& rect, int count)
{
    constexpr int kInset = 4;
    for (int i = 1; i < count; ++i) {
        painter.fillRect(rect.left() + i * rect.width() / count, rect.top() + kInset, 1,
                         rect.height() - 2 * kInset, QColor(255, 255, 255, 40));
    }
}
