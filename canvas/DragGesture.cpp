#include "canvas/DragGesture.h"

using GestureGeometry::DragMode;

DragGesture::DragGesture(DragMode mode, const QPoint& press, const DashElement& element,
                         int undoIndex)
    : m_mode(mode),
      m_press(press),
      m_start(geometryOf(element)),
      m_live(m_start),
      m_undoIndex(undoIndex)
{
}

void DragGesture::follow(const QPoint& mouse, DashElement& element, const PageTransform& transform,
                         const QSize& page, const SnapGrid& grid)
{
    ElementGeometry start = m_start;
    if (isMove()) {
        // A move keeps the size, also one that changed after the press.
        start.w = element.w;
        start.h = element.h;
    }
    m_live =
        GestureGeometry::applyDrag(m_mode, start, transform.distance(m_press, mouse), page, grid);
    setGeometry(element, m_live);
}

bool DragGesture::holds(const DashElement& element) const
{
    return geometryOf(element) == m_live;
}
