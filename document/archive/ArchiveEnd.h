#pragma once

#include <QByteArray>

#include <optional>

class QIODevice;

/// What the end records of an archive say.
struct ArchiveEnd
{
    qint64 directoryStart = 0; ///< in the file, bytes
    qint64 directoryEnd = 0;   ///< where the end records begin
    qint64 before = 0;         ///< bytes before the archive, which its own offsets do not count
    QByteArray comment;
};

/// Finds the end records at the end of a readable, seekable device.
///
/// Accepts what other tools accept: 64-bit records, wrong counts, a comment of any length, bytes
/// before the archive and some behind it. nullopt when there is no directory, when it is on another
/// disk, or when an archive without members does not end with its end record: then nothing shows
/// that these bytes are an archive.
[[nodiscard]] std::optional<ArchiveEnd> findArchiveEnd(QIODevice& device);
