#pragma once

#include "telemetry/RecordingReader.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>

class XrkLibrary;

/// One recording held wholly in memory, and the lookup of layout channels in it. Owns the reader
/// library from one load to the next or to clear, also when the file could not be opened; an open
/// file is closed before the library is unloaded. GUI thread only.
class TelemetrySession
{
public:
    TelemetrySession();
    ~TelemetrySession();
    TelemetrySession(const TelemetrySession&) = delete;
    TelemetrySession& operator=(const TelemetrySession&) = delete;

    /// Replaces the whole contents by the recording at filePath, read through the library at
    /// libraryPath. False when either cannot be opened; the session then holds no recording. A
    /// recording without any usable channel loads.
    [[nodiscard]] bool load(const QString& filePath, const QString& libraryPath);
    /// Closes the file, forgets everything and unloads the library.
    void clear();

    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    /// Length of the replay in seconds; 0 when empty. Infinite when the recording says so.
    [[nodiscard]] double duration() const { return m_recording.duration; }
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

    Recording m_recording;
    // By layout name as asked; null where nothing matches.
    mutable std::map<QString, const TelemetryChannel*> m_matchCache;
    bool m_loaded = false;
    std::unique_ptr<XrkLibrary> m_library;
    int m_fileIndex = -1;
};
