#include "app/ReplayText.h"

#include "telemetry/ReplayClock.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr qsizetype kNamedChannels = 30; // as many as a tool tip has room for

/// Converts to int without leaving its range; not-a-number counts as 0.
int truncated(double value)
{
    constexpr int kLargest = std::numeric_limits<int>::max();
    if (!(value > 0.0))
        return 0;
    return value < kLargest ? static_cast<int>(value) : kLargest;
}

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString minutesOf(double duration)
{
    return twoDigits(truncated(duration) / kSecondsPerMinute);
}

QString secondsOf(double duration)
{
    return twoDigits(truncated(duration) % kSecondsPerMinute);
}

} // namespace

int ReplayText::lastPosition(double seconds)
{
    return truncated(seconds * ReplayClock::kTicksPerSecond);
}

QString ReplayText::timeText(int position)
{
    const int seconds = position / ReplayClock::kTicksPerSecond;
    return QStringLiteral("%1:%2.%3")
        .arg(twoDigits(seconds / kSecondsPerMinute), twoDigits(seconds % kSecondsPerMinute),
             QString::number(position % ReplayClock::kTicksPerSecond));
}

QString ReplayText::loadedText(const QString& fileName, qsizetype channelCount, double duration)
{
    return QCoreApplication::translate("ReplayText",
                                       "Loaded XRK: %1 | %2 channels | Duration: %3:%4")
        .arg(fileName, QString::number(channelCount), minutesOf(duration), secondsOf(duration));
}

QString ReplayText::recordingTip(const QString& fileName, const QStringList& channels,
                                 double duration)
{
    QStringList named = channels.first(std::min(channels.size(), kNamedChannels));
    if (named.size() < channels.size())
        named << QStringLiteral("...");
    return QCoreApplication::translate("ReplayText",
                                       "%1 | %2 channels | Duration: %3:%4 | Channels: %5")
        .arg(fileName, QString::number(channels.size()), minutesOf(duration), secondsOf(duration),
             named.join(QStringLiteral(", ")));
}
