#pragma once

#include <QtGlobal>

#include <ioapi.h>

class QIODevice;

/// Lets the archive library read and write an open, seekable QIODevice instead of a file it opens
/// by name, so that every file name works and no failed call goes unnoticed.
///
/// Owns nothing: the device must outlive this, and this must outlive the library's handle.
class ArchiveDevice
{
public:
    explicit ArchiveDevice(QIODevice& device) : m_device(device) {}
    ArchiveDevice(const ArchiveDevice&) = delete;
    ArchiveDevice& operator=(const ArchiveDevice&) = delete;
    ~ArchiveDevice() = default;

    /// The functions to open the library's handle with. They refer to this object.
    [[nodiscard]] zlib_filefunc64_def hooks();

    /// Reads bytes that the library need not see. Their number; negative when the device fails.
    [[nodiscard]] qint64 readAt(quint64 position, char* buffer, qint64 size);

    /// Starts a checksum of the bytes that the library writes from here on without moving.
    void startSum();
    [[nodiscard]] quint32 writtenCrc() const { return m_writtenCrc; }

    /// Whether the device ever failed to read, write or move. A short read is no failure.
    [[nodiscard]] bool failed() const { return m_failed; }

private:
    static voidpf ZCALLBACK open(voidpf self, const void* path, int mode);
    static uLong ZCALLBACK read(voidpf self, voidpf stream, void* buffer, uLong size);
    static uLong ZCALLBACK write(voidpf self, voidpf stream, const void* buffer, uLong size);
    static ZPOS64_T ZCALLBACK tell(voidpf self, voidpf stream);
    static long ZCALLBACK seek(voidpf self, voidpf stream, ZPOS64_T offset, int origin);
    static int ZCALLBACK close(voidpf self, voidpf stream);
    static int ZCALLBACK error(voidpf self, voidpf stream);

    QIODevice& m_device;
    bool m_failed = false;
    bool m_sums = false;
    quint32 m_writtenCrc = 0;
};
