#pragma once

#include "document/archive/ArchiveDevice.h"

#include <QByteArray>

#include <unzip.h>

/// One member of an archive, open for reading. Only one per archive at a time.
class MemberStream
{
public:
    enum class Form
    {
        Unpacked,
        Raw ///< compressed, as it is in the archive
    };

    /// Opens the member whose record is at a position of the directory.
    /// @param archive open on `device`; both must outlive the stream
    MemberStream(unzFile archive, ArchiveDevice& device, quint64 recordAt, Form form);
    MemberStream(const MemberStream&) = delete;
    MemberStream& operator=(const MemberStream&) = delete;
    ~MemberStream() { close(); }

    /// False when the member's local header is damaged.
    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// The extra fields of the local header, which can differ from those in the directory.
    [[nodiscard]] QByteArray localExtra() const;

    /// Number of bytes read, 0 at the end, negative where the data are damaged. Compressed bytes
    /// have no end of their own: ask for no more than the record announces.
    [[nodiscard]] int read(char* buffer, unsigned size);

    /// Ends reading. False when the stream was not open or when all unpacked bytes were read and
    /// their checksum is wrong.
    bool close();

private:
    unzFile m_archive;
    ArchiveDevice& m_device;
    Form m_form;
    quint64 m_rawAt = 0; ///< position in the device of the compressed bytes not yet read
    bool m_isOpen = false;
};
