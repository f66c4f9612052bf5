#include "document/archive/MemberContent.h"

#include "document/archive/Checksum.h"

#include <algorithm>

namespace {

/// What a read beyond the end of a cut archive loses at most.
constexpr std::size_t kInputSize = std::size_t{16} * 1024;

} // namespace

MemberContent::MemberContent(MemberStream& stream, const ArchiveMember& member)
    : m_stream(stream),
      m_member(member),
      m_packedLeft(member.packedSize),
      m_input(kInputSize)
{
    inflateInit2(&m_inflater, -MAX_WBITS); // without memory every read fails
}

int MemberContent::read(char* buffer, unsigned size)
{
    const int count = m_member.method == 0 ? readStored(buffer, size) : inflateTo(buffer, size);
    if (count > 0)
        m_contentCrc = extendedCrc(m_contentCrc, buffer, count);
    return count;
}

bool MemberContent::isExact()
{
    const bool isRight = m_contentCrc == m_member.crc;
    char more = 0;
    return isRight && read(&more, 1) == 0 && m_packedLeft == 0 && m_inflater.avail_in == 0;
}

int MemberContent::readStored(char* buffer, unsigned size)
{
    const auto count = static_cast<unsigned>(std::min<quint64>(size, m_packedLeft));
    return readRaw(buffer, count) ? static_cast<int>(count) : -1;
}

int MemberContent::inflateTo(char* buffer, unsigned size)
{
    m_inflater.next_out = reinterpret_cast<Bytef*>(buffer);
    m_inflater.avail_out = size;
    while (m_inflater.avail_out > 0 && !m_hasEnded) {
        if (!refill())
            return -1;
        // Also without input: a part of the output can be pending.
        const int status = inflate(&m_inflater, Z_SYNC_FLUSH);
        m_hasEnded = status == Z_STREAM_END;
        if (status != Z_OK && !m_hasEnded)
            return -1;
    }
    return static_cast<int>(size - m_inflater.avail_out);
}

/// Makes sure that there is input unless all has been read.
bool MemberContent::refill()
{
    if (m_inflater.avail_in > 0 || m_packedLeft == 0)
        return true;
    const auto count = static_cast<unsigned>(std::min<quint64>(m_input.size(), m_packedLeft));
    if (!readRaw(m_input.data(), count))
        return false;
    m_inflater.next_in = reinterpret_cast<Bytef*>(m_input.data());
    m_inflater.avail_in = count;
    return true;
}

bool MemberContent::readRaw(char* buffer, unsigned size)
{
    if (size > 0 && m_stream.read(buffer, size) != static_cast<int>(size))
        return false;
    m_packedLeft -= size;
    m_rawCrc = extendedCrc(m_rawCrc, buffer, size);
    return true;
}
