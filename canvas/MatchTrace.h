#pragma once

#include <QString>

/// The trace of which recorded channel each layout channel was matched to: a line a name, once per
/// run of the program, whatever documents and recordings are opened. GUI thread only.
namespace MatchTrace {

/// Appends a line for the layout channel unless that was tried before in this run. Silent when the
/// file cannot be opened; its folder is not created.
/// @param recorded the matched name, empty when nothing matched
void record(const QString& channel, const QString& recorded);

/// The line as it is written, with its line feed.
[[nodiscard]] QString line(const QString& channel, const QString& recorded);

} // namespace MatchTrace
