#pragma once

#include "document/ElementGeometry.h"

#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSize>

/// Maps display pixels to widget pixels: the page scaled to fit with a margin, and centred. A plain
/// value without a widget. Without a page, or for one without area, the scale is 1 and the origin
/// is at the margin.
class PageTransform
{
public:
    /// Widget pixels left free at the two edges that limit the scale.
    static constexpr int kMargin = 10;

    /// A distance in whole display pixels.
    struct Distance
    {
        qint64 dx = 0;
        qint64 dy = 0;
    };

    PageTransform() = default;
    PageTransform(const QSize& widget, const QSize& page);

    /// The page alone, without a margin: its top left corner at 0, 0.
    [[nodiscard]] static PageTransform atScale(double scale, const QSize& page);

    /// Widget pixels per display pixel.
    [[nodiscard]] double scale() const { return m_scale; }
    /// The page's top left corner in widget pixels.
    [[nodiscard]] QPointF origin() const { return m_origin; }
    /// The whole page in widget pixels; empty when it has no area.
    [[nodiscard]] QRectF pageRect() const { return m_pageRect; }
    /// A rectangle of display pixels in widget pixels.
    [[nodiscard]] QRectF map(const ElementGeometry& geometry) const;
    /// How far a mouse has gone, truncated toward zero.
    [[nodiscard]] Distance distance(const QPoint& from, const QPoint& to) const;

private:
    double m_scale = 1.0;
    QPointF m_origin{kMargin, kMargin};
    QRectF m_pageRect;
};
