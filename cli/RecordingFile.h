#pragma once

class Console;
class QString;
class TelemetrySession;

/// Loads a recording through the reader library that the editor uses. False after a failure, which
/// was reported.
[[nodiscard]] bool loadRecording(TelemetrySession& session, const QString& path, Console& console);
