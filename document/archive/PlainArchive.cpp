#include "document/archive/PlainArchive.h"

#include "document/archive/LittleEndian.h"

#include <algorithm>
#include <limits>

namespace {

using LittleEndian::append;

constexpr qsizetype kRecordSize = 46;
/// The library looks for a 64-bit end record in as many last bytes. These are zeros, so that it
/// finds none in the members' numbers.
constexpr qsizetype kSearched = 0x10000;

/// A value too large for the field gets the largest that fits.
quint32 plain(quint64 value)
{
    return static_cast<quint32>(std::min<quint64>(value, std::numeric_limits<quint32>::max()));
}

/// Without name, extra fields and comment: the library needs none of them to read the data. It
/// compares the length of the name with that in the local header.
void appendRecord(QByteArray& directory, const ArchiveMember& member)
{
    directory += QByteArrayLiteral("PK\1\2");
    append(directory, member.versionMadeBy);
    append<quint16>(directory, 20); // version needed
    append(directory, member.flags);
    append(directory, member.method);
    append(directory, member.dosDate);
    append(directory, member.crc);
    append(directory, plain(member.packedSize));
    append(directory, plain(member.size));
    append(directory, static_cast<quint16>(member.rawName.size()));
    append<quint32>(directory, 0); // lengths of extra fields and comment
    append<quint16>(directory, 0); // disk
    append(directory, member.internalAttributes);
    append(directory, member.externalAttributes);
    append(directory, plain(member.offset));
}

void appendEnd(QByteArray& directory, std::size_t members, qint64 start)
{
    const auto size = static_cast<quint32>(directory.size());
    const auto count = static_cast<quint16>(members);
    directory += QByteArrayLiteral("PK\5\6");
    append<quint32>(directory, 0); // disks
    append(directory, count);
    append(directory, count);
    append(directory, size);
    append(directory, static_cast<quint32>(start));
    append<quint16>(directory, 0); // length of the comment
}

} // namespace

PlainArchive::PlainArchive(QIODevice& archive, const std::vector<ArchiveMember>& members)
    : m_archive(archive),
      m_archiveSize(archive.size())
{
    m_directory.reserve(kRecordSize * static_cast<qsizetype>(members.size() + 1) + kSearched);
    for (const ArchiveMember& member : members)
        appendRecord(m_directory, member);
    m_directory.append(kSearched, '\0');
    appendEnd(m_directory, members.size(), m_archiveSize);
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

quint64 PlainArchive::recordAt(std::size_t index) const
{
    return static_cast<quint64>(m_archiveSize) + kRecordSize * index;
}

qint64 PlainArchive::size() const
{
    return m_archiveSize + m_directory.size();
}

qint64 PlainArchive::readData(char* data, qint64 size)
{
    const qint64 at = pos();
    if (at < m_archiveSize) {
        const qint64 wanted = std::min(size, m_archiveSize - at);
        // The library reads headers byte by byte, and every seek is a system call.
        const bool isThere = m_archive.pos() == at || m_archive.seek(at);
        return isThere && m_archive.read(data, wanted) == wanted ? wanted : -1;
    }
    const qint64 from = at - m_archiveSize;
    const qint64 count = std::min(size, m_directory.size() - from);
    std::copy_n(m_directory.constData() + from, count, data);
    return count;
}

qint64 PlainArchive::writeData(const char* /*data*/, qint64 /*size*/)
{
    return -1;
}
