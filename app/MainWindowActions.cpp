// The menus and the toolbar of the main window, as tables.

#include "app/MainWindow.h"
#include "canvas/DashCanvas.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QToolBar>
#include <QUndoStack>

#include <functional>
#include <vector>

namespace {

constexpr int kGridStep = 10; // display pixels
constexpr int kSpeedComboWidth = 65;
constexpr const char* kSeparator = nullptr;

struct ActionSpec
{
    const char* id; ///< object name
    QString text;
    QList<QKeySequence> shortcuts;
    std::function<void(MainWindow*)> handler;
};

/// Every action but undo and redo, which the stack makes. Shortcuts work in the whole window; the
/// toolbar's actions carry none, because the same shortcut twice would be ambiguous.
std::vector<ActionSpec> actionTable()
{
    const auto standard = &QKeySequence::keyBindings;
    return {
        {"openAction", MainWindow::tr("&Open..."), standard(QKeySequence::Open),
         &MainWindow::openDashboard},
        {"saveAction", MainWindow::tr("&Save"), standard(QKeySequence::Save),
         &MainWindow::saveDashboard},
        {"saveAsAction",
         MainWindow::tr("Save &As..."),
         {Qt::CTRL | Qt::SHIFT | Qt::Key_S},
         &MainWindow::saveDashboardAs},
        {"loadTelemetryAction",
         MainWindow::tr("Load &XRK Data..."),
         {},
         &MainWindow::loadTelemetry},
        {"exitAction", MainWindow::tr("E&xit"), {}, &QWidget::close},
        {"insertElementAction",
         MainWindow::tr("&Insert Element..."),
         {Qt::CTRL | Qt::Key_I},
         &MainWindow::insertElement},
        {"deleteElementAction", MainWindow::tr("&Delete Element"), standard(QKeySequence::Delete),
         &MainWindow::deleteSelectedElement},
        {"clearPageAction", MainWindow::tr("&Clear Page"), {}, &MainWindow::clearPage},
        {"newPageAction",
         MainWindow::tr("&New Page"),
         {Qt::CTRL | Qt::SHIFT | Qt::Key_N},
         &MainWindow::newPage},
        {"aboutAction", MainWindow::tr("&About Gaugewright..."), {}, &MainWindow::showAbout},
        {"toolbarOpenAction", MainWindow::tr("Open"), {}, &MainWindow::openDashboard},
        {"toolbarSaveAction", MainWindow::tr("Save"), {}, &MainWindow::saveDashboard},
        {"toolbarLoadTelemetryAction", MainWindow::tr("Load XRK"), {}, &MainWindow::loadTelemetry},
    };
}

/// Adds the window's actions of these names to a menu or toolbar.
template <typename Bar>
void addEntries(Bar* bar, const MainWindow* window, const std::vector<const char*>& ids)
{
    for (const char* const id : ids) {
        if (id == kSeparator)
            bar->addSeparator();
        else
            bar->addAction(window->findChild<QAction*>(QLatin1String(id)));
    }
}

} // namespace

void MainWindow::createActions()
{
    for (const ActionSpec& spec : actionTable()) {
        auto* const action = new QAction(spec.text, this);
        action->setObjectName(QLatin1String(spec.id));
        action->setShortcuts(spec.shortcuts);
        connect(action, &QAction::triggered, this,
                [this, handler = spec.handler] { handler(this); });
    }
    createHistoryActions();
}

void MainWindow::createHistoryActions()
{
    QAction* const undo = m_undoStack->createUndoAction(this, tr("&Undo"));
    undo->setObjectName(QStringLiteral("undoAction"));
    undo->setShortcuts(QKeySequence::Undo);
    QAction* const redo = m_undoStack->createRedoAction(this, tr("&Redo"));
    redo->setObjectName(QStringLiteral("redoAction"));
    redo->setShortcuts(QKeySequence::Redo);
    m_undoStack->createUndoAction(this, tr("Undo"))
        ->setObjectName(QStringLiteral("toolbarUndoAction"));
    m_undoStack->createRedoAction(this, tr("Redo"))
        ->setObjectName(QStringLiteral("toolbarRedoAction"));
}

void MainWindow::createMenus()
{
    const auto addMenu = [this](const char* id, const QString& title,
                                const std::vector<const char*>& entries) {
        QMenu* const menu = menuBar()->addMenu(title);
        menu->setObjectName(QLatin1String(id));
        addEntries(menu, this, entries);
    };
    addMenu("fileMenu", tr("&File"),
            {"openAction", "saveAction", "saveAsAction", kSeparator, "loadTelemetryAction",
             kSeparator, "exitAction"});
    addMenu("editMenu", tr("&Edit"),
            {"undoAction", "redoAction", kSeparator, "insertElementAction", "deleteElementAction",
             kSeparator, "clearPageAction", "newPageAction"});
    addMenu("helpMenu", tr("&Help"), {"aboutAction"});
}

void MainWindow::createToolBar()
{
    QToolBar* const bar = addToolBar(tr("Main"));
    bar->setObjectName(QStringLiteral("mainToolBar"));
    addEntries(bar, this,
               {"toolbarOpenAction", "toolbarSaveAction", kSeparator, "toolbarUndoAction",
                "toolbarRedoAction", kSeparator});

    auto* const gridSnapCheck = new QCheckBox(tr("Grid Snap"));
    gridSnapCheck->setObjectName(QStringLiteral("gridSnapCheck"));
    connect(gridSnapCheck, &QCheckBox::toggled, m_canvas,
            [this](bool checked) { m_canvas->setSnap(checked, kGridStep); });
    bar->addWidget(gridSnapCheck);
    addEntries(bar, this, {kSeparator, "toolbarLoadTelemetryAction", kSeparator});

    auto* const speedUnitCombo = new QComboBox;
    speedUnitCombo->setObjectName(QStringLiteral("speedUnitCombo"));
    speedUnitCombo->addItems({tr("km/h"), tr("mph"), tr("knots")}); // in the canvas's order
    speedUnitCombo->setFixedWidth(kSpeedComboWidth);
    connect(speedUnitCombo, &QComboBox::currentIndexChanged, m_canvas, &DashCanvas::setSpeedUnit);
    auto* const speedLabel = new QLabel(tr(" Speed: "));
    speedLabel->setBuddy(speedUnitCombo);
    bar->addWidget(speedLabel);
    bar->addWidget(speedUnitCombo);
}
