#pragma once

#include <QString>
#include <QStringList>

/// Texts and numbers of the replay, free of widgets. All of them truncate, none rounds.
namespace ReplayText {

/// The last position of a recording of that many seconds, in tenths of a second; 0 for a duration
/// that is no positive number, and the largest position there is for one beyond it.
[[nodiscard]] int lastPosition(double seconds);

/// A position in tenths of a second as "mm:ss.t"; minutes take as many digits as they need.
[[nodiscard]] QString timeText(int position);

/// What the status bar says about a recording that was loaded. The duration is in seconds.
[[nodiscard]] QString loadedText(const QString& fileName, qsizetype channelCount, double duration);

/// The same for the tool tip of the replay, with the names of the first channels. Plain text.
[[nodiscard]] QString recordingTip(const QString& fileName, const QStringList& channels,
                                   double duration);

} // namespace ReplayText
