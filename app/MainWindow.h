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
class QShortcut;
class QToolBar;
class QUndoStack;
class ReplayBar;
struct DroppedFiles;
struct InsertElementSpec;

/// The only top-level window. It owns the editing session (document, undo stack, recording) and its
/// panes, wires them together and answers the menus. It draws nothing and edits nothing itself:
/// edits are commands on the undo stack, gestures and property edits belong to the panes.
///
/// The panes keep pointers into the document's records. syncPanes() points them anew, or clears
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
    /// One step of the history; names it in the status bar when it changed a page not shown.
    void undo();
    void redo();
    void newPage();
    void insertElement();
    void deleteSelectedElement();
    /// Deletes an element of the current page; does nothing for an index out of range.
    void deleteElement(int index);
    void clearPage();
    void showAbout();

protected:
    bool event(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void createPanes();
    void layOutPanes();
    void createMenus();
    void createToolBar();
    void addGridSnap(QToolBar* bar);
    void addSpeedUnit(QToolBar* bar);
    void createStatusBar();
    void connectPanes();

    // The panes, and what they show.
    void syncPanes();
    void updateWindowTitle();
    void onPageSelected(int index);
    void onElementSelected(int index);
    void showPageBeside(int step);
    [[nodiscard]] DashPage* currentPage();

    // Parts of the commands.
    void take(const DroppedFiles& files);
    void openPackage(const QString& path);
    [[nodiscard]] bool saveTo(const QString& path);
    void loadRecording(const QString& path);
    void insertOn(const DashPage& page, const InsertElementSpec& spec);
    void travel(int command, void (QUndoStack::*step)(), const QString& message);

    // Declared so that the recording goes first and the document last.
    DashboardDocument m_document;
    DashCanvas* m_canvas = nullptr;
    PageListPanel* m_pageList = nullptr;
    PropertyPanel* m_propertyPanel = nullptr;
    QUndoStack* m_undoStack = nullptr;
    QString m_currentFilePath; // empty before the first successful open
    int m_currentPage = 0;
    ElementKey m_selected; // in canvas and property panel alike
    TelemetrySession m_telemetry;
    ReplayBar* m_replayBar = nullptr;
    QShortcut* m_playShortcut = nullptr; // in the page list
    QLabel* m_targetDeviceBadge = nullptr;
};
