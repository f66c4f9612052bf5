#pragma once

#include "canvas/DragGesture.h"
#include "canvas/ElidedTexts.h"
#include "canvas/GestureGeometry.h"
#include "canvas/PageTransform.h"
#include "canvas/PageView.h"
#include "canvas/SnapGrid.h"
#include "document/DashPage.h"

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
/// A drag changes the record live and becomes one MoveCommand on release. Any command that runs
/// during a drag cancels it first; see cancelDrag. So does a lost release: the focus moves away (to
/// a menu, say) or the next press arrives.
///
/// The canvas owns neither page, document, session nor undo stack. It points into the records: when
/// one moves or goes, call setPage or rebindPage before the canvas handles its next event.
///
/// Accessible name and description give the page, the selected element and its place.
class DashCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit DashCanvas(QWidget* parent = nullptr);

    /// Shows a page, or nothing for null, with no element selected. A drag ends and leaves its
    /// element where it is. Emits nothing.
    void setPage(DashPage* page);
    /// Shows the same page again after records moved in memory. Cancels a drag; emits nothing.
    /// @param selectedIndex the selected element's index by now, -1 when it is gone
    void rebindPage(DashPage* page, int selectedIndex);
    /// The document whose pages are shown, so that commands can find them again. Null for a page
    /// that belongs to no document.
    void setDocument(DashboardDocument* document) { m_document = document; }
    void setSession(TelemetrySession* session);
    /// Replay position in seconds; repaints at once.
    void setReplayTime(double seconds);
    /// A value of SpeedUnit; any other shows metres per second.
    void setSpeedUnit(int unit);
    /// Grid pitch in display pixels. Schedules no repaint: the grid follows at the next one.
    void setSnap(bool enabled, int gridSize);
    void setUndoStack(QUndoStack* stack);

    /// Ends a drag and restores its element, unless something else has moved that since. Emits
    /// nothing; does nothing without a drag. Call it before any command that may run during one.
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
    /// Selects nothing. A drag ends and leaves its element where it is. Emits nothing.
    void clearSelectionAndRepaint();

Q_SIGNALS:
    /// A press changed the selection; -1 for none.
    void elementSelected(int index);
    /// A drag that changed something was released; the new values, in display pixels.
    void elementMoved(int index, int newX, int newY);
    void elementResized(int index, int newW, int newH);
    /// Delete or Backspace was pressed with an element selected. The canvas deletes nothing.
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
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] PageTransform transform() const;
    [[nodiscard]] DashElement* elementAt(int index) const;
    [[nodiscard]] DashElement* selectedElement() const { return elementAt(m_selectedIndex); }
    [[nodiscard]] int hitTest(const QPoint& point) const;
    [[nodiscard]] PageRef pageRef() const;
    void select(int index);
    void describe();
    [[nodiscard]] QString describedSelection() const;
    void beginDrag(GestureGeometry::DragMode mode, const QPoint& press);
    void commit(const DragGesture& drag);
    void onUndoIndexChanged();
    [[nodiscard]] bool stackMovedSelection(int sinceUndoIndex) const;

    DashPage* m_page = nullptr;
    DashboardDocument* m_document = nullptr;
    QPointer<QUndoStack> m_undoStack;
    int m_selectedIndex = -1;
    DragGesture m_drag;
    SnapGrid m_grid;
    LiveView m_live;
    ElidedTexts m_elidedTexts;
};
