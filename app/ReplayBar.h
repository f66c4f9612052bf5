#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QSlider;
class ReplayClock;

/// The controls of the replay, and the clock that they drive, which the bar owns. Slider and clock
/// hold the same position, in tenths of a second, and whichever is moved takes the other along; the
/// length of the recording is set on the slider, and the clock takes it from there. Knows nothing
/// of recordings but their length.
class ReplayBar : public QWidget
{
    Q_OBJECT

public:
    explicit ReplayBar(QWidget* parent = nullptr);

    /// A recording of that many seconds was loaded: enables the controls and goes to its beginning.
    /// A replay that is running goes on.
    void setDuration(double seconds);

Q_SIGNALS:
    /// The replay position, in seconds, was set; by setDuration also to where it was.
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
