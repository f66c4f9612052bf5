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
    clearSelectionAndRepaint();
}

void DashCanvas::rebindPage(DashPage* page, int selectedIndex)
{
    m_page = page;
    m_selectedIndex = elementAt(selectedIndex) ? selectedIndex : -1;
    cancelDrag();
    select(m_selectedIndex);
}

void DashCanvas::setSession(TelemetrySession* session)
{
    m_live.session = session;
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
    m_live.seconds = seconds;
    repaint();
}

void DashCanvas::setSpeedUnit(int unit)
{
    m_live.speedUnit = static_cast<SpeedUnit>(unit);
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
    m_drag = {};
    select(-1);
}

void DashCanvas::cancelDrag()
{
    const DragGesture drag = std::exchange(m_drag, {});
    if (!drag.isActive())
        return; // the page may have moved, and its owner not have told us yet
    DashElement* const element = selectedElement();
    if (!element || !drag.holds(*element) || stackMovedSelection(drag.undoIndex()))
        return;
    ::setGeometry(*element, drag.start());
    update();
}

bool DashCanvas::event(QEvent* event)
{
    // Arrives before the shortcut runs its command, while the record can still be restored.
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
    PagePainter::paint(painter, rect(), {m_page, transform(), m_selectedIndex, m_grid, m_live},
                       m_elidedTexts);
    describe(); // whoever edits the record elsewhere schedules a repaint
}

void DashCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_page)
        return;
    cancelDrag(); // its release was lost
    setFocus(Qt::MouseFocusReason);
    const QPoint point = event->position().toPoint();
    if (const DashElement* const selected = selectedElement()) {
        const DragMode handle = GestureGeometry::handleAt(elementRect(*selected), point);
        if (handle != DragMode::Idle) {
            beginDrag(handle, point);
            return;
        }
    }
    const int hit = hitTest(point);
    if (hit != m_selectedIndex) {
        select(hit);
        Q_EMIT elementSelected(hit);
    }
    beginDrag(DragMode::Move, point);
}

void DashCanvas::mouseMoveEvent(QMouseEvent* event)
{
    DashElement* const element = selectedElement();
    if (!m_drag.isActive() || !element)
        return;
    m_drag.follow(event->position().toPoint(), *element, transform(),
                  {m_page->width, m_page->height}, m_grid);
    update();
}

void DashCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    const DragGesture drag = std::exchange(m_drag, {});
    const DashElement* const element = selectedElement();
    // Any other button ends the drag too and leaves the element where it is.
    if (event->button() != Qt::LeftButton || !drag.isActive() || !element)
        return;
    if (geometryOf(*element) != drag.start())
        commit(drag);
    update();
}

void DashCanvas::keyPressEvent(QKeyEvent* event)
{
    event->accept(); // QWidget ignores what is left to it
    const int key = event->key();
    const bool deletes = key == Qt::Key_Delete || key == Qt::Key_Backspace;
    const bool steps = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool alone = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (deletes && selectedElement()) {
        cancelDrag();
        Q_EMIT deleteRequested(m_selectedIndex);
    } else if (steps && alone) {
        cancelDrag();
        Q_EMIT pageStepRequested(key == Qt::Key_PageUp ? -1 : 1);
    } else if (key == Qt::Key_Space && alone) {
        if (!event->isAutoRepeat())
            Q_EMIT playToggleRequested();
    } else {
        QWidget::keyPressEvent(event);
    }
}

/// A menu or another window may get the release.
void DashCanvas::focusOutEvent(QFocusEvent* event)
{
    cancelDrag();
    QWidget::focusOutEvent(event);
}

PageTransform DashCanvas::transform() const
{
    return m_page ? PageTransform(size(), {m_page->width, m_page->height}) : PageTransform();
}

DashElement* DashCanvas::elementAt(int index) const
{
    return PageRef(m_page).element(index);
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

void DashCanvas::select(int index)
{
    m_selectedIndex = index;
    describe();
    update();
}

void DashCanvas::describe()
{
    const QString name = m_page ? tr("Page %1").arg(m_page->name) : tr("Page");
    const QString description = describedSelection();
    // Each call sends an event to assistive technology, also where nothing changes.
    if (accessibleName() != name)
        setAccessibleName(name);
    if (accessibleDescription() != description)
        setAccessibleDescription(description);
}

QString DashCanvas::describedSelection() const
{
    const DashElement* const element = selectedElement();
    if (!element)
        return tr("No element selected");
    const QString& channel = element->channelLongName;
    return tr("%1 at X %2, Y %3, width %4, height %5")
        .arg(channel.isEmpty() ? element->name : tr("%1 (%2)").arg(channel, element->name),
             QString::number(element->x), QString::number(element->y), QString::number(element->w),
             QString::number(element->h));
}

/// Does nothing without a selected element.
void DashCanvas::beginDrag(DragMode mode, const QPoint& press)
{
    if (const DashElement* const element = selectedElement())
        m_drag = {mode, press, *element, m_undoStack ? m_undoStack->index() : 0};
}

/// Turns what the drag did to the record into one undoable step.
void DashCanvas::commit(const DragGesture& drag)
{
    const int index = m_selectedIndex;
    if (m_undoStack) {
        DashElement& element = *elementAt(index);
        const ElementGeometry dragged = geometryOf(element);
        ::setGeometry(element, drag.start());
        m_undoStack->push(new MoveCommand(pageRef(), index, drag.start(), dragged));
    }
    // The push may have rebound this canvas, so the element is looked up again.
    const DashElement* const element = elementAt(index);
    if (!element)
        return;
    if (drag.isMove())
        Q_EMIT elementMoved(index, element->x, element->y);
    else
        Q_EMIT elementResized(index, element->w, element->h);
}

/// An undo, a redo or somebody else's push cancels a drag. Where there is a document, its pages may
/// have moved by now: rebindPage follows and cancels then.
void DashCanvas::onUndoIndexChanged()
{
    if (!m_document)
        cancelDrag();
}

/// Whether the undo stack has run a move of the selected element since it had that index.
bool DashCanvas::stackMovedSelection(int sinceUndoIndex) const
{
    if (!m_undoStack)
        return false;
    const auto [first, last] = std::minmax({sinceUndoIndex, m_undoStack->index()});
    for (int i = first; i < last; ++i) {
        const auto* const move = dynamic_cast<const MoveCommand*>(m_undoStack->command(i));
        if (move && move->moves(m_page, m_selectedIndex))
            return true;
    }
    return false;
}
