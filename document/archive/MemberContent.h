#pragma once

#include "document/archive/ArchiveDirectory.h"
#include "document/archive/MemberStream.h"

#include <zlib.h>

#include <vector>

/// Unpacks a member, stored or deflated, and checks it.
///
/// Not with the library's own reading, which ignores what follows the declared size: damage there
/// would be copied into every saved package, and other tools refuse it.
class MemberContent
{
public:
    /// Both must outlive this.
    MemberContent(MemberStream& stream, const ArchiveMember& member);
    MemberContent(const MemberContent&) = delete;
    MemberContent& operator=(const MemberContent&) = delete;
    ~MemberContent() { inflateEnd(&m_inflater); }

    /// Number of bytes unpacked, fewer than `size` only at the end; negative where the data are
    /// damaged.
    [[nodiscard]] int read(char* buffer, unsigned size);

    /// Whether nothing but the content that was read is in the compressed bytes, and the checksum
    /// is right. Ask once, after reading to the declared size.
    [[nodiscard]] bool isExact();

    /// CRC of the compressed bytes; complete when the member is exact.
    [[nodiscard]] quint32 rawCrc() const { return m_rawCrc; }

private:
    int readStored(char* buffer, unsigned size);
    int inflateTo(char* buffer, unsigned size);
    [[nodiscard]] bool refill();
    [[nodiscard]] bool readRaw(char* buffer, unsigned size);

    MemberStream& m_stream;
    const ArchiveMember& m_member;
    quint64 m_packedLeft; ///< compressed bytes not yet read
    quint32 m_rawCrc = 0;
    quint32 m_contentCrc = 0;
    z_stream m_inflater{};
    bool m_hasEnded = false; ///< the deflate stream
    std::vector<char> m_input;
};
