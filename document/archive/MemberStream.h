#pragma once

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

    /// Opens the member whose record is at a position of the directory. The archive must outlive
    /// the stream.
    MemberStream(unzFile archive, quint64 recordAt, Form form);
    MemberStream(const MemberStream&) = delete;
    MemberStream& operator=(const MemberStream&) = delete;
    ~MemberStream() { close(); }

    /// False when the member's local header is damaged.
    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// The extra fields of the local header, which can differ from those in the directory.
    [[nodiscard]] QByteArray localExtra() const;

    /// Number of bytes read, 0 at the end, negative where the data are damaged.
    [[nodiscard]] int read(char* buffer, unsigned size);

    /// Ends reading. False when the stream was not open or when all unpacked bytes were read and
    /// their checksum is wrong.
    bool close();

private:
    unzFile m_archive;
    bool m_isOpen = false;
};
