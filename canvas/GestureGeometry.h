#pragma once

#include "canvas/PageTransform.h"
#include "canvas/SnapGrid.h"
#include "document/ElementGeometry.h"

#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSize>

#include <array>

/// What the mouse does to an element's rectangle, as pure functions: which handle a point grabs and
/// where a drag takes the rectangle. Saturating 64-bit arithmetic: any rectangle is safe.
namespace GestureGeometry {

/// The handles are numbered in the order in which they are hit-tested.
enum class DragMode : int
{
    Idle,
    Move,
    TopLeft,
    Top,
    TopRight,
    Left,
    Right,
    BottomLeft,
    Bottom,
    BottomRight
};

inline constexpr std::array kHandles{DragMode::TopLeft, DragMode::Top,        DragMode::TopRight,
                                     DragMode::Left,    DragMode::Right,      DragMode::BottomLeft,
                                     DragMode::Bottom,  DragMode::BottomRight};

/// Side of a handle as drawn and, deliberately larger, as grabbed; widget pixels at any zoom.
inline constexpr int kHandleSize = 6;
inline constexpr int kHandleHitSize = 12;

/// Smallest width and height that a resize leaves, before snapping; display pixels.
inline constexpr int kMinimumSize = 10;

/// The handle's centre on a rectangle, both in widget pixels.
[[nodiscard]] QPointF handlePoint(const QRectF& rect, DragMode handle);
/// A square of that side around a handle's centre.
[[nodiscard]] QRectF handleSquare(const QRectF& rect, DragMode handle, int side);
/// The first handle whose hit square holds the point, edges included; Idle for none.
[[nodiscard]] DragMode handleAt(const QRectF& rect, const QPoint& point);

/// hi if the candidate is greater, else the candidate but at least 0. So a negative hi gives hi or
/// 0.
[[nodiscard]] qint64 clampToRange(qint64 candidate, qint64 hi);

/// Where a drag takes the geometry that the element had at the press. Clamped first, then snapped,
/// so a snap may cross the page's edge.
/// @param distance from the press
[[nodiscard]] ElementGeometry applyDrag(DragMode mode, const ElementGeometry& start,
                                        const PageTransform::Distance& distance, const QSize& page,
                                        const SnapGrid& grid);

} // namespace GestureGeometry
