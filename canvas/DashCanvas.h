#pragma once

#include "canvas/ElidedTexts.h"
#include "canvas/GestureGeometry.h"
#include "canvas/PageTransform.h"
#include "canvas/SnapGrid.h"
#include "canvas/SpeedUnit.h"
#include "document/DashPage.h"
#include "document/ElementGeometry.h"

#include <QPointF>
#include <QPointer>
#include <QRectF>
#include <QWidget>

class DashboardDocument;
class PageRef;
class QUndoStack;
class TelemetrySession;

/// Shows one page, scaled to fit and centred, and edits its elements with mouse and keyboard.
///
/// A drag changes the record live and becomes one MoveCommand on release. An undo, a redo or a
/// deletion in the middle of a drag ends it, and the element stands again where it was at the
/// press, or where that step has put it. The canvas owns neither the page nor the document, the
/// session or the undo stack; whoever frees or moves a page's record must call setPage or
/// rebindPage before the canvas handles its next event.
class DashCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit DashCanvas(QWidget* parent = nullptr);

    /// Shows a page, or nothing for null; drops selection and gesture, emits nothing. An element
    /// that is being dragged stays where it is.
    void setPage(DashPage* page);
    /// Shows the same page at its present place in memory, after the document's records have moved;
    /// selectedIndex is where the selected element stands now, -1 when it is gone. Ends a gesture
    /// in progress, taking the drag back if the element is still where the drag left it; emits
    /// nothing.
    void rebindPage(DashPage* page, int selectedIndex);
    /// The document whose pages are shown, so that commands can find them again. Null for a canvas
    /// that shows a page of no document.
    void setDocument(DashboardDocument* document) { m_document = document; }
    void setSession(TelemetrySession* session);
    /// Replay position in seconds; repaints at once.
    void setReplayTime(double seconds);
    /// A value of SpeedUnit; any other shows metres per second.
    void setSpeedUnit(int unit);
    /// Grid pitch in display pixels. Schedules no repaint: the grid follows at the next one.
    void setSnap(bool enabled, int gridSize);
    void setUndoStack(QUndoStack* stack);

    /// Ends a drag in progress: the element is back where the drag began, unless something else has
    /// moved it since. Emits nothing; does nothing without a drag. To be called before any command
    /// that may run during a drag.
    void cancelDrag();

    [[nodiscard]] DashPage* page() const { return m_page; }
    /// -1 when nothing is selected.
    [[nodiscard]] int selectedIndex() const { return m_selectedIndex; }

    /// Widget pixels per display pixel; 1 without a page.
    [[nodiscard]] double fitScale() const;
    /// Top left corner of the page in widget pixels; (10, 10) without a page.
    [[nodiscard]] QPointF pageOrigin() const;
    /// The element's rectangle in widget pixels.
    [[nodiscard]] QRectF elementRect(const DashElement& element) const;
    /// v rounded to the grid while snapping is on; display pixels.
    [[nodiscard]] int snapValue(int v) const;

public Q_SLOTS:
    /// Nothing selected, no gesture; emits nothing.
    void clearSelectionAndRepaint();

Q_SIGNALS:
    /// A press changed the selection; -1 when it hit nothing.
    void elementSelected(int index);
    /// A drag that changed something has ended; values after the change, in display pixels.
    void elementMoved(int index, int newX, int newY);
    void elementResized(int index, int newW, int newH);
    /// Delete or Backspace with an element selected. The canvas itself deletes nothing.
    void deleteRequested(int index);
    /// Space was pressed: start or stop the replay.
    void playToggleRequested();
    /// Page Up or Page Down was pressed, which has ended any drag: show the page that is delta (-1
    /// or 1) further down the list.
    void pageStepRequested(int delta);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A drag from its press to its release.
    struct Gesture
    {
        GestureGeometry::DragMode mode = GestureGeometry::DragMode::Idle;
        QPoint press;          ///< widget pixels
        ElementGeometry start; ///< the element at the press
        ElementGeometry live;  ///< where the drag has taken it
        int undoIndex = 0;     ///< of the undo stack at the press

        [[nodiscard]] bool isActive() const { return mode != GestureGeometry::DragMode::Idle; }
    };

    [[nodiscard]] PageTransform transform() const;
    [[nodiscard]] DashElement* elementAt(int index) const;
    [[nodiscard]] DashElement* selectedElement() const { return elementAt(m_selectedIndex); }
    [[nodiscard]] int hitTest(const QPoint& point) const;
    [[nodiscard]] PageRef pageRef() const;
    void beginGesture(GestureGeometry::DragMode mode, const QPoint& press);
    void commit(const Gesture& gesture);
    void takeBack(const Gesture& gesture);
    [[nodiscard]] bool handleDeleteKey();
    [[nodiscard]] bool handleNavigationKey(const QKeyEvent& event);
    void onUndoIndexChanged();
    [[nodiscard]] bool stackMovedSelection(const Gesture& gesture) const;

    DashPage* m_page = nullptr;
    DashboardDocument* m_document = nullptr;
    QPointer<QUndoStack> m_undoStack;
    TelemetrySession* m_session = nullptr;
    int m_selectedIndex = -1;
    Gesture m_gesture;
    SnapGrid m_grid;
    double m_replaySeconds = 0.0;
    SpeedUnit m_speedUnit = SpeedUnit::KilometresPerHour;
    ElidedTexts m_elidedTexts;
};
