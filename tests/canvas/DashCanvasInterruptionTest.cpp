// What happens to a drag when page, document or undo history change under it; a page of no document
// has another file.

#include "app/commands/DeleteCommand.h"
#include "app/commands/NewPageCommand.h"
#include "document/DashboardDocument.h"
#include "tests/canvas/CanvasFixture.h"
#include "tests/support/PackageBuilder.h"

#include <QTemporaryDir>

namespace {

/// A canvas on the first of two pages of a real document, re-pointed after every change of the undo
/// stack as the main window does it.
class DashCanvasInDocument : public CanvasMouseFixture
{
protected:
    DashCanvasInDocument()
    {
        using TestPackage::digitElement;
        const QString path = m_folder.filePath(QStringLiteral("overlay.ov3.xml"));
        TestPackage::writeFile(
            path, TestPackage::overlayXml(
                      {TestPackage::page("A", 800, 480,
                                         {digitElement("a.0", 100, 100, 50, 40),
                                          digitElement("a.1", 200, 100, 50, 40)}),
                       TestPackage::page("B", 800, 480, {digitElement("b.0", 100, 100, 50, 40)})}));
        EXPECT_TRUE(m_document.loadOverlay(path));
        m_canvas.setDocument(&m_document);
        m_canvas.setPage(m_document.pageAt(0));
        QObject::connect(&m_stack, &QUndoStack::indexChanged, &m_canvas, [this] {
            m_canvas.rebindPage(m_document.pageAt(m_shownPage), m_canvas.selectedIndex());
        });
    }

    [[nodiscard]] DashElement& element(std::size_t index)
    {
        return m_document.pageAt(0)->elements.at(index);
    }

    QTemporaryDir m_folder;
    DashboardDocument m_document;
    int m_shownPage = 0;
};

} // namespace

TEST_F(DashCanvasInDocument, AStepFindsItsElementAfterThePagesHaveMoved)
{
    drag(at(120, 120), at(140, 120));
    for (int i = 0; i < 50; ++i)
        m_stack.push(new NewPageCommand(&m_document, QStringLiteral("new")));
    while (m_stack.canUndo())
        m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    while (m_stack.canRedo())
        m_stack.redo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 100, 50, 40}));
}

TEST_F(DashCanvasInDocument, AStepFindsItsElementAfterADeletionWasUndone)
{
    drag(at(220, 120), at(240, 120));
    m_stack.push(new DeleteCommand(&m_document, 0, 0));
    m_stack.push(new DeleteCommand(&m_document, 0, 0));
    m_stack.undo();
    m_stack.undo();
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{200, 100, 50, 40}));
    EXPECT_EQ(element(1).name, QStringLiteral("a.1"));
}

TEST_F(DashCanvasInDocument, TheSelectionSurvivesItsOwnStep)
{
    QSignalSpy moved(&m_canvas, &DashCanvas::elementMoved);
    drag(at(220, 120), at(240, 120));
    EXPECT_EQ(m_canvas.selectedIndex(), 1);
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved[0], (QVariantList{1, 220, 100}));
}

TEST_F(DashCanvasInDocument, UndoByKeyTakesTheDragBackFirst)
{
    drag(at(220, 120), at(240, 120)); // one step on the other element
    press(at(120, 120));
    moveTo(at(300, 300));
    announceShortcut(QKeySequence::Undo);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    m_stack.undo();
    moveTo(at(320, 300));
    release(at(320, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{200, 100, 50, 40}));
    EXPECT_EQ(m_stack.count(), 1);
    EXPECT_TRUE(m_stack.canRedo());
}

TEST_F(DashCanvasInDocument, RedoByKeyTakesTheDragBackFirst)
{
    drag(at(220, 120), at(240, 120)); // one step on the other element
    m_stack.undo();
    press(at(120, 120));
    moveTo(at(300, 300));
    announceShortcut(QKeySequence::Redo);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    m_stack.redo();
    moveTo(at(320, 300));
    release(at(320, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{220, 100, 50, 40}));
    EXPECT_EQ(m_stack.count(), 1);
    EXPECT_TRUE(m_stack.canUndo());
}

