#include "document/archive/MemberStream.h"

#include <algorithm>

MemberStream::MemberStream(unzFile archive, ArchiveDevice& device, quint64 recordAt)
    : m_archive(archive),
      m_device(device)
{
    int method = 0;
    int level = 0;
    const unz64_file_pos position{recordAt, 0};
    m_isOpen = unzGoToFilePos64(archive, &position) == UNZ_OK &&
               unzOpenCurrentFile2(archive, &method, &level, 1) == UNZ_OK;
    if (m_isOpen)
        m_rawAt = unzGetCurrentFileZStreamPos64(archive);
}

MemberStream::~MemberStream()
{
    if (m_isOpen)
        unzCloseCurrentFile(m_archive);
}

QByteArray MemberStream::localExtra() const
{
    const int size = unzGetLocalExtrafield(m_archive, nullptr, 0);
    QByteArray extra(std::max(size, 0), '\0');
    const int count =
        unzGetLocalExtrafield(m_archive, extra.data(), static_cast<unsigned>(extra.size()));
    return count == size ? extra : QByteArray();
}

int MemberStream::read(char* buffer, unsigned size)
{
    // The library would copy them byte by byte and compute a checksum that it keeps to itself.
    if (m_device.readAt(m_rawAt, buffer, size) != qint64{size})
        return -1;
    m_rawAt += size;
    return static_cast<int>(size);
}
