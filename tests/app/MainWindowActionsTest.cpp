// Menus and toolbar at work.

#include "tests/app/MainWindowFixture.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTextDocument>
#include <QToolBar>
#include <QToolButton>

namespace {

using TestPackage::digitElement;

class MainWindowActions : public MainWindowFixture
{
protected:
    [[nodiscard]] QToolBar& bar() const { return *child<QToolBar>("mainToolBar"); }
    [[nodiscard]] QToolButton& button(const char* action) const
    {
        auto* const found =
            qobject_cast<QToolButton*>(bar().widgetForAction(child<QAction>(action)));
        EXPECT_NE(found, nullptr) << action;
        return *found;
    }
    [[nodiscard]] QString toolTip(const char* action) const { return button(action).toolTip(); }
    static QString key(QKeySequence::StandardKey standard)
    {
        return QKeySequence::keyBindings(standard).constFirst().toString(QKeySequence::NativeText);
    }
    void openWithChannel(const QByteArray& channel)
    {
        open(writePackage(
            QStringLiteral("named.zconf2"),
            {TestPackage::page("A", 800, 480, {digitElement("a", 50, 50, 120, 60, channel)})}));
    }
};

} // namespace

TEST_F(MainWindowActions, UndoAndRedoKeepTextAndPlaceInTheToolBar)
{
    openUsual();
    const QRect undo = button("toolbarUndoAction").geometry();
    const QRect redo = button("toolbarRedoAction").geometry();
    m_window->deleteElement(0);
    m_window->deleteElement(0);
    // Three clicks in one place do the same thing.
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        EXPECT_EQ(button("toolbarUndoAction").text(), QStringLiteral("Undo"));
        EXPECT_EQ(button("toolbarRedoAction").text(), QStringLiteral("Redo"));
        EXPECT_EQ(button("toolbarUndoAction").geometry(), undo);
        EXPECT_EQ(button("toolbarRedoAction").geometry(), redo);
        QTest::mouseClick(&bar(), Qt::LeftButton, {}, undo.center());
        QTest::mouseClick(bar().childAt(undo.center()), Qt::LeftButton);
    }
    EXPECT_EQ(stack().index(), 0);
    EXPECT_EQ(elements().size(), 4U);
}

TEST_F(MainWindowActions, ToolTipsNameTheWholeStepAndTheShortcut)
{
    EXPECT_EQ(toolTip("toolbarOpenAction"),
              QStringLiteral("Open (%1)").arg(key(QKeySequence::Open)));
    EXPECT_EQ(toolTip("toolbarSaveAction"),
              QStringLiteral("Save (%1)").arg(key(QKeySequence::Save)));
    EXPECT_EQ(toolTip("toolbarLoadTelemetryAction"), QStringLiteral("Load XRK"));
    EXPECT_EQ(toolTip("toolbarUndoAction"),
              QStringLiteral("Undo (%1)").arg(key(QKeySequence::Undo)));
    openUsual();
    m_window->deleteElement(2);
    EXPECT_EQ(toolTip("toolbarUndoAction"),
              QStringLiteral("Undo Delete race.2 (%1)").arg(key(QKeySequence::Undo)));
    trigger("toolbarUndoAction");
    EXPECT_EQ(toolTip("toolbarUndoAction"),
              QStringLiteral("Undo (%1)").arg(key(QKeySequence::Undo)));
    EXPECT_EQ(toolTip("toolbarRedoAction"),
              QStringLiteral("Redo Delete race.2 (%1)").arg(key(QKeySequence::Redo)));
}

TEST_F(MainWindowActions, ATabInANameIsABlankInTheMenu)
{
    openWithChannel("Oil&#9;Temp");
    m_window->deleteElement(0);
    EXPECT_EQ(child<QAction>("undoAction")->text(), QStringLiteral("&Undo Delete Oil Temp"));
    EXPECT_EQ(child<QAction>("toolbarUndoAction")->text(), QStringLiteral("Undo Delete Oil Temp"));
}

TEST_F(MainWindowActions, AnAmpersandInANameIsShown)
{
    openWithChannel("Oil &amp; Water");
    m_window->deleteElement(0);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Delete Oil & Water"));
    EXPECT_EQ(child<QAction>("undoAction")->text(), QStringLiteral("&Undo Delete Oil && Water"));
    EXPECT_EQ(child<QAction>("toolbarUndoAction")->text(),
              QStringLiteral("Undo Delete Oil && Water"));
    EXPECT_EQ(toolTip("toolbarUndoAction"),
              QStringLiteral("Undo Delete Oil & Water (%1)").arg(key(QKeySequence::Undo)));
}

TEST_F(MainWindowActions, AToolTipShowsMarkupAsText)
{
    openWithChannel("&lt;b&gt;x&lt;/b&gt;");
    m_window->deleteElement(0);
    QTextDocument shown;
    shown.setHtml(toolTip("toolbarUndoAction"));
    EXPECT_EQ(shown.toPlainText(),
              QStringLiteral("Undo Delete <b>x</b> (%1)").arg(key(QKeySequence::Undo)));
}

TEST_F(MainWindowActions, OpeningAMenuLeavesTheStatusText)
{
    openUsual();
    trigger("saveAction");
    for (QAction* const menu : m_window->menuBar()->actions()) {
        const QRect title = m_window->menuBar()->actionGeometry(menu);
        QTest::mouseMove(m_window->menuBar(), title.center());
        QTest::mouseClick(m_window->menuBar(), Qt::LeftButton, {}, title.center());
        auto* const popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_EQ(popup, menu->menu());
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Down);
        EXPECT_EQ(status(), QStringLiteral("Saved usual.zconf2"));
        QTest::keyClick(popup, Qt::Key_Escape);
        while (QWidget* const open = QApplication::activePopupWidget())
            open->close();
        EXPECT_EQ(status(), QStringLiteral("Saved usual.zconf2"));
    }
}

TEST_F(MainWindowActions, NoContextMenuHidesTheToolBar)
{
    for (QWidget* const target :
         std::initializer_list<QWidget*>{&bar(), m_window->menuBar(), m_window->statusBar()}) {
        const QPoint point(3, 3);
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, target->mapToGlobal(point));
        QApplication::sendEvent(target, &event);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
    EXPECT_TRUE(bar().isVisible());
}

TEST_F(MainWindowActions, TheWheelOverTheUnitBoxChangesNothingWithoutFocus)
{
    auto* const box = child<QComboBox>("speedUnitCombo");
    canvas().setFocus();
    const QPointF center = box->rect().center();
    QWheelEvent wheel(center, box->mapToGlobal(center), {}, QPoint(0, -120), {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(box->currentIndex(), 0);
}

TEST_F(MainWindowActions, AHeldDeleteKeyDeletesOnceAndSaysSo)
{
    openUsual();
    for (QWidget* const pane : std::initializer_list<QWidget*>{&canvas(), &pageList()}) {
        clickElement(1);
        pane->setFocus();
        const std::size_t before = elements().size();
        press(*pane, Qt::Key_Delete);
        const QString said = status();
        for (int i = 0; i < 3; ++i)
            QTest::simulateEvent(pane, true, Qt::Key_Delete, Qt::NoModifier, QString(), true);
        EXPECT_EQ(elements().size(), before - 1);
        EXPECT_TRUE(said.startsWith(QStringLiteral("Deleted element"))) << said.toStdString();
        EXPECT_EQ(status(), said);
    }
}
