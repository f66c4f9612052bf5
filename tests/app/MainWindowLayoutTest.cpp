#include "tests/app/MainWindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QMetaMethod>
#include <QPushButton>
#include <QSet>
#include <QSlider>
#include <QSpinBox>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace {

using MainWindowLayout = MainWindowFixture;

/// The texts of a menu's or toolbar's entries, "|" for a separator.
QStringList entries(const QWidget* bar)
{
    QStringList texts;
    for (const QAction* const action : bar->actions())
        texts << (action->isSeparator() ? QStringLiteral("|") : action->text());
    return texts;
}

/// Calls a function when the widget that it filters hides.
class OnHide : public QObject
{
public:
    explicit OnHide(std::function<void()> function) : m_function(std::move(function)) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            m_function();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_function;
};

} // namespace

TEST_F(MainWindowLayout, StartsWithTitleSizeAndStatus)
{
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Gaugewright Studio"));
    EXPECT_EQ(m_window->size(), QSize(1280, 750));
    EXPECT_EQ(status(), QStringLiteral("Ready -- Open a .zconf2 file to begin"));
    EXPECT_FALSE(child<QLabel>("targetDeviceBadge")->isVisible());
    EXPECT_EQ(pageList().count(), 0);
    EXPECT_EQ(canvas().page(), nullptr);
    EXPECT_EQ(canvas().accessibleName(), QStringLiteral("Page"));
}

TEST_F(MainWindowLayout, HasNoSignalsOrSlotsOfItsOwn)
{
    const QMetaObject& meta = MainWindow::staticMetaObject;
    EXPECT_EQ(meta.methodCount(), meta.methodOffset());
}

TEST_F(MainWindowLayout, PanesStandInASplitterAndOnlyTheCanvasGrows)
{
    auto* const splitter = m_window->findChild<QSplitter*>();
    ASSERT_NE(splitter, nullptr);
    EXPECT_EQ(splitter->orientation(), Qt::Horizontal);
    ASSERT_EQ(splitter->count(), 3);
    EXPECT_EQ(splitter->widget(0), &pageList());
    EXPECT_EQ(splitter->widget(1), &canvas());
    EXPECT_EQ(splitter->widget(2), &panel());
    EXPECT_EQ(panel().width(), 220);

    const int canvasWidth = canvas().width();
    const int listWidth = pageList().width();
    m_window->resize(1480, 750);
    QCoreApplication::processEvents();
    EXPECT_EQ(canvas().width(), canvasWidth + 200);
    EXPECT_EQ(pageList().width(), listWidth);
    EXPECT_EQ(panel().width(), 220);
    m_window->resize(m_window->minimumSizeHint());
    QCoreApplication::processEvents();
    EXPECT_EQ(panel().width(), 220);
}

