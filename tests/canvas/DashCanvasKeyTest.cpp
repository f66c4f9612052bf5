// The keys that the canvas answers, and those that it leaves to its parent.

#include "tests/canvas/CanvasFixture.h"

namespace {

class DashCanvasKeys : public CanvasFixture
{
protected:
    /// Whether the canvas accepts the key.
    bool press(int key, Qt::KeyboardModifiers modifiers = {}, bool repeated = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), repeated);
        event.ignore();
        QCoreApplication::sendEvent(&m_canvas, &event);
        return event.isAccepted();
    }
    using CanvasFixture::press;

    QSignalSpy m_deleteRequested{&m_canvas, &DashCanvas::deleteRequested};
    QSignalSpy m_playToggleRequested{&m_canvas, &DashCanvas::playToggleRequested};
    QSignalSpy m_pageStepRequested{&m_canvas, &DashCanvas::pageStepRequested};
};

} // namespace

TEST_F(DashCanvasKeys, DeleteAndBackspaceAskForDeletion)
{
    add({100, 100, 50, 40});
    add({200, 100, 50, 40});
    click(at(220, 120));
    QTest::keyClick(&m_canvas, Qt::Key_Delete);
    QTest::keyClick(&m_canvas, Qt::Key_Backspace);
    ASSERT_EQ(m_deleteRequested.count(), 2);
    EXPECT_EQ(m_deleteRequested[0], QVariantList{1});
    EXPECT_EQ(m_deleteRequested[1], QVariantList{1});
    EXPECT_EQ(m_page.elements.size(), 2U) << "the canvas itself deletes nothing";
}

TEST_F(DashCanvasKeys, WithoutASelectionTheDeletionKeysGoToTheParent)
{
    add({100, 100, 50, 40});
    for (const int key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_canvas, &event);
        EXPECT_FALSE(event.isAccepted());
    }
    m_canvas.setPage(nullptr);
    QTest::keyClick(&m_canvas, Qt::Key_Delete);
    EXPECT_EQ(m_deleteRequested.count(), 0);
}

TEST_F(DashCanvasKeys, ADeletionKeyIsAcceptedOnlyWithASelection)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    for (const int key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&m_canvas, &event);
        EXPECT_TRUE(event.isAccepted());
    }
}

TEST_F(DashCanvasKeys, OtherKeysGoToTheParentAndNudgeNothing)
{
    add({100, 100, 50, 40});
    click(at(120, 120));
    for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_A,
                          Qt::Key_Escape, Qt::Key_Return}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_canvas, &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
    EXPECT_EQ(geometryOf(element(0)), (ElementGeometry{100, 100, 50, 40}));
    EXPECT_EQ(m_deleteRequested.count(), 0);
}

TEST_F(DashCanvasKeys, SpaceTogglesTheReplay)
{
    EXPECT_TRUE(press(Qt::Key_Space));
    EXPECT_EQ(m_playToggleRequested.count(), 1);
    QTest::keyClick(&m_canvas, Qt::Key_Space);
    EXPECT_EQ(m_playToggleRequested.count(), 2);
}

TEST_F(DashCanvasKeys, AHeldSpaceTogglesOnce)
{
    press(Qt::Key_Space);
    EXPECT_TRUE(press(Qt::Key_Space, {}, true));
    EXPECT_EQ(m_playToggleRequested.count(), 1);
}

TEST_F(DashCanvasKeys, PageKeysStepThroughThePages)
{
    EXPECT_TRUE(press(Qt::Key_PageUp));
    EXPECT_TRUE(press(Qt::Key_PageDown, Qt::KeypadModifier));
    EXPECT_TRUE(press(Qt::Key_PageDown, {}, true)) << "held";
    ASSERT_EQ(m_pageStepRequested.count(), 3);
    EXPECT_EQ(m_pageStepRequested[0], QVariantList{-1});
    EXPECT_EQ(m_pageStepRequested[1], QVariantList{1});
    EXPECT_EQ(m_pageStepRequested[2], QVariantList{1});
}

TEST_F(DashCanvasKeys, WithModifiersTheseKeysGoToTheParent)
{
    for (const int key : {Qt::Key_Space, Qt::Key_PageUp, Qt::Key_PageDown}) {
        for (const auto modifier : {Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier})
            EXPECT_FALSE(press(key, modifier)) << key;
    }
    EXPECT_EQ(m_playToggleRequested.count(), 0);
    EXPECT_EQ(m_pageStepRequested.count(), 0);
}

TEST_F(DashCanvasKeys, APageKeyEndsADragFirst)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(140, 120));
    QObject::connect(&m_canvas, &DashCanvas::pageStepRequested, &m_canvas,
                     [this] { EXPECT_EQ(element(0).x, 100); });
    press(Qt::Key_PageDown);
    ASSERT_EQ(m_pageStepRequested.count(), 1);
    release(at(140, 120));
    EXPECT_EQ(element(0).x, 100);
    EXPECT_EQ(m_stack.count(), 0);
}

TEST_F(DashCanvasKeys, SpaceLeavesADragAlone)
{
    add({100, 100, 50, 40});
    press(at(120, 120));
    moveTo(at(140, 120));
    press(Qt::Key_Space);
    release(at(140, 120));
    EXPECT_EQ(element(0).x, 120);
    EXPECT_EQ(m_stack.count(), 1);
}
