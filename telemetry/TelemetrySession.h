#pragma once

#include "telemetry/RecordedNames.h"
#include "telemetry/RecordingReader.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

class XrkLibrary;

/// One recording held wholly in memory, and the lookup of layout channels in it.
///
/// Owns the reader library from one load to the next or to clear, also when the file could not be
/// opened; an open file is closed before the library is unloaded. Each layout channel is matched
/// once per recording, when its value or match is first queried. The first such match of a layout
/// channel in a run of the program goes to the trace file. GUI thread only.
class TelemetrySession
{
    Q_DECLARE_TR_FUNCTIONS(TelemetrySession)

public:
    TelemetrySession();
    ~TelemetrySession();
    TelemetrySession(const TelemetrySession&) = delete;
    TelemetrySession& operator=(const TelemetrySession&) = delete;

    /// Replaces the whole contents with the recording at filePath, read through the library at
    /// libraryPath. False when either cannot be opened: the session then holds no recording, and
    /// errorString() has the reason. A recording without any usable channel loads.
    [[nodiscard]] bool load(const QString& filePath, const QString& libraryPath);
    /// Why the last load failed, in words for the user: plain text without a full stop, with the
    /// loader's own words where it refused the library. Empty after a success or clear.
    [[nodiscard]] QString errorString() const { return m_error; }
    /// Closes the file, forgets everything and unloads the library.
    void clear();

    [[nodiscard]] bool isLoaded() const { return m_fileIndex >= 0; }
    /// Length of the replay in seconds; 0 when empty. Infinite when the recording says so.
    [[nodiscard]] double duration() const { return m_recording.duration; }
    /// The channels by lower-case name. Valid until the next load or clear.
    [[nodiscard]] const std::map<QString, TelemetryChannel>& channels() const
    {
        return m_recording.channels;
    }
    /// The recorded names, sorted by their lower-case form.
    [[nodiscard]] QStringList channelNames() const;

    /// The recorded channel that a layout channel name means, or an empty string. Uncached.
    [[nodiscard]] QString matchChannel(const QString& name) const;
    /// The same, matched once per name and recording: for use in every frame.
    [[nodiscard]] QString matchedName(const QString& name) const;
    /// The matched channel's value at that time, linearly interpolated and held at both ends; 0
    /// when nothing matches. In the recording's own unit.
    [[nodiscard]] double value(const QString& name, double seconds) const;

private:
    [[nodiscard]] const TelemetryChannel* matched(const QString& name) const;
    [[nodiscard]] QString refusal(const QString& filePath) const;

    Recording m_recording;
    RecordedNames m_names;
    // By layout name, verbatim; null where nothing matches.
    mutable std::map<QString, const TelemetryChannel*> m_matchCache;
    QString m_error;
    std::unique_ptr<XrkLibrary> m_library;
    int m_fileIndex = -1; // the library's number of the open file
};
