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

struct Parts
{
    Part across;
    Part down;
};

constexpr std::array kParts{
    Parts{Part::None, Part::None},   // Idle
    Parts{Part::Whole, Part::Whole}, // Move
    Parts{Part::Near, Part::Near},   // TopLeft
    Parts{Part::None, Part::Near},   // Top
    Parts{Part::Far, Part::Near},    // TopRight
    Parts{Part::Near, Part::None},   // Left
    Parts{Part::Far, Part::None},    // Right
    Parts{Part::Near, Part::Far},    // BottomLeft
    Parts{Part::None, Part::Far},    // Bottom
    Parts{Part::Far, Part::Far},     // BottomRight
};

const Parts& partsOf(DragMode mode)
{
    return kParts.at(static_cast<std::size_t>(mode));
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
    switch (part) {
    case Part::Whole:
        return {grid.snap(clampToRange(start.position + delta, pageExtent - start.size)),
                start.size};
    case Part::Near: {
        const qint64 end = start.position + start.size;
        const qint64 position = grid.snap(clampToRange(start.position + delta, end - kMinimumSize));
        return {position, end - position};
    }
    case Part::Far: {
        const qint64 size = grid.snap(std::max<qint64>(start.size + delta, kMinimumSize));
        return {start.position, std::min(size, pageExtent - start.position)};
    }
    case Part::None:
        break;
    }
    return start;
}

} // namespace

QPointF handlePoint(const QRectF& rect, DragMode handle)
{
    return {centre(rect.x(), rect.width(), partsOf(handle).across),
            centre(rect.y(), rect.height(), partsOf(handle).down)};
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
        dragSpan({start.x, start.w}, partsOf(mode).across, distance.dx, page.width(), grid);
    const Span down =
        dragSpan({start.y, start.h}, partsOf(mode).down, distance.dy, page.height(), grid);
    return {Saturate::toInt(across.position), Saturate::toInt(down.position),
            Saturate::toInt(across.size), Saturate::toInt(down.size)};
}

} // namespace GestureGeometry
