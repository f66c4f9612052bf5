#pragma once

#include "canvas/ElidedTexts.h"
#include "canvas/PageView.h"
#include "document/DashElement.h"

#include <QColor>
#include <QRectF>

class QPainter;

/// Draws elements as tinted, outlined boxes: with the live value and the name of their channel, or
/// without a value with the names of channel and element. Lives for one painting; keeps references
/// to what it is given.
///
/// The painter's pen and font go on from element to element. So names without a value have the
/// weight of the painter's own font until the first live value, and normal weight from then on.
class ElementPainter
{
public:
    static constexpr QColor kSelectionColor{255, 255, 0};

    ElementPainter(QPainter& painter, const PageTransform& transform, const LiveView& live,
                   ElidedTexts& texts);

    void draw(const DashElement& element, bool selected) const;

private:
    void drawBox(const QRectF& rect, const DashElement& element, bool selected) const;
    void drawLive(const QRectF& rect, const DashElement& element) const;
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
