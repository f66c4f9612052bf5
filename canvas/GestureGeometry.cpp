#include "canvas/GestureGeometry.h"

#include "canvas/Saturate.h"

#include <algorithm>

namespace GestureGeometry {

namespace {

/// What a drag moves along one axis: the edge at the lower coordinate, at the higher, or both.
enum class Part
{
    None,
    Near,
    Far,
    Whole
};

Part horizontalPart(DragMode mode)
{
    switch (mode) {
    case DragMode::Move:
        return Part::Whole;
    case DragMode::TopLeft:
    case DragMode::Left:
    case DragMode::BottomLeft:
        return Part::Near;
    case DragMode::TopRight:
    case DragMode::Right:
    case DragMode::BottomRight:
        return Part::Far;
    default:
        return Part::None;
    }
}

Part verticalPart(DragMode mode)
{
    switch (mode) {
    case DragMode::Move:
        return Part::Whole;
    case DragMode::TopLeft:
    case DragMode::Top:
    case DragMode::TopRight:
        return Part::Near;
    case DragMode::BottomLeft:
    case DragMode::Bottom:
    case DragMode::BottomRight:
        return Part::Far;
    default:
        return Part::None;
    }
}

double centre(double position, double size, Part part)
{
    if (part == Part::Near)
        return position;
    return part == Part::Far ? position + size : position + size / 2;
}

/// An element's extent along one axis.
struct Span
{
    qint64 position;
    qint64 size;
};

Span dragSpan(const Span& start, Part part, qint64 delta, int pageExtent, const SnapGrid& grid)
{
    Span span = start;
    switch (part) {
    case Part::Whole:
        span.position = grid.snap(clampToRange(start.position + delta, pageExtent - start.size));
        break;
    case Part::Near: {
        const qint64 end = start.position + start.size;
        span.position = grid.snap(clampToRange(start.position + delta, end - kMinimumSize));
        span.size = end - span.position;
        break;
    }
    case Part::Far:
        span.size = grid.snap(std::max<qint64>(start.size + delta, kMinimumSize));
        if (span.position + span.size > pageExtent)
            span.size = pageExtent - span.position;
        break;
    case Part::None:
        break;
    }
    return span;
}

} // namespace

QPointF handlePoint(const QRectF& rect, DragMode handle)
{
    return {centre(rect.x(), rect.width(), horizontalPart(handle)),
            centre(rect.y(), rect.height(), verticalPart(handle))};
}

QRectF handleSquare(const QRectF& rect, DragMode handle, int side)
{
    QRectF square(0, 0, side, side);
    square.moveCenter(handlePoint(rect, handle));
    return square;
}

DragMode handleAt(const QRectF& rect, const QPoint& point)
{
    const auto hit = std::find_if(kHandles.begin(), kHandles.end(), [&](DragMode handle) {
        return handleSquare(rect, handle, kHandleHitSize).contains(point);
    });
    return hit == kHandles.end() ? DragMode::Idle : *hit;
}

qint64 clampToRange(qint64 candidate, qint64 hi)
{
    return candidate > hi ? hi : std::max<qint64>(candidate, 0);
}

ElementGeometry applyDrag(DragMode mode, const ElementGeometry& start,
                          const PageTransform::Distance& distance, const QSize& page,
                          const SnapGrid& grid)
{
    const Span across =
        dragSpan({start.x, start.w}, horizontalPart(mode), distance.dx, page.width(), grid);
    const Span down =
        dragSpan({start.y, start.h}, verticalPart(mode), distance.dy, page.height(), grid);
    return {Saturate::toInt(across.position), Saturate::toInt(down.position),
            Saturate::toInt(across.size), Saturate::toInt(down.size)};
}

} // namespace GestureGeometry
