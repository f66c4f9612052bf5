#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QSlider;
class ReplayClock;

/// The controls of the replay: a view of the replay clock, which it owns. The slider counts tenths
/// of a second and is the one place that holds position and length; the clock follows it, and moves
/// it while playing. Knows nothing of recordings but their length.
class ReplayBar : public QWidget
{
    Q_OBJECT

public:
    explicit ReplayBar(QWidget* parent = nullptr);

    /// A recording of that many seconds was loaded: enables the controls and goes to its beginning.
    /// A replay that is running goes on.
    void setDuration(double seconds);

Q_SIGNALS:
    /// The replay position in seconds was set.
    void timeChanged(double seconds);

private:
    void createControls();
    void connectControls();
    void onPositionChanged(int position);
    void onPlayingChanged(bool playing);

    ReplayClock* m_clock;
    QPushButton* m_playButton = nullptr;
    QComboBox* m_rateCombo = nullptr;
    QSlider* m_slider = nullptr;
    QLabel* m_timeLabel = nullptr;
};
