// The menus and the toolbar of the main window, as tables.

#include "app/MainWindow.h"
#include "canvas/DashCanvas.h"
#include "canvas/SnapGrid.h"
#include "canvas/SpeedUnit.h"
#include "widgets/FocusWheelComboBox.h"
#include "widgets/LiteralToolTip.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMenuBar>
#include <QToolBar>
#include <QUndoStack>

#include <utility>

namespace {

constexpr int kSpeedComboWidth = 65;

/// The keys of an action: those that the platform has for a standard command (none for an unknown
/// one), or one combination.
struct Keys
{
    constexpr Keys(QKeySequence::StandardKey key) : standard(key) {}
    constexpr Keys(QKeyCombination keys) : combination(keys) {}

    [[nodiscard]] QList<QKeySequence> sequences() const
    {
        if (combination.toCombined() != 0)
            return {combination};
        return QKeySequence::keyBindings(standard);
    }

    QKeySequence::StandardKey standard = QKeySequence::UnknownKey;
    QKeyCombination combination = QKeyCombination::fromCombined(0);
};

/// Places in menus and toolbar: entries are in the order of the table, with a separator between
/// groups.
enum class MenuGroup
{
    Files,
    Recording,
    Exit,
    History,
    Elements,
    Pages,
    Help
};
enum class ToolGroup
{
    None,
    Files,
    History,
    Recording
};

using Handler = void (*)(MainWindow*);

template <auto Member>
void call(MainWindow* window)
{
    static_cast<void>((window->*Member)());
}

struct MenuRow
{
    const char* id; ///< object name
    const char* title;
    MenuGroup first;
    MenuGroup last;
};

/// An action's button in the toolbar: an action too, without shortcuts, because the same shortcut
/// twice would be ambiguous.
struct ToolButton
{
    ToolGroup group = ToolGroup::None;
    const char* id = nullptr; ///< object name
    const char* text = nullptr;
};

/// One action with everything that it has.
struct ActionRow
{
    MenuGroup group;
    const char* id; ///< object name
    const char* text;
    Keys keys;
    Handler handler;
    ToolButton button = {};
};

constexpr MenuRow kMenus[] = {
    {"fileMenu", QT_TRANSLATE_NOOP("MainWindow", "&File"), MenuGroup::Files, MenuGroup::Exit},
    {"editMenu", QT_TRANSLATE_NOOP("MainWindow", "&Edit"), MenuGroup::History, MenuGroup::Pages},
    {"helpMenu", QT_TRANSLATE_NOOP("MainWindow", "&Help"), MenuGroup::Help, MenuGroup::Help},
};

constexpr ActionRow kActions[] = {
    {MenuGroup::Files,
     "openAction",
     QT_TRANSLATE_NOOP("MainWindow", "&Open..."),
     QKeySequence::Open,
     call<&MainWindow::openDashboard>,
     {ToolGroup::Files, "toolbarOpenAction", QT_TRANSLATE_NOOP("MainWindow", "Open")}},
    {MenuGroup::Files,
     "saveAction",
     QT_TRANSLATE_NOOP("MainWindow", "&Save"),
     QKeySequence::Save,
     call<&MainWindow::saveDashboard>,
     {ToolGroup::Files, "toolbarSaveAction", QT_TRANSLATE_NOOP("MainWindow", "Save")}},
    {MenuGroup::Files, "saveAsAction", QT_TRANSLATE_NOOP("MainWindow", "Save &As..."),
     Qt::CTRL | Qt::SHIFT | Qt::Key_S, call<&MainWindow::saveDashboardAs>},
    {MenuGroup::Recording,
     "loadTelemetryAction",
     QT_TRANSLATE_NOOP("MainWindow", "Load &XRK Data..."),
     QKeySequence::UnknownKey,
     call<&MainWindow::loadTelemetry>,
     {ToolGroup::Recording, "toolbarLoadTelemetryAction",
      QT_TRANSLATE_NOOP("MainWindow", "Load XRK")}},
    {MenuGroup::Exit, "exitAction", QT_TRANSLATE_NOOP("MainWindow", "E&xit"),
     QKeySequence::UnknownKey, call<&MainWindow::close>},
    {MenuGroup::History,
     "undoAction",
     QT_TRANSLATE_NOOP("MainWindow", "&Undo"),
     QKeySequence::Undo,
     call<&MainWindow::undo>,
     {ToolGroup::History, "toolbarUndoAction", QT_TRANSLATE_NOOP("MainWindow", "Undo")}},
    {MenuGroup::History,
     "redoAction",
     QT_TRANSLATE_NOOP("MainWindow", "&Redo"),
     QKeySequence::Redo,
     call<&MainWindow::redo>,
     {ToolGroup::History, "toolbarRedoAction", QT_TRANSLATE_NOOP("MainWindow", "Redo")}},
    {MenuGroup::Elements, "insertElementAction",
     QT_TRANSLATE_NOOP("MainWindow", "&Insert Element..."), Qt::CTRL | Qt::Key_I,
     call<&MainWindow::insertElement>},
    {MenuGroup::Elements, "deleteElementAction", QT_TRANSLATE_NOOP("MainWindow", "&Delete Element"),
     QKeySequence::Delete, call<&MainWindow::deleteSelectedElement>},
    {MenuGroup::Pages, "clearPageAction", QT_TRANSLATE_NOOP("MainWindow", "&Clear Page"),
     QKeySequence::UnknownKey, call<&MainWindow::clearPage>},
    {MenuGroup::Pages, "newPageAction", QT_TRANSLATE_NOOP("MainWindow", "&New Page"),
     Qt::CTRL | Qt::SHIFT | Qt::Key_N, call<&MainWindow::newPage>},
    {MenuGroup::Help, "aboutAction", QT_TRANSLATE_NOOP("MainWindow", "&About Gaugewright..."),
     QKeySequence::UnknownKey, call<&MainWindow::showAbout>},
};

/// "&" would mark the key of the next letter, and a menu shows what follows a tab among the
/// shortcuts.
QString menuText(QString text)
{
    return text.replace(u'&', QStringLiteral("&&")).replace(u'\t', u' ');
}

QString joined(const QString& prefix, const QString& step)
{
    return step.isEmpty() ? prefix : prefix + u' ' + step;
}

/// "Open (Ctrl+O)".
QString toolTipOf(const QString& text, const ActionRow& row)
{
    const QList<QKeySequence> keys = row.keys.sequences();
    if (keys.isEmpty())
        return literalToolTip(text);
    return literalToolTip(
        MainWindow::tr("%1 (%2)").arg(text, keys.first().toString(QKeySequence::NativeText)));
}

/// Enables an action while there is a step to undo or redo. show gets the step's text, empty for
/// none.
template <typename Show>
void followHistory(const QUndoStack* stack, QAction* action, const ActionRow& row, const Show& show)
{
    const bool undoes = row.keys.standard == QKeySequence::Undo;
    const auto textChanged = undoes ? &QUndoStack::undoTextChanged : &QUndoStack::redoTextChanged;
    const auto canChanged = undoes ? &QUndoStack::canUndoChanged : &QUndoStack::canRedoChanged;
    QObject::connect(stack, textChanged, action, show);
    QObject::connect(stack, canChanged, action, &QAction::setEnabled);
    action->setEnabled(false);
}

QAction* createAction(MainWindow* window, const char* id, const char* text, Handler handler)
{
    auto* const action = new QAction(MainWindow::tr(text), window);
    action->setObjectName(QLatin1String(id));
    QObject::connect(action, &QAction::triggered, window, [=] { handler(window); });
    return action;
}

QAction* createMenuAction(MainWindow* window, const QUndoStack* stack, const ActionRow& row)
{
    QAction* const action = createAction(window, row.id, row.text, row.handler);
    action->setShortcuts(row.keys.sequences());
    // Delete held too long must not end in "No element selected".
    action->setAutoRepeat(row.keys.standard != QKeySequence::Delete);
    if (row.group == MenuGroup::History)
        followHistory(stack, action, row, [action, row](const QString& step) {
            action->setText(joined(MainWindow::tr(row.text), menuText(step)));
        });
    return action;
}

QAction* createToolAction(MainWindow* window, const QUndoStack* stack, const ActionRow& row)
{
    QAction* const action = createAction(window, row.button.id, row.button.text, row.handler);
    action->setToolTip(toolTipOf(action->text(), row));
    if (row.group == MenuGroup::History) {
        action->setIconText(action->text()); // on the button, which keeps its place
        followHistory(stack, action, row, [action, row](const QString& step) {
            const QString prefix = MainWindow::tr(row.button.text);
            action->setText(joined(prefix, menuText(step)));
            action->setToolTip(toolTipOf(joined(prefix, step), row));
        });
    }
    return action;
}

} // namespace

