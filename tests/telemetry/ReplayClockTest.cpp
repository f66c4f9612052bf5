#include "telemetry/ReplayClock.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using testing::ElementsAre;

class ReplayClockTest : public testing::Test
{
protected:
    ReplayClockTest()
    {
        m_clock.setMaximum(123);
        QObject::connect(&m_clock, &ReplayClock::positionChanged, &m_clock, [this](int position) {
            m_events.push_back("position " + std::to_string(position));
        });
        QObject::connect(&m_clock, &ReplayClock::playingChanged, &m_clock, [this](bool playing) {
            m_events.emplace_back(playing ? "play" : "stop");
        });
    }

    const QTimer& timer() const
    {
        return *m_clock.findChild<QTimer*>(QStringLiteral("replayTimer"));
    }
    void playFrom(int position)
    {
        m_clock.setPosition(position);
        m_clock.togglePlaying();
        m_events.clear();
    }

    ReplayClock m_clock;
    std::vector<std::string> m_events; ///< the signals in order
};

TEST_F(ReplayClockTest, StandsAtTheBeginning)
{
    const ReplayClock clock;
    EXPECT_EQ(clock.position(), 0);
    EXPECT_EQ(clock.maximum(), 0);
    EXPECT_EQ(clock.rate(), 0);
    EXPECT_EQ(clock.seconds(), 0.0);
    EXPECT_FALSE(clock.isPlaying());
}

TEST_F(ReplayClockTest, TicksEveryTenthOfASecondPrecisely)
{
    EXPECT_EQ(timer().interval(), 100);
    EXPECT_EQ(timer().timerType(), Qt::PreciseTimer);
    EXPECT_FALSE(timer().isSingleShot());
    EXPECT_FALSE(timer().isActive());
}

TEST_F(ReplayClockTest, CountsTenthsOfASecond)
{
    m_clock.setPosition(7);
    EXPECT_EQ(m_clock.seconds(), 0.7);
    m_clock.setPosition(123);
    EXPECT_EQ(m_clock.seconds(), 12.3);
}

TEST_F(ReplayClockTest, KeepsThePositionWithinTheRecording)
{
    m_clock.setPosition(500);
    EXPECT_EQ(m_clock.position(), 123);
    m_clock.setPosition(-1);
    EXPECT_EQ(m_clock.position(), 0);
    EXPECT_THAT(m_events, ElementsAre("position 123", "position 0"));
}

TEST_F(ReplayClockTest, TellsOnlyOfPositionsThatChange)
{
    m_clock.setPosition(5);
    m_clock.setPosition(5);
    EXPECT_THAT(m_events, ElementsAre("position 5"));
}

TEST_F(ReplayClockTest, FollowsAShorterRecording)
{
    m_clock.setPosition(100);
    m_clock.setMaximum(50);
    EXPECT_EQ(m_clock.position(), 50);
    m_clock.setMaximum(-3);
    EXPECT_EQ(m_clock.maximum(), 0);
    EXPECT_THAT(m_events, ElementsAre("position 100", "position 50", "position 0"));
}

TEST_F(ReplayClockTest, TellsTheLengthBeforeThePositionThatItCuts)
{
    QObject::connect(&m_clock, &ReplayClock::maximumChanged, &m_clock, [this](int maximum) {
        m_events.push_back("maximum " + std::to_string(maximum));
    });
    m_clock.setMaximum(123);
    m_clock.setPosition(100);
    m_clock.setMaximum(50);
    EXPECT_THAT(m_events, ElementsAre("position 100", "maximum 50", "position 50"));
}

TEST_F(ReplayClockTest, RewindTellsThePositionInAnyCase)
{
    m_clock.setPosition(9);
    m_clock.rewind();
    m_clock.rewind();
    EXPECT_EQ(m_clock.position(), 0);
    EXPECT_THAT(m_events, ElementsAre("position 9", "position 0", "position 0"));
}

TEST_F(ReplayClockTest, PlaysAndStops)
{
    m_clock.togglePlaying();
    EXPECT_TRUE(m_clock.isPlaying());
    EXPECT_TRUE(timer().isActive());
    m_clock.togglePlaying();
    EXPECT_FALSE(m_clock.isPlaying());
    EXPECT_FALSE(timer().isActive());
    EXPECT_THAT(m_events, ElementsAre("play", "stop"));
}

TEST_F(ReplayClockTest, PlaysOnFromWhereItWasStopped)
{
    playFrom(60);
    m_clock.togglePlaying();
    m_clock.togglePlaying();
    EXPECT_EQ(m_clock.position(), 60);
}

