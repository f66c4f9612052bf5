#pragma once

#include "tests/canvas/CanvasFixture.h"
#include "tests/canvas/ReferenceWidget.h"

#include <algorithm>

inline const QColor kBackdrop(50, 50, 50);
inline const QColor kYellow(255, 255, 0);

/// A colour with alpha over an opaque one, as the raster engine blends.
[[nodiscard]] inline QColor over(const QColor& top, const QColor& ground)
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.fillRect(0, 0, 1, 1, top);
    painter.end();
    return image.pixelColor(0, 0);
}

/// Where a page lies on a canvas, worked out without the program's own geometry.
struct HandTransform
{
    HandTransform(const QSize& canvas, const DashPage& page)
        : scale(std::min((canvas.width() - 20) / static_cast<double>(page.width),
                         (canvas.height() - 20) / static_cast<double>(page.height))),
          origin((canvas.width() - page.width * scale) / 2,
                 (canvas.height() - page.height * scale) / 2),
          pageRect(origin, QSizeF(page.width * scale, page.height * scale))
    {
    }

    [[nodiscard]] QRectF box(const DashElement& e) const
    {
        return {origin.x() + e.x * scale, origin.y() + e.y * scale, e.w * scale, e.h * scale};
    }

    double scale;
    QPointF origin;
    QRectF pageRect;
};

/// A canvas whose pixels are looked at.
class PaintingFixture : public CanvasFixture
{
protected:
    /// An element whose texts cannot be seen: they are wider than nothing at all.
    void addBlank(const ElementGeometry& geometry, ElementKind kind = ElementKind::Digit,
                  const QString& channel = QStringLiteral(" "))
    {
        DashElement blank = makeElement(QString(), geometry, channel);
        blank.kind = kind;
        m_page.elements.push_back(blank);
    }

    [[nodiscard]] QColor pixel(const QPoint& point)
    {
        return pictureOf(m_canvas).pixelColor(point);
    }

    /// What the canvas has to look like: an empty page, and what is painted on it by hand.
    template <typename Paint>
    [[nodiscard]] QImage paintedByHand(Paint paint)
    {
        ReferenceWidget reference([&](QPainter& painter) {
            const HandTransform transform(m_canvas.size(), m_page);
            painter.fillRect(QRect(QPoint(), m_canvas.size()), kBackdrop);
            painter.fillRect(transform.pageRect, Qt::black);
            paint(painter, transform);
        });
        reference.resize(m_canvas.size());
        return pictureOf(reference);
    }
};
