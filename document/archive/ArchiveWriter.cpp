#include "document/archive/ArchiveWriter.h"

#include "document/archive/ArchiveLimits.h"
#include "document/archive/ArchiveText.h"
#include "document/archive/BlockDeflater.h"
#include "document/archive/Checksum.h"

#include <QIODevice>

#include <algorithm>

namespace {

constexpr qint64 kChunkSize = qint64{64} * 1024;
constexpr quint16 kUtf8NameFlag = 1U << 11U;
/// The sizes follow the data, which the library does not write.
constexpr quint16 kSizesFollowFlag = 1U << 3U;
constexpr qint64 kLocalRecordSize = 30;     ///< fixed part
constexpr qint64 kDirectoryRecordSize = 46; ///< fixed part
constexpr qint64 kEndRecordSize = 22;       ///< fixed part

bool isAscii(const QByteArray& name)
{
    return std::all_of(name.cbegin(), name.cend(), [](char c) { return (c & '\x80') == 0; });
}

/// The library ends texts at a NUL. It gets another character, and the NULs are patched in later.
QByteArray withoutNuls(QByteArray text)
{
    return text.replace('\0', '\1');
}

zip_fileinfo fileInfo(const ArchiveMember& header)
{
    zip_fileinfo info{};
    info.dosDate = header.dosDate;
    info.tmz_date.tm_mon = ~0U; // so that a date of 0 stays 0
    info.internal_fa = header.internalAttributes;
    info.external_fa = header.externalAttributes;
    return info;
}

const char* dataOrNull(const QByteArray& bytes)
{
    return bytes.isEmpty() ? nullptr : bytes.constData();
}

} // namespace

ArchiveWriter::ArchiveWriter(QIODevice& device)
    : m_target(device),
      m_device(device),
      m_chunk(kChunkSize)
{
    zlib_filefunc64_def hooks = m_device.hooks();
    m_archive.reset(zipOpen2_64(nullptr, APPEND_STATUS_CREATE, nullptr, &hooks));
}

Outcome ArchiveWriter::addMember(const ArchiveMember& like, QIODevice& content)
{
    if (content.size() >= ArchiveLimits::kSize)
        return Outcome::failure(ArchiveText::tr("A file is larger than 4 GB"));
    if (Outcome begun = begin(like, like.extra, like.flags & kUtf8NameFlag, Z_DEFLATED, false);
        !begun)
        return begun;
    m_device.startSum(); // closing the member moves back to its header
    Outcome written = writeContent(content);
    Outcome closed = checked(zipCloseFileInZip(m_archive.get()) == ZIP_OK);
    return written ? closed : written;
}

Outcome ArchiveWriter::addDeflated(const ArchiveMember& like, const QByteArray& deflated,
                                   quint64 size, quint32 crc)
{
    if (Outcome begun = begin(like, like.extra, like.flags & kUtf8NameFlag, Z_DEFLATED, true);
        !begun)
        return begun;
    m_device.startSum();
    m_contentCrc = crc;
    const bool written = zipWriteInFileInZip(m_archive.get(), deflated.constData(),
                                             static_cast<unsigned>(deflated.size())) == ZIP_OK;
    return checked(zipCloseFileInZipRaw64(m_archive.get(), size, crc) == ZIP_OK && written);
}

Outcome ArchiveWriter::addFolder(const ArchiveMember& like)
{
    if (Outcome begun = begin(like, like.extra, like.flags & kUtf8NameFlag, 0, false); !begun)
        return begun;
    return checked(zipCloseFileInZip(m_archive.get()) == ZIP_OK);
}

Outcome ArchiveWriter::copyMember(const ArchiveMember& member, MemberStream& source, quint32 rawCrc,
                                  bool& intact)
{
    const QByteArray localExtra = withoutExtraFields(source.localExtra(), {kWideField});
    const auto flags = static_cast<quint16>(member.flags & ~kSizesFollowFlag);
    if (Outcome begun = begin(member, localExtra, flags, member.method, true); !begun)
        return begun;
    intact = writeRaw(member, source, rawCrc);
    return checked(zipCloseFileInZipRaw64(m_archive.get(), member.size, member.crc) == ZIP_OK &&
                   intact);
}

