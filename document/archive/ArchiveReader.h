#pragma once

#include "document/archive/ArchiveDevice.h"
#include "document/archive/ArchiveDirectory.h"
#include "document/archive/MemberContent.h"
#include "document/archive/MemberStream.h"
#include "document/archive/PlainArchive.h"

#include <memory>
#include <optional>

/// Reads the members of a ZIP archive one by one.
///
/// Checks what the library leaves unchecked. What may be unpacked, and where to, is up to the
/// caller. The device belongs to the caller; it must be readable, seekable and outlive the reader.
class ArchiveReader
{
public:
    /// For members that readDirectory found in the device.
    ArchiveReader(QIODevice& device, const std::vector<ArchiveMember>& members);

    /// Whether reading the device itself ever failed, as opposed to a damaged archive.
    [[nodiscard]] bool deviceFailed() const { return m_device.failed(); }

    /// The index-th member. Only one stream may be open at a time.
    [[nodiscard]] MemberStream open(std::size_t index);

    /// Writes the content of the index-th member to an open device, up to the declared size. A
    /// member whose data are damaged ends where the damage begins, which is no failure.
    /// @param rawCrc receives the CRC of the compressed bytes when they hold exactly the content
    /// that the record announces; nullopt for a damaged member, or when the members share more data
    /// than is worth reading.
    Outcome extract(std::size_t index, QIODevice& target, std::optional<quint32>& rawCrc);

    /// The CRC of the compressed bytes without unpacking them; nullopt also when they cannot all be
    /// read.
    [[nodiscard]] std::optional<quint32> rawCrc(std::size_t index);

private:
    struct Closer
    {
        void operator()(unzFile archive) const { unzClose(archive); }
    };

    Outcome copyContent(MemberContent& content, quint64& remaining, QIODevice& target);
    [[nodiscard]] bool isWorthReading(quint64 packedSize);

    const std::vector<ArchiveMember>& m_members;
    quint64 m_believable;    ///< bytes that may still be unpacked
    quint64 m_rawBelievable; ///< compressed bytes that may still be read
    PlainArchive m_plain;
    ArchiveDevice m_device;
    std::unique_ptr<std::remove_pointer_t<unzFile>, Closer> m_archive;
};
