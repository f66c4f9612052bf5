#include "document/archive/ArchiveWriter.h"

#include <QIODevice>

#include <algorithm>

namespace {

constexpr qint64 kChunkSize = qint64{64} * 1024;
/// Tells readers that a member's name is UTF-8.
constexpr uLong kUtf8NameFlag = 1U << 11U;
/// The library's own default, which its headers do not name.
constexpr int kMemoryLevel = 8;

bool isAscii(const QByteArray& name)
{
    return std::all_of(name.cbegin(), name.cend(), [](char c) { return (c & '\x80') == 0; });
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

bool ArchiveWriter::addMember(const QByteArray& name, QIODevice& content)
{
    if (!m_archive || ++m_members > kMaxMembers || content.size() >= kSizeLimit)
        return false;
    const bool written = beginMember(name) && writeContent(content);
    return zipCloseFileInZip(m_archive.get()) == ZIP_OK && written && isSound();
}

bool ArchiveWriter::beginMember(const QByteArray& name)
{
    const zip_fileinfo info{};
    return zipOpenNewFileInZip4(m_archive.get(), name.constData(), &info, nullptr, 0, nullptr, 0,
                                nullptr, Z_DEFLATED, Z_DEFAULT_COMPRESSION, 0, -MAX_WBITS,
                                kMemoryLevel, Z_DEFAULT_STRATEGY, nullptr, 0, 0,
                                isAscii(name) ? 0 : kUtf8NameFlag) == ZIP_OK;
}

bool ArchiveWriter::writeContent(QIODevice& content)
{
    const qint64 size = content.size();
    qint64 total = 0;
    while (true) {
        const qint64 count = content.read(m_chunk.data(), kChunkSize);
        if (count < 0)
            return false;
        if (count == 0)
            return total == size;
        total += count;
        if (zipWriteInFileInZip(m_archive.get(), m_chunk.data(), static_cast<unsigned>(count)) !=
            ZIP_OK)
            return false;
    }
}

bool ArchiveWriter::finish()
{
    return m_archive && zipClose(m_archive.release(), nullptr) == ZIP_OK && isSound();
}

bool ArchiveWriter::isSound() const
{
    return !m_device.failed() && m_target.pos() < kSizeLimit;
}