Outcome ArchiveWriter::begin(const ArchiveMember& header, const QByteArray& localExtra,
                             quint16 flags, int method, bool raw)
{
    if (!m_archive || ++m_members > ArchiveLimits::kMembersWritten)
        return Outcome::failure(ArchiveText::tr("There are more than 65,535 files"));
    rememberNuls(header);
    const zip_fileinfo info = fileInfo(header);
    const QByteArray name = withoutNuls(header.rawName);
    const QByteArray comment = withoutNuls(header.comment);
    const int status =
        zipOpenNewFileInZip4(m_archive.get(), name.constData(), &info, dataOrNull(localExtra),
                             static_cast<uInt>(localExtra.size()), dataOrNull(header.extra),
                             static_cast<uInt>(header.extra.size()), dataOrNull(comment), method,
                             Z_DEFAULT_COMPRESSION, raw ? 1 : 0, -MAX_WBITS, kDeflateMemoryLevel,
                             Z_DEFAULT_STRATEGY, nullptr, 0, header.versionMadeBy, flags);
    return checked(status == ZIP_OK);
}

void ArchiveWriter::rememberNuls(const ArchiveMember& header)
{
    const qint64 nameAt = m_directorySize + kDirectoryRecordSize;
    const qint64 commentAt = nameAt + header.rawName.size() + header.extra.size();
    m_directorySize = commentAt + header.comment.size();
    if (header.rawName.contains('\0')) {
        m_localPatches.push_back({m_target.pos() + kLocalRecordSize, header.rawName});
        m_directoryPatches.push_back({nameAt, header.rawName});
    }
    if (header.comment.contains('\0'))
        m_directoryPatches.push_back({commentAt, header.comment});
}

Outcome ArchiveWriter::writeContent(QIODevice& content)
{
    const qint64 size = content.size();
    qint64 total = 0;
    m_contentCrc = 0;
    while (true) {
        const qint64 count = content.read(m_chunk.data(), kChunkSize);
        if (count < 0)
            return Outcome::failure(content.errorString());
        if (count == 0)
            break;
        total += count;
        m_contentCrc = extendedCrc(m_contentCrc, m_chunk.data(), count);
        if (zipWriteInFileInZip(m_archive.get(), m_chunk.data(), static_cast<unsigned>(count)) !=
            ZIP_OK)
            return checked(false);
    }
    return total == size ? Outcome()
                         : Outcome::failure(ArchiveText::tr("A file cannot be read completely"));
}

bool ArchiveWriter::writeRaw(const ArchiveMember& member, MemberStream& source, quint32 rawCrc)
{
    quint64 remaining = member.packedSize;
    quint32 crc = 0;
    while (remaining > 0) {
        const int count = source.read(
            m_chunk.data(),
            static_cast<unsigned>(std::min<quint64>(remaining, static_cast<quint64>(kChunkSize))));
        if (count <= 0)
            return false;
        crc = extendedCrc(crc, m_chunk.data(), count);
        remaining -= static_cast<quint64>(count);
        if (zipWriteInFileInZip(m_archive.get(), m_chunk.data(), static_cast<unsigned>(count)) !=
            ZIP_OK)
            return true; // the source is intact; closing the member reports the failure
    }
    return crc == rawCrc;
}

Outcome ArchiveWriter::finish(const QByteArray& comment)
{
    const qint64 directoryStart = m_target.pos();
    const bool closed =
        m_archive && zipClose(m_archive.release(), dataOrNull(withoutNuls(comment))) == ZIP_OK;
    return checked(closed && applyPatches(directoryStart, comment));
}

bool ArchiveWriter::applyPatches(qint64 directoryStart, const QByteArray& comment)
{
    std::vector<Patch> patches = m_localPatches;
    for (const Patch& patch : m_directoryPatches)
        patches.push_back({directoryStart + patch.position, patch.bytes});
    if (comment.contains('\0'))
        patches.push_back({directoryStart + m_directorySize + kEndRecordSize, comment});
    const qint64 end = m_target.pos();
    const bool written = std::all_of(patches.cbegin(), patches.cend(), [this](const Patch& patch) {
        return m_target.seek(patch.position) && m_target.write(patch.bytes) == patch.bytes.size();
    });
    return written && (patches.empty() || m_target.seek(end));
}

Outcome ArchiveWriter::checked(bool written) const
{
    if (m_target.pos() >= ArchiveLimits::kSize)
        return Outcome::failure(ArchiveText::tr("The package is larger than 4 GB"));
    if (!written || m_device.failed())
        return Outcome::failure(ArchiveText::tr("The package cannot be written"));
    return {};
}

ArchiveMember newMember(const QByteArray& utf8Name, quint32 dosDate)
{
    ArchiveMember member;
    member.rawName = utf8Name;
    member.dosDate = dosDate;
    member.flags = isAscii(utf8Name) ? 0 : kUtf8NameFlag;
    return member;
}