TEST_F(ReplayClockTest, StartsOverAtTheEnd)
{
    m_clock.setPosition(123);
    m_events.clear();
    m_clock.togglePlaying();
    EXPECT_THAT(m_events, ElementsAre("position 0", "play"));
    EXPECT_TRUE(timer().isActive());
}

TEST_F(ReplayClockTest, AdvancesByTheRate)
{
    const std::vector<std::pair<int, int>> stepOfRate = {{0, 1}, {1, 2}, {2, 4}, {3, 1}, {-1, 1}};
    for (const auto& [rate, step] : stepOfRate) {
        ReplayClock clock;
        clock.setMaximum(123);
        clock.setRate(rate);
        clock.togglePlaying();
        clock.tick();
        EXPECT_EQ(clock.position(), step) << rate;
        clock.tick();
        EXPECT_EQ(clock.position(), 2 * step) << rate;
        EXPECT_TRUE(clock.isPlaying());
    }
}

TEST_F(ReplayClockTest, TakesAnotherRateWhilePlaying)
{
    playFrom(0);
    m_clock.tick();
    m_clock.setRate(2);
    m_clock.tick();
    EXPECT_EQ(m_clock.position(), 5);
}

TEST_F(ReplayClockTest, StopsAtTheEndBeforeItTellsThePosition)
{
    m_clock.setRate(2);
    playFrom(121);
    m_clock.tick();
    EXPECT_THAT(m_events, ElementsAre("stop", "position 123"));
    EXPECT_FALSE(m_clock.isPlaying());
    EXPECT_FALSE(timer().isActive());
}

TEST_F(ReplayClockTest, StopsWhenAStepEndsExactlyAtTheEnd)
{
    playFrom(121);
    m_clock.tick();
    EXPECT_TRUE(m_clock.isPlaying());
    m_clock.tick();
    EXPECT_EQ(m_clock.position(), 123);
    EXPECT_FALSE(m_clock.isPlaying());
}

TEST_F(ReplayClockTest, NeverWraps)
{
    playFrom(122);
    for (int i = 0; i < 5; ++i)
        m_clock.tick();
    EXPECT_EQ(m_clock.position(), 123);
}

TEST_F(ReplayClockTest, StopsAtOnceWithoutLength)
{
    m_clock.setMaximum(0);
    m_events.clear();
    m_clock.togglePlaying();
    EXPECT_TRUE(timer().isActive());
    m_clock.tick();
    EXPECT_FALSE(timer().isActive());
    EXPECT_THAT(m_events, ElementsAre("play", "stop"));
}

TEST_F(ReplayClockTest, ContinuesFromWhereItWasDragged)
{
    playFrom(10);
    m_clock.setPosition(80);
    EXPECT_TRUE(timer().isActive());
    m_clock.tick();
    EXPECT_EQ(m_clock.position(), 81);
}

TEST_F(ReplayClockTest, StopsOneTickAfterItWasDraggedToTheEnd)
{
    playFrom(10);
    m_clock.setPosition(123);
    EXPECT_TRUE(m_clock.isPlaying());
    m_clock.tick();
    EXPECT_FALSE(m_clock.isPlaying());
}

TEST_F(ReplayClockTest, GoesOnWithAnotherRecording)
{
    playFrom(100);
    m_clock.setMaximum(50);
    m_clock.setPosition(0);
    EXPECT_TRUE(timer().isActive());
    m_clock.tick();
    EXPECT_EQ(m_clock.position(), 1);
    EXPECT_THAT(m_events, ElementsAre("position 50", "position 0", "position 1"));
}

TEST_F(ReplayClockTest, ReachesTheGreatestPosition)
{
    constexpr int kGreatest = std::numeric_limits<int>::max();
    m_clock.setMaximum(kGreatest);
    m_clock.setRate(2);
    playFrom(kGreatest - 1);
    m_clock.tick();
    EXPECT_EQ(m_clock.position(), kGreatest);
    EXPECT_FALSE(m_clock.isPlaying());
}

TEST_F(ReplayClockTest, KeepsRealTime)
{
    QElapsedTimer elapsed;
    elapsed.start();
    m_clock.togglePlaying();
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_clock.position() >= 10; }, 10'000));
    EXPECT_EQ(m_clock.position(), 10);
    EXPECT_GE(elapsed.elapsed(), 990);
    EXPECT_LE(elapsed.elapsed(), 2'000); // a loaded machine may be late
}

} // namespace
