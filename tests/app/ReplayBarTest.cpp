#include "app/ReplayBar.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QTextDocument>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

class ReplayBarTest : public ::testing::Test
{
protected:
    ReplayBarTest()
    {
        m_bar.resize(600, 40);
        m_bar.show();
        static_cast<void>(QTest::qWaitForWindowExposed(&m_bar));
    }

    /// One tick of the timer, without waiting for it.
    void tick() { QMetaObject::invokeMethod(m_timer, "timeout"); }

    void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    ReplayBar m_bar;
    QSlider* m_slider = m_bar.findChild<QSlider*>(QStringLiteral("replaySlider"));
    QLabel* m_label = m_bar.findChild<QLabel*>(QStringLiteral("timeLabel"));
    QPushButton* m_play = m_bar.findChild<QPushButton*>(QStringLiteral("playButton"));
    QComboBox* m_rate = m_bar.findChild<QComboBox*>(QStringLiteral("rateCombo"));
    QTimer* m_timer = m_bar.findChild<QTimer*>(QStringLiteral("replayTimer"));
    QSignalSpy m_times{&m_bar, &ReplayBar::timeChanged};
};

} // namespace

TEST_F(ReplayBarTest, StartsEmptyAndDisabled)
{
    EXPECT_EQ(m_slider->orientation(), Qt::Horizontal);
    EXPECT_EQ(m_slider->minimum(), 0);
    EXPECT_EQ(m_slider->maximum(), 0);
    EXPECT_FALSE(m_slider->isEnabled());
    EXPECT_EQ(m_label->text(), QStringLiteral("00:00.0"));
    EXPECT_EQ(m_label->width(), 60);
    EXPECT_TRUE(m_label->isEnabled());
    EXPECT_EQ(m_play->text(), QStringLiteral("Play"));
    EXPECT_EQ(m_play->width(), 50);
    EXPECT_FALSE(m_play->isEnabled());
    ASSERT_EQ(m_rate->count(), 3);
    EXPECT_EQ(m_rate->itemText(0), QStringLiteral("1x"));
    EXPECT_EQ(m_rate->itemText(1), QStringLiteral("2x"));
    EXPECT_EQ(m_rate->itemText(2), QStringLiteral("4x"));
    EXPECT_EQ(m_rate->currentIndex(), 0);
    EXPECT_EQ(m_rate->width(), 45);
    EXPECT_FALSE(m_rate->isEnabled());
    EXPECT_EQ(m_timer->interval(), 100);
    EXPECT_EQ(m_timer->timerType(), Qt::PreciseTimer);
    EXPECT_FALSE(m_timer->isActive());
}

TEST_F(ReplayBarTest, StandsInOneRow)
{
    const QMargins margins = m_bar.layout()->contentsMargins();
    EXPECT_EQ(margins, QMargins(4, 2, 4, 2));
    EXPECT_LT(m_play->x(), m_rate->x());
    EXPECT_LT(m_rate->x(), m_slider->x());
    EXPECT_LT(m_slider->x(), m_label->x());
    const int slider = m_slider->width();
    m_bar.resize(700, 40);
    EXPECT_EQ(m_slider->width(), slider + 100) << "only the slider grows";
}

TEST_F(ReplayBarTest, ADurationEnablesTheControlsAtTheBeginning)
{
    m_bar.setDuration(12.34);
    EXPECT_EQ(m_slider->maximum(), 123);
    EXPECT_EQ(m_slider->value(), 0);
    EXPECT_TRUE(m_slider->isEnabled());
    EXPECT_TRUE(m_play->isEnabled());
    EXPECT_TRUE(m_rate->isEnabled());
    EXPECT_FALSE(m_timer->isActive());
    ASSERT_GE(m_times.count(), 1);
    EXPECT_EQ(m_times.constLast()[0].toDouble(), 0.0);
}

TEST_F(ReplayBarTest, TheSliderMovesTimeAndLabel)
{
    m_bar.setDuration(100.0);
    m_slider->setValue(754);
    EXPECT_EQ(m_label->text(), QStringLiteral("01:15.4"));
    EXPECT_EQ(m_times.constLast()[0].toDouble(), 75.4);
    QTest::keyClick(m_slider, Qt::Key_Right);
    EXPECT_EQ(m_label->text(), QStringLiteral("01:15.5"));
    EXPECT_EQ(m_times.constLast()[0].toDouble(), 75.5);
}