TEST_F(MainWindowLayout, TheReplayBarStandsBelowThePanes)
{
    const auto* const layout = qobject_cast<QVBoxLayout*>(m_window->centralWidget()->layout());
    ASSERT_TRUE(layout && layout->count() == 2);
    EXPECT_EQ(layout->stretch(0), 1);
    EXPECT_EQ(layout->stretch(1), 0);
    EXPECT_EQ(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    EXPECT_EQ(layout->spacing(), 0);
    EXPECT_FALSE(child<QSlider>("replaySlider")->isEnabled());
    EXPECT_FALSE(child<QPushButton>("playButton")->isEnabled());
    EXPECT_FALSE(child<QComboBox>("rateCombo")->isEnabled());
    EXPECT_EQ(child<QLabel>("timeLabel")->text(), QStringLiteral("00:00.0"));
    EXPECT_EQ(child<QTimer>("replayTimer")->interval(), 100);
    EXPECT_GT(child<QSlider>("replaySlider")->mapTo(m_window.get(), QPoint()).y(),
              canvas().mapTo(m_window.get(), canvas().rect().bottomLeft()).y());
}

TEST_F(MainWindowLayout, TheBadgeHasItsOwnLook)
{
    EXPECT_EQ(child<QLabel>("targetDeviceBadge")->styleSheet(),
              QStringLiteral("QLabel { padding: 1px 6px; background: #2a4060; color: #e0e8ff; "
                             "border-radius: 3px; font-weight: bold; }"));
}

TEST_F(MainWindowLayout, Menus)
{
    EXPECT_EQ(
        entries(m_window->menuBar()),
        QStringList({QStringLiteral("&File"), QStringLiteral("&Edit"), QStringLiteral("&Help")}));
    EXPECT_EQ(entries(child<QMenu>("fileMenu")),
              QStringList({QStringLiteral("&Open..."), QStringLiteral("&Save"),
                           QStringLiteral("Save &As..."), QStringLiteral("|"),
                           QStringLiteral("Load &XRK Data..."), QStringLiteral("|"),
                           QStringLiteral("E&xit")}));
    EXPECT_EQ(entries(child<QMenu>("editMenu")),
              QStringList({QStringLiteral("&Undo"), QStringLiteral("&Redo"), QStringLiteral("|"),
                           QStringLiteral("&Insert Element..."), QStringLiteral("&Delete Element"),
                           QStringLiteral("|"), QStringLiteral("&Clear Page"),
                           QStringLiteral("&New Page")}));
    EXPECT_EQ(entries(child<QMenu>("helpMenu")),
              QStringList({QStringLiteral("&About Gaugewright...")}));
}

TEST_F(MainWindowLayout, ToolBar)
{
    auto* const bar = m_window->findChild<QToolBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(m_window->findChildren<QToolBar*>().size(), 1);
    EXPECT_EQ(bar->windowTitle(), QStringLiteral("Main"));
    const QList<QAction*> actions = bar->actions();
    ASSERT_EQ(actions.size(), 12);
    EXPECT_EQ(entries(bar).first(6),
              QStringList({QStringLiteral("Open"), QStringLiteral("Save"), QStringLiteral("|"),
                           QStringLiteral("Undo"), QStringLiteral("Redo"), QStringLiteral("|")}));
    const auto* const check = qobject_cast<QCheckBox*>(bar->widgetForAction(actions[6]));
    ASSERT_NE(check, nullptr);
    EXPECT_EQ(check->text(), QStringLiteral("Grid Snap"));
    EXPECT_FALSE(check->isChecked());
    EXPECT_TRUE(actions[7]->isSeparator());
    EXPECT_EQ(actions[8]->text(), QStringLiteral("Load XRK"));
    EXPECT_TRUE(actions[9]->isSeparator());
    const auto* const label = qobject_cast<QLabel*>(bar->widgetForAction(actions[10]));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), QStringLiteral(" Speed: "));
    const auto* const combo = qobject_cast<QComboBox*>(bar->widgetForAction(actions[11]));
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->objectName(), QStringLiteral("speedUnitCombo"));
    EXPECT_EQ(combo->width(), 65);
    EXPECT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->itemText(0), QStringLiteral("km/h"));
    EXPECT_EQ(combo->itemText(1), QStringLiteral("mph"));
    EXPECT_EQ(combo->itemText(2), QStringLiteral("knots"));
    EXPECT_EQ(combo->currentIndex(), 0);
    EXPECT_TRUE(combo->isEnabled());
}

TEST_F(MainWindowLayout, Shortcuts)
{
    const auto shortcuts = [this](const char* id) { return child<QAction>(id)->shortcuts(); };
    EXPECT_EQ(shortcuts("openAction"), QKeySequence::keyBindings(QKeySequence::Open));
    EXPECT_EQ(shortcuts("saveAction"), QKeySequence::keyBindings(QKeySequence::Save));
    EXPECT_EQ(shortcuts("saveAsAction"),
              QList<QKeySequence>{QKeySequence(QStringLiteral("Ctrl+Shift+S"))});
    EXPECT_EQ(shortcuts("undoAction"), QKeySequence::keyBindings(QKeySequence::Undo));
    EXPECT_EQ(shortcuts("redoAction"), QKeySequence::keyBindings(QKeySequence::Redo));
    EXPECT_EQ(shortcuts("insertElementAction"),
              QList<QKeySequence>{QKeySequence(QStringLiteral("Ctrl+I"))});
    EXPECT_EQ(shortcuts("deleteElementAction"), QKeySequence::keyBindings(QKeySequence::Delete));
    EXPECT_EQ(shortcuts("newPageAction"),
              QList<QKeySequence>{QKeySequence(QStringLiteral("Ctrl+Shift+N"))});
    for (const char* const id :
         {"loadTelemetryAction", "exitAction", "clearPageAction", "aboutAction",
          "toolbarOpenAction", "toolbarSaveAction", "toolbarUndoAction", "toolbarRedoAction",
          "toolbarLoadTelemetryAction"})
        EXPECT_TRUE(shortcuts(id).isEmpty()) << id;
    for (const char* const id : {"insertElementAction", "deleteElementAction"})
        EXPECT_EQ(child<QAction>(id)->shortcutContext(), Qt::WindowShortcut) << id;
}

