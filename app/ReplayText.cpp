#include "app/ReplayText.h"

#include "telemetry/ReplayClock.h"

#include <QCoreApplication>

#include <limits>

namespace {

constexpr int kSecondsPerMinute = 60;

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
    const int seconds = truncated(duration);
    return QCoreApplication::translate("ReplayText",
                                       "Loaded XRK: %1 | %2 channels | Duration: %3:%4")
        .arg(fileName, QString::number(channelCount), twoDigits(seconds / kSecondsPerMinute),
             twoDigits(seconds % kSecondsPerMinute));
}
