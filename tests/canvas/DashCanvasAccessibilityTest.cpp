// What the canvas reports to assistive technology: the page, the selected element and its place.

#include "tests/canvas/CanvasFixture.h"

namespace {

class DashCanvasAccessibility : public CanvasFixture
{
protected:
    DashCanvasAccessibility()
    {
        m_page.name = QStringLiteral("Pit");
        m_canvas.setPage(&m_page);
        add({100, 100, 50, 40});
        m_page.elements.push_back(
            makeElement(QStringLiteral("a caption"), {200, 100, 60, 30}, QString()));
    }

    [[nodiscard]] std::string description() const
    {
        return m_canvas.accessibleDescription().toStdString();
    }
};

constexpr auto kFirst = "RPM (mask.0) at X 100, Y 100, width 50, height 40";

} // namespace

TEST_F(DashCanvasAccessibility, TheNameIsThatOfThePage)
{
    EXPECT_EQ(m_canvas.accessibleName(), QStringLiteral("Page Pit"));
    m_canvas.setPage(nullptr);
    EXPECT_EQ(m_canvas.accessibleName(), QStringLiteral("Page"));
}

TEST_F(DashCanvasAccessibility, TheDescriptionFollowsTheSelection)
{
    EXPECT_EQ(description(), "No element selected");
    click(at(120, 120));
    EXPECT_EQ(description(), kFirst);
    click(at(220, 120));
    EXPECT_EQ(description(), "a caption at X 200, Y 100, width 60, height 30") << "no channel";
    click(at(400, 300));
    EXPECT_EQ(description(), "No element selected");
    m_canvas.rebindPage(&m_page, 0);
    EXPECT_EQ(description(), kFirst);
    m_canvas.clearSelectionAndRepaint();
    EXPECT_EQ(description(), "No element selected");
}

TEST_F(DashCanvasAccessibility, TheDescriptionFollowsTheElement)
{
    m_canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_canvas));
    const auto shown = [this] {
        QCoreApplication::processEvents();
        return description();
    };
    press(at(120, 120));
    moveTo(at(140, 130));
    EXPECT_EQ(shown(), "RPM (mask.0) at X 120, Y 110, width 50, height 40");
    m_canvas.cancelDrag();
    EXPECT_EQ(shown(), kFirst);
    drag(at(120, 120), at(140, 130));
    m_stack.undo();
    m_canvas.rebindPage(&m_page, 0);
    EXPECT_EQ(shown(), kFirst);
    element(0).x = 7; // as the property panel does it
    m_canvas.update();
    EXPECT_EQ(shown(), "RPM (mask.0) at X 7, Y 100, width 50, height 40");
}

// Each setting sends an event, also of the same text, and offscreen nobody receives events. A text
// that was not set again is still the shared copy of the text read before.
TEST_F(DashCanvasAccessibility, ARepaintWithoutChangeSetsNothing)
{
    m_canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_canvas));
    m_canvas.rebindPage(&m_page, 0);
    const QString name = m_canvas.accessibleName();
    const QString description = m_canvas.accessibleDescription();
    m_canvas.repaint();
    EXPECT_TRUE(m_canvas.accessibleName().isSharedWith(name));
    EXPECT_TRUE(m_canvas.accessibleDescription().isSharedWith(description));

    element(0).x = 7;
    m_canvas.repaint();
    EXPECT_TRUE(m_canvas.accessibleName().isSharedWith(name));
    EXPECT_NE(m_canvas.accessibleDescription(), description);
}

TEST_F(DashCanvasAccessibility, NamesAreGivenVerbatim)
{
    element(0).name = QStringLiteral("%1 & %3");
    element(0).channelLongName = QStringLiteral("<b>%2</b>");
    click(at(120, 120));
    EXPECT_EQ(description(), "<b>%2</b> (%1 & %3) at X 100, Y 100, width 50, height 40");
}
