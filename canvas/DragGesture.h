#pragma once

#include "canvas/GestureGeometry.h"
#include "canvas/PageTransform.h"
#include "canvas/SnapGrid.h"
#include "document/DashElement.h"
#include "document/ElementGeometry.h"

#include <QPoint>
#include <QSize>

/// One drag of an element, from press to release. A plain value without a widget; the default one
/// is no drag. Writes the element's rectangle and keeps where it was at the press.
class DragGesture
{
public:
    DragGesture() = default;
    /// @param press widget pixels
    /// @param undoIndex of the undo stack at the press
    DragGesture(GestureGeometry::DragMode mode, const QPoint& press, const DashElement& element,
                int undoIndex);

    [[nodiscard]] bool isActive() const { return m_mode != GestureGeometry::DragMode::Idle; }
    [[nodiscard]] bool isMove() const { return m_mode == GestureGeometry::DragMode::Move; }
    /// The element's rectangle at the press.
    [[nodiscard]] const ElementGeometry& start() const { return m_start; }
    [[nodiscard]] int undoIndex() const { return m_undoIndex; }

    /// Moves or resizes the element as the mouse, now at that widget pixel, asks for.
    void follow(const QPoint& mouse, DashElement& element, const PageTransform& transform,
                const QSize& page, const SnapGrid& grid);
    /// Whether the element is where this drag has taken it: nothing else has moved it since.
    [[nodiscard]] bool holds(const DashElement& element) const;

private:
    GestureGeometry::DragMode m_mode = GestureGeometry::DragMode::Idle;
    QPoint m_press;
    ElementGeometry m_start;
    ElementGeometry m_live;
    int m_undoIndex = 0;
};
