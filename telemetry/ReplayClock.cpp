#include "telemetry/ReplayClock.h"

#include <QTimer>

#include <algorithm>

namespace {

/// Positions that a tick advances.
int stepOf(int rate)
{
    return rate == 1 || rate == 2 ? 1 << rate : 1;
}

} // namespace

ReplayClock::ReplayClock(QObject* parent) : QObject(parent), m_timer(new QTimer(this))
{
    m_timer->setObjectName(QStringLiteral("replayTimer"));
    m_timer->setInterval(kTickMilliseconds);
    m_timer->setTimerType(Qt::PreciseTimer); // a coarse one would not keep real time
    connect(m_timer, &QTimer::timeout, this, &ReplayClock::tick);
}

bool ReplayClock::isPlaying() const
{
    return m_timer->isActive();
}

double ReplayClock::seconds() const
{
    return static_cast<double>(m_position) / kTicksPerSecond;
}

void ReplayClock::setMaximum(int maximum)
{
    const int valid = std::max(maximum, 0);
    if (valid != m_maximum) {
        m_maximum = valid;
        Q_EMIT maximumChanged(valid);
    }
    setPosition(m_position);
}

void ReplayClock::setPosition(int position)
{
    const int clamped = std::clamp(position, 0, m_maximum);
    if (clamped == m_position)
        return;
    m_position = clamped;
    Q_EMIT positionChanged(clamped);
}

void ReplayClock::rewind()
{
    m_position = 0;
    Q_EMIT positionChanged(0);
}

void ReplayClock::togglePlaying()
{
    if (!isPlaying() && m_position >= m_maximum)
        setPosition(0);
    setPlaying(!isPlaying());
}

void ReplayClock::tick()
{
    const int room = m_maximum - m_position;
    const int step = stepOf(m_rate);
    if (step >= room)
        setPlaying(false);
    setPosition(step >= room ? m_maximum : m_position + step);
}

void ReplayClock::setPlaying(bool playing)
{
    if (playing == isPlaying())
        return;
    if (playing)
        m_timer->start();
    else
        m_timer->stop();
    Q_EMIT playingChanged(playing);
}
