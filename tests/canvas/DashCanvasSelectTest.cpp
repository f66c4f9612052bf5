// Presses that select, and those that do not.

#include "tests/canvas/GestureFixture.h"

namespace {

using DashCanvasSelect = GestureFixture;

} // namespace

TEST_F(DashCanvasSelect, APressOnAnElementSelectsIt)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    ASSERT_EQ(m_selected.count(), 1);
    EXPECT_EQ(m_selected[0], QVariantList{0});
}

TEST_F(DashCanvasSelect, SelectionIsAnnouncedAtThePressNotAtTheRelease)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    EXPECT_EQ(m_selected.count(), 1);
    release(at(120, 120));
    EXPECT_EQ(m_selected.count(), 1);
}

TEST_F(DashCanvasSelect, APressOnTheSelectedElementAnnouncesNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    click(at(125, 120));
    EXPECT_EQ(m_selected.count(), 1);
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}

TEST_F(DashCanvasSelect, EmptyCanvasDeselectsOnceAndIsThenSilent)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    click(at(400, 300));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    ASSERT_EQ(m_selected.count(), 2);
    EXPECT_EQ(m_selected[1], QVariantList{-1});
    click(at(400, 300));
    EXPECT_EQ(m_selected.count(), 2);
}

TEST_F(DashCanvasSelect, APressOutsideThePageHitsAnElementThere)
{
    add({-8, 100, 50, 40});
    click({4, 120});
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}

TEST_F(DashCanvasSelect, WhereElementsOverlapTheLaterOneIsHit)
{
    add({100, 100, 50, 40});
    add({120, 110, 50, 40});
    click(at(130, 120));
    EXPECT_EQ(m_canvas.selectedIndex(), 1);
    click(at(110, 105));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
}

TEST_F(DashCanvasSelect, ElementEdgesBelongToTheElement)
{
    add({100, 100, 50, 40});
    click(at(100, 100));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    m_canvas.clearSelectionAndRepaint();
    click(at(150, 140));
    EXPECT_EQ(m_canvas.selectedIndex(), 0);
    m_canvas.clearSelectionAndRepaint();
    click(at(151, 140));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasSelect, AnElementWithoutAreaCannotBeHit)
{
    add({100, 100, 0, 0});
    click(at(100, 100));
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
}

TEST_F(DashCanvasSelect, OtherButtonsSelectNothing)
{
    add({100, 100, 50, 40});
    press(at(120, 120), Qt::RightButton);
    press(at(120, 120), Qt::MiddleButton);
    EXPECT_EQ(m_canvas.selectedIndex(), -1);
    EXPECT_EQ(m_selected.count(), 0);
}

TEST_F(DashCanvasSelect, WithoutAPagePressesAreIgnored)
{
    m_canvas.setPage(nullptr);
    drag(at(120, 120), at(140, 120));
    EXPECT_EQ(m_selected.count(), 0);
    expectNothingHappened();
}

TEST_F(DashCanvasSelect, APressTakesTheKeyboardFocus)
{
    QWidget window;
    DashCanvas canvas(&window);
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    canvas.setPage(&m_page);
    canvas.setFocusPolicy(Qt::NoFocus); // else Qt itself would give it the focus
    window.show();
    other.setFocus();
    ASSERT_EQ(window.focusWidget(), &other);
    QTest::mousePress(&canvas, Qt::RightButton, {}, {50, 50});
    EXPECT_EQ(window.focusWidget(), &other);
    QTest::mousePress(&canvas, Qt::LeftButton, {}, {50, 50});
    EXPECT_EQ(window.focusWidget(), &canvas);
}

TEST_F(DashCanvasSelect, APressWithoutAPageLeavesTheFocus)
{
    QWidget window;
    DashCanvas canvas(&window);
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    canvas.setFocusPolicy(Qt::NoFocus);
    window.show();
    other.setFocus();
    QTest::mousePress(&canvas, Qt::LeftButton, {}, {50, 50});
    EXPECT_EQ(window.focusWidget(), &other);
}

TEST_F(DashCanvasSelect, ModifiersSelectNoMoreThanOneElement)
{
    add({100, 100, 50, 40});
    add({200, 100, 50, 40});
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::ShiftModifier}) {
        QTest::mouseClick(&m_canvas, Qt::LeftButton, modifier, at(120, 120));
        EXPECT_EQ(m_canvas.selectedIndex(), 0);
        QTest::mouseClick(&m_canvas, Qt::LeftButton, modifier, at(220, 120));
        EXPECT_EQ(m_canvas.selectedIndex(), 1);
        QTest::mouseClick(&m_canvas, Qt::LeftButton, modifier, at(220, 120));
        EXPECT_EQ(m_canvas.selectedIndex(), 1);
    }
    EXPECT_EQ(m_selected.count(), 4);
    expectNothingHappened();
}

TEST_F(DashCanvasSelect, ADoubleClickIsNoMoreThanAPress)
{
    add({100, 100, 50, 40});
    QTest::mouseDClick(&m_canvas, Qt::LeftButton, {}, at(120, 120));
    EXPECT_EQ(m_selected.count(), 1);
    expectNothingHappened();
}
