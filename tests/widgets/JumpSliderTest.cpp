#include "widgets/JumpSlider.h"

#include <QProxyStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include <gtest/gtest.h>

#include <tuple>

namespace {

class JumpSliderTest : public ::testing::TestWithParam<std::tuple<int, Qt::LayoutDirection>>
{
protected:
    /// The slider's own option, which a test cannot ask it for.
    class Slider : public JumpSlider
    {
    public:
        [[nodiscard]] QRect handle() const
        {
            QStyleOptionSlider option;
            initStyleOption(&option);
            return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle,
                                           this);
        }
    };

    /// A style whose slider handles have that length.
    class HandleLength : public QProxyStyle
    {
    public:
        explicit HandleLength(int length) : m_length(length) {}
        [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                      const QWidget* widget) const override
        {
            return metric == PM_SliderLength ? m_length
                                             : QProxyStyle::pixelMetric(metric, option, widget);
        }

    private:
        int m_length;
    };

    JumpSliderTest()
    {
        m_slider.setLayoutDirection(std::get<1>(GetParam()));
        m_slider.setMaximum(std::get<0>(GetParam()));
        m_slider.resize(600, 30);
        m_slider.show();
        static_cast<void>(QTest::qWaitForWindowExposed(&m_slider));
    }

    void press(int x, int y = 15)
    {
        QTest::mousePress(&m_slider, Qt::LeftButton, {}, QPoint(x, y));
    }
    void release(int x) { QTest::mouseRelease(&m_slider, Qt::LeftButton, {}, QPoint(x, 15)); }

    Slider m_slider;
};

} // namespace

TEST_P(JumpSliderTest, AClickInTheGrooveBringsTheHandleThere)
{
    for (const int x : {450, 100, 300}) {
        press(x);
        EXPECT_NEAR(m_slider.handle().center().x(), x, 600 / (2 * m_slider.maximum()) + 1);
        EXPECT_TRUE(m_slider.isSliderDown()) << "from where it can be dragged on";
        QTest::mouseMove(&m_slider, QPoint(x + 50, 15));
        EXPECT_NEAR(m_slider.handle().center().x(), x + 50, 600 / (2 * m_slider.maximum()) + 1);
        release(x + 50);
        EXPECT_FALSE(m_slider.isSliderDown());
    }
}

TEST_P(JumpSliderTest, APressAtTheTopOrBottomEdgeBringsTheHandleThereToo)
{
    for (const int y : {0, m_slider.height() - 1}) {
        for (const int x : {450, 100, 300}) {
            press(x, y);
            EXPECT_NEAR(m_slider.handle().center().x(), x, 600 / (2 * m_slider.maximum()) + 1);
            EXPECT_TRUE(m_slider.isSliderDown()) << "from where it can be dragged on";
            release(x);
        }
    }
}

TEST_P(JumpSliderTest, TheHandlesCenterIsBelowThePointer)
{
    if (m_slider.maximum() < m_slider.width())
        return; // too coarse
    for (const int length : {20, 21}) {
        HandleLength style(length);
        m_slider.setStyle(&style);
        ASSERT_EQ(m_slider.handle().width(), length);
        for (const int x : {450, 100, 301}) {
            press(x);
            EXPECT_EQ(m_slider.handle().center().x(), x) << length;
            release(x);
        }
        m_slider.setStyle(nullptr);
    }
}

TEST_P(JumpSliderTest, BeyondTheEndsItStopsAtThem)
{
    const bool mirrored = std::get<1>(GetParam()) == Qt::RightToLeft;
    press(599);
    release(599);
    EXPECT_EQ(m_slider.value(), mirrored ? 0 : m_slider.maximum());
    press(0);
    release(0);
    EXPECT_EQ(m_slider.value(), mirrored ? m_slider.maximum() : 0);
}

TEST_P(JumpSliderTest, APressOnTheHandleMovesNothing)
{
    m_slider.setValue(m_slider.maximum() / 2);
    const int before = m_slider.value();
    for (const int x : {m_slider.handle().left(), m_slider.handle().right()}) {
        press(x);
        EXPECT_EQ(m_slider.value(), before);
        release(x);
        EXPECT_EQ(m_slider.value(), before);
    }
}

TEST_P(JumpSliderTest, OtherButtonsMoveNothing)
{
    QTest::mouseClick(&m_slider, Qt::RightButton, {}, QPoint(300, 15));
    EXPECT_EQ(m_slider.value(), 0);
}

INSTANTIATE_TEST_SUITE_P(Lengths, JumpSliderTest,
                         ::testing::Combine(::testing::Values(20, 600, 100'000),
                                            ::testing::Values(Qt::LeftToRight, Qt::RightToLeft)));
