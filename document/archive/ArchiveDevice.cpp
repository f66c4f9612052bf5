#include "document/archive/ArchiveDevice.h"

#include "document/archive/Checksum.h"

#include <QIODevice>

namespace {

ArchiveDevice& object(voidpf self)
{
    return *static_cast<ArchiveDevice*>(self);
}

} // namespace

zlib_filefunc64_def ArchiveDevice::hooks()
{
    return {&open, &read, &write, &tell, &seek, &close, &error, this};
}

qint64 ArchiveDevice::readAt(quint64 position, char* buffer, qint64 size)
{
    const qint64 count =
        m_device.seek(static_cast<qint64>(position)) ? m_device.read(buffer, size) : -1;
    m_failed = m_failed || count < 0;
    return count;
}

void ArchiveDevice::startSum()
{
    m_sums = true;
    m_writtenCrc = 0;
}

voidpf ArchiveDevice::open(voidpf self, const void* /*path*/, int /*mode*/)
{
    return self; // the device is open already
}

uLong ArchiveDevice::read(voidpf self, voidpf /*stream*/, void* buffer, uLong size)
{
    ArchiveDevice& device = object(self);
    const qint64 count =
        device.m_device.read(static_cast<char*>(buffer), static_cast<qint64>(size));
    device.m_failed = device.m_failed || count < 0;
    return count < 0 ? 0 : static_cast<uLong>(count);
}

uLong ArchiveDevice::write(voidpf self, voidpf /*stream*/, const void* buffer, uLong size)
{
    ArchiveDevice& device = object(self);
    const qint64 count =
        device.m_device.write(static_cast<const char*>(buffer), static_cast<qint64>(size));
    device.m_failed = device.m_failed || count != static_cast<qint64>(size);
    if (device.m_sums)
        device.m_writtenCrc = extendedCrc(device.m_writtenCrc, static_cast<const char*>(buffer),
                                          static_cast<qint64>(size));
    return count < 0 ? 0 : static_cast<uLong>(count);
}

ZPOS64_T ArchiveDevice::tell(voidpf self, voidpf /*stream*/)
{
    return static_cast<ZPOS64_T>(object(self).m_device.pos());
}

long ArchiveDevice::seek(voidpf self, voidpf /*stream*/, ZPOS64_T offset, int origin)
{
    ArchiveDevice& device = object(self);
    device.m_sums = false;
    qint64 target = static_cast<qint64>(offset);
    if (origin == ZLIB_FILEFUNC_SEEK_CUR)
        target += device.m_device.pos();
    else if (origin == ZLIB_FILEFUNC_SEEK_END)
        target += device.m_device.size();
    if (target < 0)
        return -1; // a damaged archive points there; the device is fine
    const bool moved = device.m_device.seek(target);
    device.m_failed = device.m_failed || !moved;
    return moved ? 0 : -1;
}

int ArchiveDevice::close(voidpf /*self*/, voidpf /*stream*/)
{
    return 0; // the device belongs to somebody else
}

int ArchiveDevice::error(voidpf self, voidpf /*stream*/)
{
    return object(self).m_failed ? 1 : 0;
}
