#pragma once

#include "document/archive/ArchiveDevice.h"

#include <QByteArray>

#include <unzip.h>

/// The compressed bytes of one member of an archive, open for reading. Only one per archive at a
/// time.
class MemberStream
{
public:
    /// Opens the member whose record is at a position of the directory.
    /// @param archive open on `device`; both must outlive the stream
    MemberStream(unzFile archive, ArchiveDevice& device, quint64 recordAt);
    MemberStream(const MemberStream&) = delete;
    MemberStream& operator=(const MemberStream&) = delete;
    ~MemberStream();

    /// False when the member's local header is damaged.
    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// The extra fields of the local header, which can differ from those in the directory.
    [[nodiscard]] QByteArray localExtra() const;

    /// The number of bytes, or negative when they cannot all be read. They have no end of their
    /// own: ask for no more than the record announces.
    [[nodiscard]] int read(char* buffer, unsigned size);

private:
    unzFile m_archive;
    ArchiveDevice& m_device;
    quint64 m_rawAt = 0; ///< position in the device of the bytes not yet read
    bool m_isOpen = false;
};