TEST_F(DashCanvasInDocument, UndoByKeyOfTheDraggedElementsOwnStepReturnsExactly)
{
    drag(at(120, 120), at(140, 120));
    press(at(140, 120));
    moveTo(at(120, 120)); // by chance where the undo will put it
    announceShortcut(QKeySequence::Undo);
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    m_stack.redo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 100, 50, 40}));
}

TEST_F(DashCanvasInDocument, AnUndoFromElsewhereTakesTheDragBackToo)
{
    drag(at(220, 120), at(240, 120));
    press(at(120, 120));
    moveTo(at(300, 300));
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    moveTo(at(320, 300));
    release(at(320, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_stack.count(), 1);
}

TEST_F(DashCanvasInDocument, AnUndoOfTheDraggedElementsOwnStepWins)
{
    drag(at(120, 120), at(140, 120));
    press(at(140, 120));
    moveTo(at(300, 300));
    m_stack.undo();
    release(at(300, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_stack.index(), 0);
}

TEST_F(DashCanvasInDocument, AnUndoOnAnotherPageTakesTheDragOfTheSameElementNumberBack)
{
    drag(at(120, 120), at(140, 120)); // the first element of the first page
    m_shownPage = 1;
    m_canvas.setPage(m_document.pageAt(1));
    press(at(120, 120)); // the first of the second
    moveTo(at(300, 300));
    m_stack.undo();
    EXPECT_EQ(geometryOf(m_document.pageAt(1)->elements[0]), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    release(at(300, 300));
    EXPECT_TRUE(m_stack.canRedo());
}

TEST_F(DashCanvasInDocument, ADragIsTakenBackAlsoWhenTheElementsIndexHasChanged)
{
    m_stack.push(new DeleteCommand(&m_document, 0, 0));
    m_stack.disconnect(&m_canvas);
    press(at(220, 120));
    ASSERT_EQ(m_canvas.selectedIndex(), 0);
    moveTo(at(300, 300));
    m_stack.undo();
    m_canvas.rebindPage(m_document.pageAt(0), 1);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(geometryOf(element(1)), (ElementGeometry{200, 100, 50, 40}));
}

TEST_F(DashCanvasInDocument, AnElementThatIsDeletedInADragComesBackWhereItWas)
{
    press(at(120, 120));
    moveTo(at(300, 300));
    QObject::connect(&m_canvas, &DashCanvas::deleteRequested, &m_canvas, [this](int index) {
        m_stack.push(new DeleteCommand(&m_document, 0, index));
        m_canvas.clearSelectionAndRepaint();
    });
    QTest::keyClick(&m_canvas, Qt::Key_Backspace);
    release(at(300, 300));
    EXPECT_EQ(m_document.pageAt(0)->elements.size(), 1U);
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}

TEST_F(DashCanvasInDocument, TheDeleteShortcutTakesTheDragBackFirst)
{
    press(at(120, 120));
    moveTo(at(300, 300));
    announceShortcut(QKeySequence::Delete);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    m_stack.push(new DeleteCommand(&m_document, 0, 0));
    moveTo(at(320, 300));
    release(at(320, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{200, 100, 50, 40})) << "the one left";
    EXPECT_EQ(m_stack.count(), 1);
    m_stack.undo();
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
}

// Releases are lost when a popup or another window gets them.
TEST_F(DashCanvasInDocument, ASecondPressEndsADrag)
{
    press(at(120, 120));
    moveTo(at(300, 300));
    press(at(310, 310)); // on the element as it is shown, but not where it belongs
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    release(at(310, 310));
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasInDocument, LosingTheFocusEndsADrag)
{
    press(at(120, 120));
    moveTo(at(300, 300));
    QFocusEvent focusOut(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(&m_canvas, &focusOut);
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    moveTo(at(320, 300));
    release(at(320, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasInDocument, OtherKeysLeaveADragAlone)
{
    press(at(120, 120));
    moveTo(at(140, 120));
    QTest::keyClick(&m_canvas, Qt::Key_Control);
    QTest::keyClick(&m_canvas, Qt::Key_Z);
    release(at(140, 120));
    EXPECT_EQ(element(0).x, 120);
    EXPECT_EQ(m_stack.count(), 1);
}

TEST_F(DashCanvasInDocument, AnUndoThatRemovesTheShownPageEndsTheDragSafely)
{
    m_stack.push(new NewPageCommand(&m_document, QStringLiteral("new")));
    m_shownPage = 2;
    m_document.pageAt(2)->elements.push_back(makeElement(QStringLiteral("n"), {100, 100, 50, 40}));
    m_canvas.setPage(m_document.pageAt(2));
    press(at(120, 120));
    moveTo(at(300, 300));
    m_stack.undo();
    EXPECT_EQ(m_canvas.page(), nullptr);
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    moveTo(at(310, 300));
    release(at(310, 300));
    EXPECT_EQ(m_stack.count(), 1);
}

TEST_F(DashCanvasInDocument, APageChangeInADragLeavesTheElementWhereItIs)
{
    press(at(120, 120));
    moveTo(at(140, 120));
    m_canvas.setPage(m_document.pageAt(1));
    moveTo(at(300, 300));
    release(at(300, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 100, 50, 40}));
    EXPECT_EQ(geometryOf(m_document.pageAt(1)->elements[0]), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasInDocument, APageChangeEndsADragForGood)
{
    press(at(120, 120));
    moveTo(at(140, 120));
    m_canvas.setPage(m_document.pageAt(0));
    m_canvas.rebindPage(m_document.pageAt(0), 0);
    moveTo(at(300, 300));
    release(at(300, 300));
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{120, 100, 50, 40}));
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasInDocument, APageThatIsNotTheDocumentsIsEditedItself)
{
    DashPage bare = m_document.pages()[0];
    m_canvas.setPage(&bare);
    m_stack.disconnect(&m_canvas);
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(bare.elements[0].x, 120);
    EXPECT_EQ(element(0).x, 100);
    m_stack.undo();
    EXPECT_EQ(bare.elements[0].x, 100);
}

TEST_F(DashCanvasInDocument, StepsOnTheSecondPageStayOnTheSecondPage)
{
    m_shownPage = 1;
    m_canvas.setPage(m_document.pageAt(1));
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(m_document.pageAt(1)->elements[0].x, 120);
    EXPECT_EQ(element(0).x, 100);
    m_stack.undo();
    EXPECT_EQ(m_document.pageAt(1)->elements[0].x, 100);
}

TEST_F(DashCanvasInDocument, AListenerMayDropThePageWhenAnElementIsSelected)
{
    QObject::connect(&m_canvas, &DashCanvas::elementSelected, &m_canvas,
                     [this] { m_canvas.setPage(nullptr); });
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(element(0).x, 100);
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasInDocument, AListenerMayDropThePageWhenAStepIsPushed)
{
    m_stack.disconnect(&m_canvas);
    QObject::connect(&m_stack, &QUndoStack::indexChanged, &m_canvas,
                     [this] { m_canvas.setPage(nullptr); });
    QSignalSpy moved(&m_canvas, &DashCanvas::elementMoved);
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(element(0).x, 120);
    EXPECT_EQ(moved.count(), 0);
}

TEST_F(DashCanvasInDocument, AnUndoThatLandsWhereTheDragStoodIsKept)
{
    drag(at(120, 120), at(140, 120));
    press(at(140, 120));
    moveTo(at(120, 120)); // by chance where the undo will put it
    m_stack.undo();
    release(at(120, 120));
    EXPECT_EQ(element(0).x, 100);
    EXPECT_EQ(m_stack.count(), 1);
    EXPECT_TRUE(m_stack.canRedo());
}
