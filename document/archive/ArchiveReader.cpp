#include "document/archive/ArchiveReader.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <vector>

namespace {

constexpr uLong kNameLimit = 512;
constexpr quint64 kChunkSize = 8192;
constexpr uLong kEncryptedFlag = 1;
/// The most that a byte of deflated data unpacks to, rounded up.
constexpr quint64 kGreatestExpansion = 1032;
/// Fixed part of a member's record in the directory, bytes.
constexpr ZPOS64_T kDirectoryRecordSize = 46;
/// Stands where a size needs the 64-bit field.
constexpr quint64 kSizeElsewhere = 0xffffffff;
constexpr quint16 kWideSizesField = 1;

/// Keeps the current member open for reading.
class OpenMember
{
public:
    explicit OpenMember(unzFile archive)
        : m_archive(archive),
          m_isOpen(unzOpenCurrentFile(archive) == UNZ_OK)
    {
    }
    OpenMember(const OpenMember&) = delete;
    OpenMember& operator=(const OpenMember&) = delete;
    ~OpenMember()
    {
        if (m_isOpen)
            unzCloseCurrentFile(m_archive);
    }

    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// Number of bytes read, 0 at the end of the member, negative where its data are damaged.
    [[nodiscard]] int read(char* buffer, quint64 size)
    {
        return unzReadCurrentFile(m_archive, buffer, static_cast<unsigned>(size));
    }

private:
    unzFile m_archive;
    bool m_isOpen;
};

/// The unpacked size in a member's extra fields, or fallback when they do not hold one.
quint64 wideSize(const std::vector<char>& fields, quint64 fallback)
{
    constexpr std::size_t kHeader = 4;
    std::size_t at = 0;
    while (at + kHeader <= fields.size()) {
        const auto id = qFromLittleEndian<quint16>(&fields[at]);
        const std::size_t length = qFromLittleEndian<quint16>(&fields[at + 2]);
        at += kHeader;
        if (id == kWideSizesField && length >= sizeof(quint64) &&
            at + sizeof(quint64) <= fields.size())
            return qFromLittleEndian<quint64>(&fields[at]);
        at += length;
    }
    return fallback;
}

/// Bytes that are no UTF-8 take three times their room as replacement characters. What is longer
/// than the limit then goes at once: the saved package would be cut there when it is opened again.
QString decodedName(const char* bytes)
{
    QString name = QString::fromUtf8(bytes);
    while (name.toUtf8().size() > qsizetype{kNameLimit})
        name.chop(1);
    return name;
}

constexpr qsizetype kEndSize = 22;
/// The 64-bit end record and its locator, which stand before the end record.
constexpr qsizetype kWideEndSize = 56 + 20;

template <typename T>
T number(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<T>(bytes.data() + at);
}

/// Whether bytes begin with the 64-bit end records of an archive without members.
bool isEmptyWideEnd(const QByteArray& bytes)
{
    constexpr qsizetype kTotalAt = 32;
    constexpr qsizetype kLocatorAt = 56;
    return bytes.size() >= kWideEndSize && bytes.startsWith(QByteArrayLiteral("PK\6\6")) &&
           number<quint64>(bytes, kTotalAt) == 0 &&
           bytes.mid(kLocatorAt).startsWith(QByteArrayLiteral("PK\6\7"));
}

/// Whether an end record counts no members, or leaves that to the 64-bit one.
bool countsNothing(const QByteArray& end, bool mayLeaveIt)
{
    constexpr qsizetype kTotalAt = 10;
    constexpr quint16 kCountElsewhere = 0xffff;
    const auto total = number<quint16>(end, kTotalAt);
    return total == 0 || (mayLeaveIt && total == kCountElsewhere);
}

} // namespace

ArchiveReader::ArchiveReader(QIODevice& device)
    : m_device(device),
      m_believable(kGreatestExpansion * static_cast<quint64>(device.size()))
{
    zlib_filefunc64_def hooks = m_device.hooks();
    m_archive.reset(unzOpen2_64(nullptr, &hooks));
}

