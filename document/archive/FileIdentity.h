#pragma once

#include <QtGlobal>

#include <optional>

class QFile;

/// Tells whether a file is still the one that was seen before. A file written again by another
/// program gets another identity, unless that happens within the clock's resolution.
struct FileIdentity
{
    qint64 size = 0;
    qint64 modified = 0; ///< time of the last change, in the file system's resolution
    quint64 device = 0;  ///< 0 where the system numbers no files
    quint64 number = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// Of an open file; nullopt when the system does not say.
[[nodiscard]] std::optional<FileIdentity> identityOf(const QFile& file);
