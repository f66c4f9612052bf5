#include "app/ReplayText.h"

#include "canvas/Saturate.h"
#include "telemetry/ReplayClock.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr qsizetype kNamedChannels = 30; // as many as a tool tip has room for

/// Truncated to whole numbers that are not negative.
int truncated(double value)
{
    return std::max(Saturate::truncate(value), 0);
}

/// "mm:ss"; minutes take as many digits as they need.
QString minutesAndSeconds(int seconds)
{
    constexpr QLatin1Char kZero('0');
    return QStringLiteral("%1:%2")
        .arg(seconds / kSecondsPerMinute, 2, 10, kZero)
        .arg(seconds % kSecondsPerMinute, 2, 10, kZero);
}

} // namespace

int ReplayText::lastPosition(double seconds)
{
    return truncated(seconds * ReplayClock::kTicksPerSecond);
}

QString ReplayText::timeText(int position)
{
    return minutesAndSeconds(position / ReplayClock::kTicksPerSecond) + u'.' +
           QString::number(position % ReplayClock::kTicksPerSecond);
}

QString ReplayText::loadedText(const QString& fileName, qsizetype channelCount, double duration)
{
    return QCoreApplication::translate("ReplayText", "Loaded XRK: %1 | %2 channels | Duration: %3")
        .arg(fileName, QString::number(channelCount), minutesAndSeconds(truncated(duration)));
}

QString ReplayText::recordingTip(const QString& fileName, const QStringList& channels,
                                 double duration)
{
    QStringList named = channels.first(std::min(channels.size(), kNamedChannels));
    if (named.size() < channels.size())
        named << QStringLiteral("...");
    return QCoreApplication::translate("ReplayText",
                                       "%1 | %2 channels | Duration: %3 | Channels: %4")
        .arg(fileName, QString::number(channels.size()), minutesAndSeconds(truncated(duration)),
             named.join(QStringLiteral(", ")));
}