bool ArchiveReader::toFirst()
{
    return unzGoToFirstFile(m_archive.get()) == UNZ_OK && readRecord();
}

bool ArchiveReader::toNext()
{
    const int status = unzGoToNextFile(m_archive.get());
    return (status == UNZ_OK || (status == UNZ_END_OF_LIST_OF_FILE && toRecordBeyondCount())) &&
           readRecord();
}

/// The count in the end record has 16 bits and wraps in archives of more members; what the
/// directory holds counts, or a later save would lose the rest.
bool ArchiveReader::toRecordBeyondCount()
{
    unz_file_info64 info{};
    unz64_file_pos position{};
    if (unzGetCurrentFileInfo64(m_archive.get(), &info, nullptr, 0, nullptr, 0, nullptr, 0) !=
            UNZ_OK ||
        unzGetFilePos64(m_archive.get(), &position) != UNZ_OK)
        return false;
    position.pos_in_zip_directory +=
        kDirectoryRecordSize + info.size_filename + info.size_file_extra + info.size_file_comment;
    ++position.num_of_file;
    return unzGoToFilePos64(m_archive.get(), &position) == UNZ_OK;
}

bool ArchiveReader::readRecord()
{
    std::array<char, kNameLimit + 1>
        name{}; // the library ends a name with NUL only if it is shorter
    unz_file_info64 info{};
    if (unzGetCurrentFileInfo64(m_archive.get(), &info, name.data(), kNameLimit, nullptr, 0,
                                nullptr, 0) != UNZ_OK)
        return false;
    const bool knownMethod = info.compression_method == 0 || info.compression_method == Z_DEFLATED;
    m_wideSizes =
        info.uncompressed_size == kSizeElsewhere || info.compressed_size == kSizeElsewhere;
    m_current = {decodedName(name.data()), declaredSize(info),
                 knownMethod && (info.flag & kEncryptedFlag) == 0};
    return true;
}

/// The library leaves sizes that stand in the 64-bit field unresolved where unsigned long has 64
/// bits.
quint64 ArchiveReader::declaredSize(const unz_file_info64& info) const
{
    if (info.uncompressed_size != kSizeElsewhere)
        return info.uncompressed_size;
    std::vector<char> fields(info.size_file_extra);
    unzGetCurrentFileInfo64(m_archive.get(), nullptr, nullptr, 0, fields.data(),
                            info.size_file_extra, nullptr, 0);
    return wideSize(fields, info.uncompressed_size);
}

bool ArchiveReader::extractCurrent(const QString& filePath)
{
    quint64 remaining = m_current.size;
    m_device.setPadded(m_wideSizes);
    OpenMember member(m_archive.get());
    if (!member.isOpen())
        return false;
    QFile file(filePath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    std::array<char, kChunkSize> chunk{};
    while (remaining > 0) {
        const int count = member.read(chunk.data(), std::min(remaining, kChunkSize));
        if (count <= 0)
            break;
        const auto size = static_cast<quint64>(count);
        if (size > m_believable || file.write(chunk.data(), count) != count)
            return false;
        remaining -= size;
        m_believable -= size;
    }
    file.close();
    return file.error() == QFileDevice::NoError;
}

bool isEmptyArchive(QIODevice& device)
{
    constexpr qsizetype kCommentLengthAt = 20;
    if (!device.seek(0))
        return false;
    const QByteArray start = device.read(kWideEndSize + kEndSize);
    const bool wide = isEmptyWideEnd(start);
    const qsizetype endAt = wide ? kWideEndSize : 0;
    const QByteArray end = start.mid(endAt, kEndSize);
    return end.size() == kEndSize && end.startsWith(QByteArrayLiteral("PK\5\6")) &&
           countsNothing(end, wide) &&
           device.size() == endAt + kEndSize + number<quint16>(end, kCommentLengthAt);
}
