#include "canvas/ElementPainter.h"

#include "canvas/LiveText.h"
#include "canvas/Saturate.h"
#include "telemetry/TelemetrySession.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr QColor kUnboundColor(150, 150, 150);
constexpr QColor kBoundColor(200, 200, 200);
constexpr QColor kCaptionColor(160, 160, 160);

constexpr double kFarthest = ElementPainter::kFarthestPixel;

QColor tint(ElementKind kind)
{
    constexpr int kAlpha = 60;
    switch (kind) {
    case ElementKind::Analog:
        return {40, 80, 200, kAlpha};
    case ElementKind::Digit:
        return {40, 180, 60, kAlpha};
    case ElementKind::Icon:
        return {200, 180, 40, kAlpha};
    default:
        return {128, 128, 128, kAlpha};
    }
}

QPen outline(const DashElement& element, bool selected)
{
    if (selected)
        return {ElementPainter::kSelectionColor, 2.0, Qt::SolidLine};
    if (element.channelLongName.isEmpty())
        return {kUnboundColor, 1.0, Qt::DashLine};
    return {kBoundColor, 1.0, Qt::SolidLine};
}

bool isFar(double coordinate)
{
    return coordinate < -kFarthest || coordinate > kFarthest;
}

/// The rectangle clamped to what can be drawn. Visible edges keep their place, the middle may not.
QRectF drawable(const QRectF& rect)
{
    if (!isFar(rect.left()) && !isFar(rect.right()) && !isFar(rect.top()) && !isFar(rect.bottom()))
        return rect;
    const auto clamped = [](double c) { return std::clamp(c, -kFarthest, kFarthest); };
    return {QPointF(clamped(rect.left()), clamped(rect.top())),
            QPointF(clamped(rect.right()), clamped(rect.bottom()))};
}

} // namespace

ElementPainter::ElementPainter(QPainter& painter, const PageTransform& transform,
                               const LiveView& live, ElidedTexts& texts)
    : m_painter(painter),
      m_transform(transform),
      m_live(live),
      m_texts(texts)
{
    m_texts.setBaseFont(painter.font());
}

void ElementPainter::draw(const DashElement& element, bool selected) const
{
    const QRectF rect = m_transform.map(geometryOf(element));
    const QRectF box = drawable(rect);
    m_painter.fillRect(box, tint(element.kind));
    m_painter.setPen(outline(element, selected));
    m_painter.drawRect(box);
    if (m_live.session && m_live.session->isLoaded() && !element.channelLongName.isEmpty()) {
        drawValue(rect, element);
        drawCaption(rect, element.channelLongName);
    } else {
        drawPlaceholder(rect, element);
    }
}

QString ElementPainter::liveText(const QString& channel) const
{
    const double value = m_live.session->value(channel, m_live.seconds);
    return LiveText::format(LiveText::isSpeed(m_live.session->matchedName(channel))
                                ? SpeedUnits::fromMetresPerSecond(value, m_live.speedUnit)
                                : value);
}

void ElementPainter::drawValue(const QRectF& rect, const DashElement& element) const
{
    const QString text = liveText(element.channelLongName);
    const int pixelSize = LiveText::valuePixelSize(element.valueFontSize, element.h, rect.height());
    QFont font = m_painter.font();
    font.setWeight(element.kind == ElementKind::Analog ? QFont::Bold : QFont::Normal);
    font.setPixelSize(pixelSize);
    font.setPixelSize(LiveText::fittedPixelSize(pixelSize,
                                                QFontMetrics(font).horizontalAdvance(text),
                                                LiveText::availableWidth(rect.width())));
    m_painter.setFont(font);
    m_painter.setPen(element.valueColor.isValid() ? element.valueColor : QColor(Qt::white));
    m_painter.drawText(rect.adjusted(3, 2, -3, -2), Qt::AlignCenter, text);
}

void ElementPainter::drawCaption(const QRectF& rect, const QString& channel) const
{
    QFont font = m_painter.font();
    font.setPixelSize(LiveText::captionPixelSize(m_transform.scale()));
    font.setWeight(QFont::Normal);
    m_painter.setFont(font);
    m_painter.setPen(kCaptionColor);
    drawName(rect, channel, Qt::AlignLeft | Qt::AlignTop);
}

void ElementPainter::drawPlaceholder(const QRectF& rect, const DashElement& element) const
{
    m_painter.setPen(Qt::white);
    QFont font = m_painter.font();
    font.setPixelSize(LiveText::placeholderPixelSize(m_transform.scale()));
    m_painter.setFont(font);
    if (!element.channelLongName.isEmpty())
        drawName(rect, element.channelLongName, Qt::AlignLeft | Qt::AlignTop);
    drawName(rect, element.name, Qt::AlignRight | Qt::AlignBottom);
}

/// In the painter's font and pen, elided to the box.
void ElementPainter::drawName(const QRectF& rect, const QString& name, Qt::Alignment where) const
{
    constexpr int kPadding = 4; // both sides together
    const QRectF shown = drawable(rect);
    const int width = Saturate::truncate(shown.width()) - kPadding;
    m_painter.drawText(shown.adjusted(2, 1, -2, -1), static_cast<int>(where),
                       m_texts.elided(name, m_painter.font(), width));
}
