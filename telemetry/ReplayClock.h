#pragma once

#include <QObject>

class QTimer;

/// Moves a replay position through a recording in tenths of a second, without any widget. It is the
/// only owner of position and length: views show what its signals report.
///
/// The position runs from 0 to maximum(); a tick every 100 ms advances it by 1, 2 or 4 tenths, so
/// that rate 0 keeps real time. The clock stops at the end and never wraps. It owns its timer, a
/// child named "replayTimer".
class ReplayClock : public QObject
{
    Q_OBJECT

public:
    static constexpr int kTickMilliseconds = 100;
    static constexpr int kTicksPerSecond = 10; ///< positions a second of recording

    explicit ReplayClock(QObject* parent = nullptr);

    [[nodiscard]] int position() const { return m_position; }
    [[nodiscard]] int maximum() const { return m_maximum; }
    [[nodiscard]] int rate() const { return m_rate; }
    [[nodiscard]] bool isPlaying() const;
    /// The position in seconds.
    [[nodiscard]] double seconds() const;

    /// Sets the last position, in tenths of a second; a position beyond it moves to it.
    void setMaximum(int maximum);
    /// Moves to a position, clamped to 0 .. maximum(); emits positionChanged when it changes.
    void setPosition(int position);
    /// Moves to 0; emits positionChanged also when it is there already.
    void rewind();
    /// 0, 1 and 2 stand for 1x, 2x and 4x; anything else counts as 1x.
    void setRate(int rate) { m_rate = rate; }
    /// Starts (from the beginning when at the end) or stops.
    void togglePlaying();
    /// One step of the running replay, as the timer makes it.
    void tick();

Q_SIGNALS:
    /// Comes before the positionChanged that a shorter recording causes.
    void maximumChanged(int maximum);
    void positionChanged(int position);
    void playingChanged(bool playing);

private:
    void setPlaying(bool playing);

    QTimer* m_timer;
    int m_position = 0;
    int m_maximum = 0;
    int m_rate = 0;
};