TEST_F(ReplayBarTest, PlayStartsAndStops)
{
    m_bar.setDuration(100.0);
    click(m_play);
    EXPECT_EQ(m_play->text(), QStringLiteral("Stop"));
    EXPECT_TRUE(m_timer->isActive());
    tick();
    EXPECT_EQ(m_slider->value(), 1);
    EXPECT_EQ(m_label->text(), QStringLiteral("00:00.1"));
    click(m_play);
    EXPECT_EQ(m_play->text(), QStringLiteral("Play"));
    EXPECT_FALSE(m_timer->isActive());
    EXPECT_EQ(m_slider->value(), 1);
}

TEST_F(ReplayBarTest, RatesSkipPositions)
{
    m_bar.setDuration(100.0);
    tick();
    EXPECT_EQ(m_slider->value(), 1);
    m_rate->setCurrentIndex(1);
    tick();
    EXPECT_EQ(m_slider->value(), 3);
    m_rate->setCurrentIndex(2);
    tick();
    EXPECT_EQ(m_slider->value(), 7);
    m_rate->setCurrentIndex(-1);
    tick();
    EXPECT_EQ(m_slider->value(), 8);
    EXPECT_EQ(m_timer->interval(), 100);
}

TEST_F(ReplayBarTest, StopsAtTheEndAndNeverWraps)
{
    m_bar.setDuration(12.34);
    m_rate->setCurrentIndex(2);
    m_slider->setValue(118);
    click(m_play);
    tick();
    EXPECT_EQ(m_slider->value(), 122);
    EXPECT_TRUE(m_timer->isActive());
    tick();
    EXPECT_EQ(m_slider->value(), 123);
    EXPECT_FALSE(m_timer->isActive());
    EXPECT_EQ(m_play->text(), QStringLiteral("Play"));
    EXPECT_EQ(m_label->text(), QStringLiteral("00:12.3"));
}

TEST_F(ReplayBarTest, ReachingTheEndExactlyStopsToo)
{
    m_bar.setDuration(12.3);
    m_slider->setValue(121);
    click(m_play);
    tick();
    EXPECT_TRUE(m_timer->isActive());
    tick();
    EXPECT_EQ(m_slider->value(), 123);
    EXPECT_FALSE(m_timer->isActive());
}

TEST_F(ReplayBarTest, PlayAtTheEndStartsFromTheBeginning)
{
    m_bar.setDuration(12.34);
    m_slider->setValue(123);
    click(m_play);
    EXPECT_EQ(m_slider->value(), 0);
    EXPECT_EQ(m_label->text(), QStringLiteral("00:00.0"));
    EXPECT_TRUE(m_timer->isActive());
}

TEST_F(ReplayBarTest, PlayContinuesFromADraggedPosition)
{
    m_bar.setDuration(100.0);
    click(m_play);
    tick();
    m_slider->setValue(500);
    tick();
    EXPECT_EQ(m_slider->value(), 501);
    EXPECT_TRUE(m_timer->isActive());
}

TEST_F(ReplayBarTest, ALoadWhilePlayingGoesOnFromTheBeginning)
{
    m_bar.setDuration(100.0);
    click(m_play);
    m_slider->setValue(900);
    m_bar.setDuration(5.0);
    EXPECT_EQ(m_slider->maximum(), 50);
    EXPECT_EQ(m_slider->value(), 0);
    EXPECT_EQ(m_label->text(), QStringLiteral("00:00.0"));
    EXPECT_EQ(m_play->text(), QStringLiteral("Stop"));
    EXPECT_TRUE(m_timer->isActive());
    tick();
    EXPECT_EQ(m_slider->value(), 1);
}