void MainWindow::createMenus()
{
    for (const MenuRow& row : kMenus) {
        QMenu* const menu = menuBar()->addMenu(tr(row.title));
        menu->setObjectName(QLatin1String(row.id));
        MenuGroup group = row.first;
        for (const ActionRow& entry : kActions) {
            if (entry.group < row.first || entry.group > row.last)
                continue;
            if (std::exchange(group, entry.group) != entry.group)
                menu->addSeparator();
            menu->addAction(createMenuAction(this, m_undoStack, entry));
        }
    }
}

void MainWindow::createToolBar()
{
    QToolBar* const bar = addToolBar(tr("Main"));
    bar->setObjectName(QStringLiteral("mainToolBar"));
    const auto addActions = [&](ToolGroup group) {
        for (const ActionRow& row : kActions) {
            if (row.button.group == group)
                bar->addAction(createToolAction(this, m_undoStack, row));
        }
    };
    addActions(ToolGroup::Files);
    bar->addSeparator();
    addActions(ToolGroup::History);
    bar->addSeparator();
    addGridSnap(bar);
    bar->addSeparator();
    addActions(ToolGroup::Recording);
    bar->addSeparator();
    addSpeedUnit(bar);
}

void MainWindow::addGridSnap(QToolBar* bar)
{
    auto* const check = new QCheckBox(tr("Grid Snap"));
    check->setObjectName(QStringLiteral("gridSnapCheck"));
    connect(check, &QCheckBox::toggled, m_canvas,
            [this](bool checked) { m_canvas->setSnap(checked, SnapGrid().pitch); });
    bar->addWidget(check);
}

void MainWindow::addSpeedUnit(QToolBar* bar)
{
    auto* const combo = new FocusWheelComboBox;
    combo->setObjectName(QStringLiteral("speedUnitCombo"));
    combo->addItems(SpeedUnits::texts());
    combo->setFixedWidth(kSpeedComboWidth);
    connect(combo, &QComboBox::currentIndexChanged, m_canvas, &DashCanvas::setSpeedUnit);
    auto* const label = new QLabel(tr(" Speed: "));
    label->setBuddy(combo);
    bar->addWidget(label);
    bar->addWidget(combo);
}
