#include "app/ReplayBar.h"

#include "app/ReplayText.h"
#include "telemetry/ReplayClock.h"
#include "widgets/JumpSlider.h"
#include "widgets/LiteralToolTip.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr QMargins kMargins{4, 2, 4, 2};
constexpr int kPlayButtonWidth = 50;
constexpr int kRateComboWidth = 45;
constexpr int kTimeLabelWidth = 60;
constexpr int kPagesPerRecording = 20; // steps of Page Up and Page Down from end to end

} // namespace

ReplayBar::ReplayBar(QWidget* parent) : QWidget(parent), m_clock(new ReplayClock(this))
{
    createControls();
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->addWidget(m_playButton, 0);
    layout->addWidget(m_rateCombo, 0);
    layout->addWidget(m_slider, 1);
    layout->addWidget(m_timeLabel, 0);
    connectControls();
}

void ReplayBar::createControls()
{
    m_playButton = new QPushButton(tr("Play"));
    m_playButton->setObjectName(QStringLiteral("playButton"));
    m_playButton->setFixedWidth(kPlayButtonWidth);
    m_playButton->setEnabled(false);

    m_rateCombo = new QComboBox;
    m_rateCombo->setObjectName(QStringLiteral("rateCombo"));
    m_rateCombo->setAccessibleName(tr("Replay rate"));
    m_rateCombo->addItems({tr("1x"), tr("2x"), tr("4x")});
    m_rateCombo->setFixedWidth(kRateComboWidth);
    m_rateCombo->setEnabled(false);

    m_slider = new JumpSlider;
    m_slider->setObjectName(QStringLiteral("replaySlider"));
    m_slider->setAccessibleName(tr("Replay position"));
    m_slider->setRange(0, 0);
    m_slider->setEnabled(false);

    m_timeLabel = new QLabel(ReplayText::timeText(0));
    m_timeLabel->setObjectName(QStringLiteral("timeLabel"));
    m_timeLabel->setFixedWidth(kTimeLabelWidth);
}

void ReplayBar::connectControls()
{
    connect(m_clock, &ReplayClock::maximumChanged, this, &ReplayBar::onMaximumChanged);
    connect(m_clock, &ReplayClock::positionChanged, this, &ReplayBar::onPositionChanged);
    connect(m_clock, &ReplayClock::playingChanged, this, &ReplayBar::onPlayingChanged);
    // Ends at the clock when the value came from there: it is the clock's position already.
    connect(m_slider, &QSlider::valueChanged, m_clock, &ReplayClock::setPosition);
    connect(m_playButton, &QPushButton::clicked, m_clock, &ReplayClock::togglePlaying);
    connect(m_rateCombo, &QComboBox::currentIndexChanged, m_clock, &ReplayClock::setRate);
}

void ReplayBar::setDuration(double seconds)
{
    m_clock->setMaximum(ReplayText::lastPosition(seconds));
    m_clock->rewind();
    m_slider->setEnabled(true);
    m_playButton->setEnabled(true);
    m_rateCombo->setEnabled(true);
}

void ReplayBar::setRecordingTip(const QString& text)
{
    const QString tip = text.isEmpty() ? text : literalMarkup(text);
    m_slider->setToolTip(tip);
    m_timeLabel->setToolTip(tip);
}

void ReplayBar::togglePlaying()
{
    m_playButton->click(); // ignored while the button is disabled
}

void ReplayBar::onMaximumChanged(int maximum)
{
    m_slider->setMaximum(maximum);
    m_slider->setPageStep(std::max(maximum / kPagesPerRecording, ReplayClock::kTicksPerSecond));
}

void ReplayBar::onPositionChanged(int position)
{
    m_timeLabel->setText(ReplayText::timeText(position));
    Q_EMIT timeChanged(m_clock->seconds());
    m_slider->setValue(position); // last, so that whoever follows the slider finds all in step
}

void ReplayBar::onPlayingChanged(bool playing)
{
    m_playButton->setText(playing ? tr("Stop") : tr("Play"));
}
