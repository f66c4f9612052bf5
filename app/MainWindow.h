#pragma once

#include "app/ElementKey.h"
#include "document/DashboardDocument.h"
#include "telemetry/TelemetrySession.h"

#include <QMainWindow>
#include <QString>

class DashCanvas;
class PageListPanel;
class PropertyPanel;
class QLabel;
class QUndoStack;
class ReplayBar;
struct InsertElementSpec;

/// The only top-level window. It owns the editing session (document, undo stack, recording) and its
/// panes, wires them together and answers the menus. It draws nothing and edits nothing itself:
/// edits are commands on the undo stack, gestures and property edits belong to the panes.
///
/// The panes keep pointers into the document's records. The window points them anew, or clears
/// them, after every change that moves or frees records.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    [[nodiscard]] const DashboardDocument& document() const { return m_document; }

    // Document commands. Each checks its own preconditions and talks to the user.

    void openDashboard();
    void saveDashboard();
    void saveDashboardAs();
    void loadTelemetry();
    void newPage();
    void insertElement();
    void deleteSelectedElement();
    /// Deletes an element of the current page; does nothing for an index out of range.
    void deleteElement(int index);
    void clearPage();
    void showAbout();

protected:
    bool event(QEvent* event) override;

private:
    void createPanes();
    void createActions();
    void createHistoryActions();
    void createMenus();
    void createToolBar();
    void createStatusBar();
    void connectPanes();

    void onPageSelected(int index);
    void onElementSelected(int index);
    void onElementGeometryChanged();
    void onUndoIndexChanged();

    [[nodiscard]] DashPage* currentPage();
    void rebuildPageList();
    void showElement(DashElement& element);
    void clearPanel();
    void rebindPanes();
    void updateWindowTitle();
    void showOpened(const QString& path);
    [[nodiscard]] bool saveTo(const QString& path);
    void insertOn(const DashPage& page, const InsertElementSpec& spec);

    // Declared so that the recording goes first and the document last.
    DashboardDocument m_document;
    DashCanvas* m_canvas = nullptr;
    PageListPanel* m_pageList = nullptr;
    PropertyPanel* m_propertyPanel = nullptr;
    QUndoStack* m_undoStack = nullptr;
    QString m_currentFilePath; // empty before the first successful open
    int m_currentPage = 0;
    ElementKey m_shownElement; // what the property panel shows
    TelemetrySession m_telemetry;
    ReplayBar* m_replayBar = nullptr;
    QLabel* m_targetDeviceBadge = nullptr;
};
