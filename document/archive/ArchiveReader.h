#pragma once

#include "document/archive/ArchiveDevice.h"

#include <QString>

#include <unzip.h>

#include <memory>

/// What the directory of an archive says about one member.
struct ArchiveMember
{
    QString name;         ///< decoded up to the first NUL, at most 512 bytes of it
    quint64 size = 0;     ///< declared size once unpacked, bytes
    bool readable = true; ///< neither encrypted nor of an unknown compression

    [[nodiscard]] bool isFolder() const { return name.endsWith(u'/'); }
};

/// Walks the members of a ZIP archive in the order of its directory and unpacks them one by one.
///
/// Checks what the library leaves unchecked and repairs what it gets wrong; what is allowed to be
/// unpacked, and where to, is the caller's business. The device belongs to the caller.
class ArchiveReader
{
public:
    /// The device must be open for reading, seekable, and outlive the reader.
    explicit ArchiveReader(QIODevice& device);

    /// False when the device does not hold an archive.
    [[nodiscard]] bool isOpen() const { return m_archive != nullptr; }
    /// Whether reading the device itself ever failed, as opposed to a damaged archive.
    [[nodiscard]] bool deviceFailed() const { return m_device.failed(); }

    /// Moves to the first or next member; false when there is none or the directory is damaged
    /// there.
    [[nodiscard]] bool toFirst();
    [[nodiscard]] bool toNext();

    /// The member that the last successful move went to.
    [[nodiscard]] const ArchiveMember& current() const { return m_current; }

    /// Writes the content of the current member into a file, replacing it. A member whose data are
    /// damaged ends where the damage begins, and that is no failure.
    /// @return false when the member cannot be opened, when the file cannot be written completely,
    /// or when all members together unpack to more than the archive can hold, because they share
    /// their data.
    [[nodiscard]] bool extractCurrent(const QString& filePath);

private:
    struct Closer
    {
        void operator()(unzFile archive) const { unzClose(archive); }
    };

    [[nodiscard]] bool toRecordBeyondCount();
    [[nodiscard]] bool readRecord();
    [[nodiscard]] quint64 declaredSize(const unz_file_info64& info) const;

    ArchiveDevice m_device;
    quint64 m_believable; ///< bytes that may still be unpacked
    std::unique_ptr<std::remove_pointer_t<unzFile>, Closer> m_archive;
    ArchiveMember m_current;
    bool m_wideSizes = false; ///< the current member's sizes stand in the 64-bit field
};

/// Whether the device holds nothing but the end record of an archive without members, with or
/// without the 64-bit ones before it. That is a valid archive, but the library refuses to open it.
[[nodiscard]] bool isEmptyArchive(QIODevice& device);