TEST_F(MainWindowLayout, NoShortcutIsAmbiguous)
{
    QSet<QString> seen;
    for (const QAction* const action : m_window->findChildren<QAction*>()) {
        for (const QKeySequence& key : action->shortcuts()) {
            EXPECT_FALSE(seen.contains(key.toString())) << key.toString().toStdString();
            seen.insert(key.toString());
        }
    }
    EXPECT_GE(seen.size(), 8);
}

TEST_F(MainWindowLayout, EveryEntryIsEnabledButUndoAndRedo)
{
    for (const char* const id :
         {"openAction", "saveAction", "saveAsAction", "loadTelemetryAction", "exitAction",
          "insertElementAction", "deleteElementAction", "clearPageAction", "newPageAction",
          "aboutAction", "toolbarOpenAction", "toolbarSaveAction", "toolbarLoadTelemetryAction"})
        EXPECT_TRUE(child<QAction>(id)->isEnabled()) << id;
    for (const char* const id :
         {"undoAction", "redoAction", "toolbarUndoAction", "toolbarRedoAction"})
        EXPECT_FALSE(child<QAction>(id)->isEnabled()) << id;
}

TEST_F(MainWindowLayout, UndoAndRedoSayWhatTheyWouldDo)
{
    openUsual();
    m_window->deleteElement(2);
    EXPECT_EQ(child<QAction>("undoAction")->text(), QStringLiteral("&Undo Delete race.2"));
    EXPECT_EQ(child<QAction>("toolbarUndoAction")->text(), QStringLiteral("Undo Delete race.2"));
    trigger("toolbarUndoAction");
    EXPECT_EQ(child<QAction>("redoAction")->text(), QStringLiteral("&Redo Delete race.2"));
    EXPECT_EQ(child<QAction>("toolbarRedoAction")->text(), QStringLiteral("Redo Delete race.2"));
    EXPECT_FALSE(child<QAction>("undoAction")->isEnabled());
    trigger("toolbarRedoAction");
    EXPECT_EQ(names(), QStringLiteral("race.0 race.1 race.3"));
}

TEST_F(MainWindowLayout, GridSnapSwitchesTheCanvasToTheTenPixelGrid)
{
    EXPECT_EQ(canvas().snapValue(14), 14);
    clickGridSnap();
    ASSERT_TRUE(child<QCheckBox>("gridSnapCheck")->isChecked());
    EXPECT_EQ(canvas().snapValue(14), 10);
    EXPECT_EQ(canvas().snapValue(15), 20);
    child<QCheckBox>("gridSnapCheck")->setChecked(false);
    EXPECT_EQ(canvas().snapValue(14), 14);
}

TEST_F(MainWindowLayout, ExitClosesTheWindowWithoutAQuestion)
{
    openUsual();
    m_window->deleteElement(0);
    trigger("exitAction");
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(MainWindowLayout, TheWindowCanGoWithAHalfTypedNumber)
{
    openUsual();
    clickElement(0);
    auto* const box = child<QSpinBox>("widthSpin");
    activate();
    box->setFocus();
    ASSERT_TRUE(box->hasFocus());
    box->selectAll();
    QTest::keyClick(box, Qt::Key_5); // below the minimum: leaving the field would make 10 of it
    ASSERT_EQ(elements()[0].w, 120);
    bool hidden = false;
    OnHide watch([&hidden, &panel = panel(), &canvas = canvas()] {
        hidden = true; // the records are gone by now
        EXPECT_EQ(panel.element(), nullptr);
        EXPECT_EQ(canvas.page(), nullptr);
    });
    panel().installEventFilter(&watch);
    m_window.reset();
    EXPECT_TRUE(hidden);
}

TEST_F(MainWindowLayout, TheWindowCanGoWithCommandsOnTheStackAndAnElementSelected)
{
    openUsual();
    m_window->deleteElement(0);
    clickElement(1);
    drag(1, QPoint(30, 0));
    ASSERT_EQ(stack().count(), 2);
    m_window.reset(); // handlers that ran now would use freed members
}
