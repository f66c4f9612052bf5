#pragma once

#include <QString>

/// Trace file of which recorded channel each layout channel was matched to: one line per layout
/// channel and run of the program, whatever recordings are loaded. GUI thread only.
namespace MatchTrace {

/// Appends a line for a layout channel, unless this run has tried to before. Silent when the file
/// cannot be opened; its folder is not created.
/// @param recorded the matched name, empty when nothing matched
void record(const QString& channel, const QString& recorded);

/// The line that is written, with its line feed.
[[nodiscard]] QString line(const QString& channel, const QString& recorded);

} // namespace MatchTrace
