#include "samples/packages/Artwork.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace {

// Outline of an invented circuit, in a box of 100 x 100.
constexpr std::array kCircuit{QPointF(18, 78), QPointF(10, 60), QPointF(12, 40), QPointF(26, 30),
                              QPointF(36, 40), QPointF(46, 46), QPointF(54, 34), QPointF(50, 18),
                              QPointF(62, 10), QPointF(82, 14), QPointF(91, 28), QPointF(84, 42),
                              QPointF(72, 50), QPointF(74, 64), QPointF(88, 72), QPointF(84, 86),
                              QPointF(64, 88), QPointF(40, 90)};
constexpr std::array<std::size_t, 2> kSectorEnds{5, 11};

QPointF into(const QRectF& box, const QPointF& percent)
{
    return {box.left() + percent.x() / 100 * box.width(),
            box.top() + percent.y() / 100 * box.height()};
}

QRectF into(const QRectF& box, const QPointF& topLeft, const QPointF& bottomRight)
{
    return {into(box, topLeft), into(box, bottomRight)};
}

// A closed smooth curve: the points are the controls, the middles between them lie on the curve.
QPainterPath circuit(const QRectF& box)
{
    const auto middle = [&](std::size_t i) {
        const std::size_t next = (i + 1) % kCircuit.size();
        return into(box, (kCircuit[i] + kCircuit[next]) / 2);
    };
    QPainterPath path(middle(kCircuit.size() - 1));
    for (std::size_t i = 0; i < kCircuit.size(); ++i)
        path.quadTo(into(box, kCircuit[i]), middle(i));
    return path;
}

QPainterPath carBody(const QRectF& box)
{
    QPainterPath body(into(box, {38, 10}));
    body.quadTo(into(box, {50, 4}), into(box, {62, 10}));
    body.cubicTo(into(box, {70, 24}), into(box, {64, 34}), into(box, {67, 48}));
    body.cubicTo(into(box, {72, 62}), into(box, {70, 82}), into(box, {66, 92}));
    body.quadTo(into(box, {50, 97}), into(box, {34, 92}));
    body.cubicTo(into(box, {30, 82}), into(box, {28, 62}), into(box, {33, 48}));
    body.cubicTo(into(box, {36, 34}), into(box, {30, 24}), into(box, {38, 10}));
    return body;
}

QPainterPath cockpit(const QRectF& box)
{
    QPainterPath path(into(box, {42, 42}));
    path.quadTo(into(box, {50, 34}), into(box, {58, 42}));
    path.lineTo(into(box, {57, 62}));
    path.quadTo(into(box, {50, 67}), into(box, {43, 62}));
    path.closeSubpath();
    return path;
}

QRectF framedBox(QPainter& painter, const QRect& rect)
{
    Artwork::bezel(painter, rect);
    const QRect inner = rect.adjusted(4, 4, -4, -4);
    Artwork::well(painter, inner);
    return QRectF(inner).adjusted(8, 8, -8, -8);
}

} // namespace

void Artwork::trackMap(QPainter& painter, const QRect& rect, const QColor& accent)
{
    painter.save();
    const QRectF box = framedBox(painter, rect);
    const QPainterPath path = circuit(box);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0x46, 0x4e, 0x58), 15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setPen(QPen(accent, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);

    const QPointF start = path.pointAtPercent(0);
    painter.setPen(QPen(kInk, 3));
    painter.drawLine(start - QPointF(-7, 9), start + QPointF(-7, 9));
    setType(painter, 10, kDimInk);
    painter.drawText(start + QPointF(12, -12), QStringLiteral("START"));
    int number = 1;
    for (const std::size_t end : kSectorEnds) {
        painter.drawText(into(box, kCircuit[end]) + QPointF(-4, 26),
                         u'S' + QString::number(number++));
    }
    painter.restore();
}

void Artwork::carPlan(QPainter& painter, const QRect& rect, const QColor& accent)
{
    painter.save();
    const QRectF box = framedBox(painter, rect);
    painter.setPen(QPen(QColor(0x5a, 0x64, 0x70), 2));
    for (const double y : {21.0, 80.0})
        painter.drawLine(into(box, {14, y}), into(box, {86, y}));
    painter.setPen(QPen(accent, 2));
    painter.setBrush(QColor(0x0d, 0x0f, 0x12));
    for (const double x : {9.0, 76.0}) {
        for (const double y : {12.0, 70.0})
            painter.drawRoundedRect(into(box, {x, y}, {x + 15, y + 19}), 5, 5);
    }
    painter.setPen(QPen(QColor(0x8b, 0x95, 0xa1), 2));
    painter.setBrush(QColor(0x1e, 0x23, 0x29));
    painter.drawRoundedRect(into(box, {24, 1}, {76, 6}), 3, 3);
    painter.drawRoundedRect(into(box, {22, 94}, {78, 100}), 3, 3);
    painter.drawPath(carBody(box));
    painter.drawPath(cockpit(box));
    painter.restore();
}
