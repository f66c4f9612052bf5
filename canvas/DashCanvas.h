#pragma once

#include "document/DashPage.h"
#include "document/ElementGeometry.h"

#include <QPointF>
#include <QRectF>
#include <QWidget>

class DashboardDocument;
class PageRef;
class QUndoStack;
class TelemetrySession;

/// Shows one page, scaled to fit and centred, and edits its elements with mouse and keyboard.
///
/// A drag changes the record live and becomes one MoveCommand on release. The canvas owns neither
/// the page nor the document, the session or the undo stack; whoever frees or moves a page's record
/// must call setPage or rebindPage first.
class DashCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit DashCanvas(QWidget* parent = nullptr);

    /// Shows a page, or nothing for null; drops selection and gesture, emits nothing.
    void setPage(DashPage* page);
    /// Shows the same page at its present place in memory, with that element selected (-1 for
    /// none), after the document's records have moved. Ends a gesture in progress; emits nothing.
    void rebindPage(DashPage* page, int selectedIndex);
    /// The document whose pages are shown, so that commands can find them again. Null for a canvas
    /// that shows a page of no document.
    void setDocument(DashboardDocument* document) { m_document = document; }
    void setSession(TelemetrySession* session);
    /// Replay position in seconds; repaints at once.
    void setReplayTime(double seconds);
    /// 0 km/h, 1 mph, 2 knots; any other index shows metres per second.
    void setSpeedUnit(int unit);
    /// Grid pitch in display pixels. Schedules no repaint: the grid follows at the next one.
    void setSnap(bool enabled, int gridSize);
    void setUndoStack(QUndoStack* stack) { m_undoStack = stack; }

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
    void clearSelectionAndRepaint();

Q_SIGNALS:
    void elementSelected(int index);
    void elementMoved(int index, int newX, int newY);
    void elementResized(int index, int newW, int newH);
    void deleteRequested(int index);

private:
    DashPage* m_page = nullptr;
    DashboardDocument* m_document = nullptr;
    QUndoStack* m_undoStack = nullptr;
    TelemetrySession* m_session = nullptr;
    int m_selectedIndex = -1;
};
