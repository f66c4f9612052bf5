#include "widgets/FocusWheelComboBox.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class FocusWheelComboBoxTest : public ::testing::Test
{
protected:
    FocusWheelComboBoxTest()
    {
        auto* const layout = new QVBoxLayout(&m_window);
        layout->addWidget(m_other);
        layout->addWidget(m_box);
        m_box->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        m_window.show();
        m_window.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&m_window));
    }

    void turnWheel()
    {
        const QPointF center = m_box->rect().center();
        QWheelEvent event(center, m_box->mapToGlobal(center), {}, QPoint(0, -120), {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_box, &event);
    }

    QWidget m_window;
    QPushButton* m_other = new QPushButton;
    FocusWheelComboBox* m_box = new FocusWheelComboBox;
};

} // namespace

TEST_F(FocusWheelComboBoxTest, WithoutFocusTheWheelChangesNothing)
{
    m_other->setFocus();
    turnWheel();
    EXPECT_EQ(m_box->currentIndex(), 0);
    EXPECT_FALSE(m_box->focusPolicy() & (Qt::WheelFocus & ~Qt::StrongFocus))
        << "the wheel must not bring the focus either";
}

TEST_F(FocusWheelComboBoxTest, WithFocusTheWheelChoosesTheNext)
{
    m_box->setFocus();
    ASSERT_TRUE(m_box->hasFocus());
    turnWheel();
    EXPECT_EQ(m_box->currentIndex(), 1);
}
