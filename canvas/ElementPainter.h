#pragma once

#include "canvas/ElidedTexts.h"
#include "canvas/PageView.h"
#include "document/DashElement.h"

#include <QColor>
#include <QRectF>

class QPainter;

/// Draws elements as tinted, outlined boxes: with the channel's live value and name, or without a
/// value with the names of channel and element. Keeps references to its arguments, for one
/// painting.
///
/// Pen and font of the painter carry over from element to element: names without a value have the
/// weight of its initial font up to the first live value, and normal weight after it.
class ElementPainter
{
public:
    static constexpr QColor kSelectionColor{255, 255, 0};
    /// Boxes are cut off at this distance from the origin, in painted pixels. The raster engine and
    /// text elision compute in 32-bit fixed point, which overflows far beyond it.
    static constexpr int kFarthestPixel = 16'384;

    ElementPainter(QPainter& painter, const PageTransform& transform, const LiveView& live,
                   ElidedTexts& texts);

    void draw(const DashElement& element, bool selected) const;

private:
    void drawValue(const QRectF& rect, const DashElement& element) const;
    void drawCaption(const QRectF& rect, const QString& channel) const;
    void drawPlaceholder(const QRectF& rect, const DashElement& element) const;
    void drawName(const QRectF& rect, const QString& name, Qt::Alignment where) const;
    [[nodiscard]] QString liveText(const QString& channel) const;

    QPainter& m_painter;
    const PageTransform& m_transform;
    const LiveView& m_live;
    ElidedTexts& m_texts;
};