TEST_F(ReplayBarTest, NothingToPlayStopsAtTheFirstTick)
{
    m_bar.setDuration(0.0);
    EXPECT_EQ(m_slider->maximum(), 0);
    click(m_play);
    EXPECT_TRUE(m_timer->isActive());
    EXPECT_EQ(m_play->text(), QStringLiteral("Stop"));
    tick();
    EXPECT_FALSE(m_timer->isActive());
    EXPECT_EQ(m_play->text(), QStringLiteral("Play"));
    EXPECT_EQ(m_slider->value(), 0);
}

TEST_F(ReplayBarTest, KeepsRealTime)
{
    m_bar.setDuration(100.0);
    QElapsedTimer clock;
    clock.start();
    click(m_play);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_slider->value() >= 5; }, 5000));
    EXPECT_GE(clock.elapsed(), 450);
}

TEST_F(ReplayBarTest, AClickInTheGrooveGoesThere)
{
    m_bar.setDuration(100.0);
    QTest::mouseClick(m_slider, Qt::LeftButton, {}, m_slider->rect().center());
    EXPECT_NEAR(m_slider->value(), 500, 3);
    EXPECT_EQ(m_times.constLast()[0].toDouble(), m_slider->value() / 10.0);
}

TEST_F(ReplayBarTest, PageKeysMoveByATwentiethAndAtLeastASecond)
{
    const auto pageStep = [this](double seconds) {
        m_bar.setDuration(seconds);
        QTest::keyClick(m_slider, Qt::Key_PageUp);
        const int step = m_slider->value();
        QTest::keyClick(m_slider, Qt::Key_PageDown);
        EXPECT_EQ(m_slider->value(), 0);
        return step;
    };
    EXPECT_EQ(pageStep(400.0), 200);
    EXPECT_EQ(pageStep(19.9), 10);
    EXPECT_EQ(pageStep(20.4), 10);
    EXPECT_EQ(pageStep(100.0), 50);
}

TEST_F(ReplayBarTest, ToggleIsAClickOnPlay)
{
    m_bar.togglePlaying();
    EXPECT_FALSE(m_timer->isActive()) << "there is no recording";
    m_bar.setDuration(100.0);
    m_bar.togglePlaying();
    EXPECT_TRUE(m_timer->isActive());
    m_bar.togglePlaying();
    EXPECT_FALSE(m_timer->isActive());
}

TEST_F(ReplayBarTest, SliderAndTimeTellTheRecordingVerbatim)
{
    EXPECT_TRUE(m_slider->toolTip().isEmpty());
    m_bar.setRecordingTip(QStringLiteral("<b>lap</b>.xrk"));
    for (const QWidget* const widget : std::initializer_list<const QWidget*>{m_slider, m_label}) {
        QTextDocument shown;
        shown.setHtml(widget->toolTip());
        EXPECT_EQ(shown.toPlainText(), QStringLiteral("<b>lap</b>.xrk"));
    }
    m_bar.setRecordingTip({});
    EXPECT_TRUE(m_slider->toolTip().isEmpty());
    EXPECT_TRUE(m_label->toolTip().isEmpty());
}

TEST_F(ReplayBarTest, WhoFollowsTheSliderFindsTheTimeInStep)
{
    m_bar.setDuration(100.0);
    QStringList seen;
    QObject::connect(m_slider, &QSlider::valueChanged, &m_bar, [&](int value) {
        seen << QStringLiteral("%1 %2 %3")
                    .arg(QString::number(value), m_label->text(),
                         QString::number(m_times.constLast()[0].toDouble()));
    });
    tick();
    m_slider->setValue(20);
    EXPECT_EQ(seen, QStringList({QStringLiteral("1 00:00.1 0.1"), QStringLiteral("20 00:02.0 2")}));
}

TEST_F(ReplayBarTest, EveryMoveIsAnnouncedOnce)
{
    m_bar.setDuration(100.0);
    m_times.clear();
    m_slider->setValue(700);
    EXPECT_EQ(m_times.count(), 1);
    tick();
    EXPECT_EQ(m_times.count(), 2);
    m_bar.setDuration(50.0); // the slider is clamped on the way
    EXPECT_EQ(m_slider->value(), 0);
    EXPECT_EQ(m_times.constLast()[0].toDouble(), 0.0);
    EXPECT_EQ(m_slider->maximum(), 500);
}
