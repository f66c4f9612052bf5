#include "document/archive/ArchiveReader.h"

#include "document/archive/ArchiveLimits.h"
#include "document/archive/ArchiveText.h"
#include "document/archive/Checksum.h"

#include <algorithm>
#include <array>

namespace {

/// A damaged chunk is dropped as a whole, so a larger one would lose more.
constexpr quint64 kChunkSize = 8192;
constexpr quint64 kRawChunkSize = quint64{64} * 1024;

} // namespace

ArchiveReader::ArchiveReader(QIODevice& device, const std::vector<ArchiveMember>& members)
    : m_members(members),
      m_believable(ArchiveLimits::kExpansion * static_cast<quint64>(device.size())),
      m_rawBelievable(ArchiveLimits::kRawReads * static_cast<quint64>(device.size())),
      m_plain(device, members),
      m_device(m_plain)
{
    zlib_filefunc64_def hooks = m_device.hooks();
    m_archive.reset(unzOpen2_64(nullptr, &hooks));
}

MemberStream ArchiveReader::open(std::size_t index)
{
    return {m_archive.get(), m_device, m_plain.recordAt(index)};
}

Outcome ArchiveReader::extract(std::size_t index, QIODevice& target, std::optional<quint32>& rawCrc)
{
    rawCrc.reset();
    const ArchiveMember& member = m_members[index];
    MemberStream stream = open(index);
    if (!stream.isOpen()) {
        return Outcome::failure(ArchiveText::tr("The member \"%1\" is damaged").arg(member.name));
    }
    MemberContent content(stream, member);
    quint64 remaining = member.size;
    Outcome outcome = copyContent(content, remaining, target);
    if (outcome && remaining == 0 && isWorthReading(member.packedSize) && content.isExact())
        rawCrc = content.rawCrc();
    return outcome;
}

Outcome ArchiveReader::copyContent(MemberContent& content, quint64& remaining, QIODevice& target)
{
    std::array<char, kChunkSize> chunk{};
    while (remaining > 0) {
        const int count =
            content.read(chunk.data(), static_cast<unsigned>(std::min(remaining, kChunkSize)));
        if (count <= 0)
            return {};
        const auto size = static_cast<quint64>(count);
        if (size > m_believable) {
            return Outcome::failure(ArchiveText::tr(
                "The members share data and unpack to more than the archive can hold"));
        }
        if (target.write(chunk.data(), count) != count)
            return Outcome::failure(target.errorString());
        remaining -= size;
        m_believable -= size;
    }
    return {};
}

bool ArchiveReader::isWorthReading(quint64 packedSize)
{
    const bool isWorth = packedSize <= m_rawBelievable;
    m_rawBelievable -= isWorth ? packedSize : 0;
    return isWorth;
}

std::optional<quint32> ArchiveReader::rawCrc(std::size_t index)
{
    quint64 remaining = m_members[index].packedSize;
    if (!isWorthReading(remaining))
        return std::nullopt;
    MemberStream stream = open(index);
    if (!stream.isOpen())
        return std::nullopt;
    const auto chunk = std::make_unique_for_overwrite<char[]>(kRawChunkSize);
    quint32 crc = 0;
    while (remaining > 0) {
        const int count =
            stream.read(chunk.get(), static_cast<unsigned>(std::min(remaining, kRawChunkSize)));
        if (count <= 0)
            return std::nullopt;
        crc = extendedCrc(crc, chunk.get(), count);
        remaining -= static_cast<quint64>(count);
    }
    return crc;
}
