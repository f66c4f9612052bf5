#include "canvas/DashCanvas.h"

#include "app/commands/MoveCommand.h"
#include "canvas/PagePainter.h"
#include "canvas/Saturate.h"
#include "document/DashboardDocument.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QUndoStack>

#include <algorithm>
#include <utility>

using GestureGeometry::DragMode;

DashCanvas::DashCanvas(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(400, 240);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void DashCanvas::setPage(DashPage* page)
{
    m_page = page;
    m_selectedIndex = -1;
    m_gesture = {};
    update();
}

void DashCanvas::rebindPage(DashPage* page, int selectedIndex)
{
    const Gesture gesture = std::exchange(m_gesture, {});
    m_page = page;
    m_selectedIndex = elementAt(selectedIndex) ? selectedIndex : -1;
    takeBack(gesture);
    update();
}

void DashCanvas::setSession(TelemetrySession* session)
{
    m_session = session;
    update();
}

void DashCanvas::setUndoStack(QUndoStack* stack)
{
    if (m_undoStack)
        m_undoStack->disconnect(this);
    m_undoStack = stack;
    if (stack)
        connect(stack, &QUndoStack::indexChanged, this, &DashCanvas::onUndoIndexChanged);
}

void DashCanvas::setReplayTime(double seconds)
{
    m_replaySeconds = seconds;
    repaint();
}

void DashCanvas::setSpeedUnit(int unit)
{
    m_speedUnit = static_cast<SpeedUnit>(unit);
    update();
}

void DashCanvas::setSnap(bool enabled, int gridSize)
{
    m_grid = {enabled, gridSize};
}

double DashCanvas::fitScale() const
{
    return transform().scale();
}

QPointF DashCanvas::pageOrigin() const
{
    return transform().origin();
}

QRectF DashCanvas::elementRect(const DashElement& element) const
{
    return transform().map(geometryOf(element));
}

int DashCanvas::snapValue(int v) const
{
    return Saturate::toInt(m_grid.snap(v));
}

void DashCanvas::clearSelectionAndRepaint()
{
    m_selectedIndex = -1;
    m_gesture = {};
    update();
}

void DashCanvas::cancelDrag()
{
    takeBack(std::exchange(m_gesture, {}));
}

bool DashCanvas::event(QEvent* event)
{
    // Arrives before the shortcut runs its command, while the record can still be put back exactly.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const bool undoes =
            key->matches(QKeySequence::Undo) && m_undoStack && m_undoStack->canUndo();
        const bool redoes =
            key->matches(QKeySequence::Redo) && m_undoStack && m_undoStack->canRedo();
        if (undoes || redoes || key->matches(QKeySequence::Delete))
            cancelDrag();
    }
    return QWidget::event(event);
}

void DashCanvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PagePainter::paint(
        painter, rect(),
        {m_page, transform(), m_selectedIndex, m_grid, {m_session, m_replaySeconds, m_speedUnit}},
        m_elidedTexts);
}

void DashCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_page)
        return;
    setFocus(Qt::MouseFocusReason);
    const QPoint point = event->position().toPoint();
    if (const DashElement* const selected = selectedElement()) {
        const DragMode handle = GestureGeometry::handleAt(elementRect(*selected), point);
        if (handle != DragMode::Idle) {
            beginGesture(handle, point);
            return;
        }
    }
    const int hit = hitTest(point);
    if (hit != m_selectedIndex) {
        m_selectedIndex = hit;
        Q_EMIT elementSelected(hit);
        update();
    }
    beginGesture(DragMode::Move, point);
}

void DashCanvas::mouseMoveEvent(QMouseEvent* event)
{
    DashElement* const element = selectedElement();
    if (!m_gesture.isActive() || !element)
        return;
    ElementGeometry start = m_gesture.start;
    if (m_gesture.mode == DragMode::Move) {
        // A move leaves the size alone, whoever has changed it since the press.
        start.w = element->w;
        start.h = element->h;
    }
    m_gesture.live = GestureGeometry::applyDrag(
        m_gesture.mode, start, transform().distance(m_gesture.press, event->position().toPoint()),
        {m_page->width, m_page->height}, m_grid);
    ::setGeometry(*element, m_gesture.live);
    update();
}

void DashCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    const Gesture gesture = std::exchange(m_gesture, {});
    const DashElement* const element = selectedElement();
    // Any other button ends the gesture too, leaving the element where it is.
    if (event->button() != Qt::LeftButton || !gesture.isActive() || !element)
        return;
    if (geometryOf(*element) != gesture.start)
        commit(gesture);
    update();
}

