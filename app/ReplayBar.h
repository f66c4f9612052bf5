#pragma once

#include <QWidget>

class JumpSlider;
class QComboBox;
class QLabel;
class QPushButton;
class ReplayClock;

/// The controls of the replay, and the clock that they show, which the bar owns. The clock holds
/// position and length; slider and label follow its signals, and what the user does with the slider
/// goes to the clock. Knows nothing of recordings but their length.
class ReplayBar : public QWidget
{
    Q_OBJECT

public:
    explicit ReplayBar(QWidget* parent = nullptr);

    /// A recording of that many seconds was loaded: enables the controls and goes to its beginning.
    /// A replay that is running goes on.
    void setDuration(double seconds);
    /// The tool tip of slider and time, shown verbatim; none when empty.
    void setRecordingTip(const QString& text);
    /// What a click on the play button does; nothing before a recording was loaded.
    void togglePlaying();

Q_SIGNALS:
    /// The replay position, in seconds, was set; by setDuration also to where it was.
    void timeChanged(double seconds);

private:
    void createControls();
    void connectControls();
    void onMaximumChanged(int maximum);
    void onPositionChanged(int position);
    void onPlayingChanged(bool playing);

    ReplayClock* m_clock;
    QPushButton* m_playButton = nullptr;
    QComboBox* m_rateCombo = nullptr;
    JumpSlider* m_slider = nullptr;
    QLabel* m_timeLabel = nullptr;
};