void DashCanvas::keyPressEvent(QKeyEvent* event)
{
    const bool deletes = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    const bool handled = deletes ? handleDeleteKey() : handleNavigationKey(*event);
    if (handled)
        event->accept();
    else
        QWidget::keyPressEvent(event);
}

bool DashCanvas::handleDeleteKey()
{
    if (!selectedElement())
        return false;
    cancelDrag();
    Q_EMIT deleteRequested(m_selectedIndex);
    return true;
}

bool DashCanvas::handleNavigationKey(const QKeyEvent& event)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Space:
        if (!event.isAutoRepeat())
            Q_EMIT playToggleRequested();
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        cancelDrag();
        Q_EMIT pageStepRequested(event.key() == Qt::Key_PageUp ? -1 : 1);
        return true;
    default:
        return false;
    }
}

PageTransform DashCanvas::transform() const
{
    return m_page ? PageTransform(size(), {m_page->width, m_page->height}) : PageTransform();
}

DashElement* DashCanvas::elementAt(int index) const
{
    if (!m_page || index < 0 || static_cast<std::size_t>(index) >= m_page->elements.size())
        return nullptr;
    return &m_page->elements[static_cast<std::size_t>(index)];
}

int DashCanvas::hitTest(const QPoint& point) const
{
    const PageTransform pageTransform = transform();
    const std::vector<DashElement>& elements = m_page->elements;
    const auto hit = std::find_if(elements.rbegin(), elements.rend(), [&](const DashElement& e) {
        return pageTransform.map(geometryOf(e)).contains(point);
    });
    return static_cast<int>(std::distance(hit, elements.rend())) - 1;
}

PageRef DashCanvas::pageRef() const
{
    if (m_document) {
        const std::vector<DashPage>& pages = m_document->pages();
        const auto found = std::find_if(pages.begin(), pages.end(),
                                        [this](const DashPage& page) { return &page == m_page; });
        if (found != pages.end())
            return {m_document, static_cast<int>(std::distance(pages.begin(), found))};
    }
    return PageRef(m_page);
}

/// Does nothing without a selected element.
void DashCanvas::beginGesture(DragMode mode, const QPoint& press)
{
    if (const DashElement* const element = selectedElement())
        m_gesture = {mode, press, geometryOf(*element), geometryOf(*element),
                     m_undoStack ? m_undoStack->index() : 0};
}

/// Turns what the drag has done to the record into one undoable step.
void DashCanvas::commit(const Gesture& gesture)
{
    const int index = m_selectedIndex;
    if (m_undoStack) {
        DashElement& element = *elementAt(index);
        const ElementGeometry dragged = geometryOf(element);
        ::setGeometry(element, gesture.start);
        m_undoStack->push(new MoveCommand(pageRef(), index, gesture.start, dragged));
    }
    // The push may have re-pointed this canvas, so the element is looked up again.
    const DashElement* const element = elementAt(index);
    if (!element)
        return;
    if (gesture.mode == DragMode::Move)
        Q_EMIT elementMoved(index, element->x, element->y);
    else
        Q_EMIT elementResized(index, element->w, element->h);
}

/// Ends a drag that an undo, a redo or somebody else's push interrupts. A page of a document may
/// have moved in memory by then: its owner answers with rebindPage, which does the same.
void DashCanvas::onUndoIndexChanged()
{
    if (!m_document)
        cancelDrag();
}

/// Whether a command that has run since the press moved the dragged element itself.
bool DashCanvas::stackMovedSelection(const Gesture& gesture) const
{
    if (!m_undoStack)
        return false;
    const auto [first, last] = std::minmax({gesture.undoIndex, m_undoStack->index()});
    for (int i = first; i < last; ++i) {
        const auto* const move = dynamic_cast<const MoveCommand*>(m_undoStack->command(i));
        if (move && move->moves(m_page, m_selectedIndex))
            return true;
    }
    return false;
}

/// Puts the dragged element back to where it was at the press, unless something else has moved it.
/// Without a drag the page is not looked at: its record may have moved, and its owner not said so
/// yet.
void DashCanvas::takeBack(const Gesture& gesture)
{
    if (!gesture.isActive())
        return;
    DashElement* const element = selectedElement();
    if (!element || geometryOf(*element) != gesture.live || stackMovedSelection(gesture))
        return;
    ::setGeometry(*element, gesture.start);
    update();
}
