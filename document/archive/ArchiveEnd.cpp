#include "document/archive/ArchiveEnd.h"

#include "document/archive/LittleEndian.h"

#include <QIODevice>

#include <algorithm>

namespace {

using LittleEndian::read;

constexpr qsizetype kEndSize = 22;
constexpr qsizetype kLocatorSize = 20;
constexpr qsizetype kWideEndSize = 56;
constexpr qsizetype kLongestComment = 0xffff;
/// These values mean that the 64-bit record has the real one.
constexpr quint16 kWideCount = 0xffff;
constexpr quint32 kWideValue = 0xffffffff;

/// One end record, with what the 64-bit record adds to it.
struct EndRecord
{
    qint64 directoryEnd = 0;
    quint64 count = 0;
    quint64 size = 0;   ///< of the directory
    quint64 offset = 0; ///< of the directory, as the archive counts
    bool endsFile = false;
    QByteArray comment;
};

QByteArray bytesAt(QIODevice& device, qint64 position, qint64 size)
{
    return position >= 0 && device.seek(position) ? device.read(size) : QByteArray();
}

bool isDirectoryRecord(QIODevice& device, qint64 position)
{
    return bytesAt(device, position, 4) == QByteArrayLiteral("PK\1\2");
}

/// Replaces the values that the 64-bit end record has, if there is one.
/// @param locator the bytes right before the end record, which is at endAt
void addWideEnd(QIODevice& device, const QByteArray& locator, qint64 endAt, EndRecord& end)
{
    if (!locator.startsWith(QByteArrayLiteral("PK\6\7")))
        return;
    // Its offset does not count bytes before the archive; its place before the locator does.
    for (const qint64 at : {endAt - kLocatorSize - kWideEndSize, read<qint64>(locator, 8)}) {
        const QByteArray wide = bytesAt(device, at, kWideEndSize);
        if (wide.size() < kWideEndSize || !wide.startsWith(QByteArrayLiteral("PK\6\6")))
            continue;
        end.directoryEnd = at;
        if (end.count == kWideCount)
            end.count = read<quint64>(wide, 32);
        if (end.size == kWideValue)
            end.size = read<quint64>(wide, 40);
        if (end.offset == kWideValue)
            end.offset = read<quint64>(wide, 48);
        return;
    }
}

/// The end record at a position of the last bytes of the file; nullopt when it is on another disk.
std::optional<EndRecord> endRecordAt(QIODevice& device, const QByteArray& tail, qsizetype at)
{
    const auto disk = read<quint16>(tail, at + 4);
    if (disk != 0 && disk != kWideCount)
        return std::nullopt;
    EndRecord end;
    end.directoryEnd = device.size() - tail.size() + at;
    end.count = read<quint16>(tail, at + 10);
    end.size = read<quint32>(tail, at + 12);
    end.offset = read<quint32>(tail, at + 16);
    const auto commentSize = read<quint16>(tail, at + 20);
    end.comment = tail.mid(at + kEndSize, commentSize);
    end.endsFile = at + kEndSize + commentSize == tail.size();
    if (at >= kLocatorSize)
        addWideEnd(device, tail.mid(at - kLocatorSize, kLocatorSize), end.directoryEnd, end);
    return end;
}

/// Where the directory is that an end record announces; nullopt when it cannot be anywhere.
std::optional<ArchiveEnd> directoryOf(const EndRecord& end)
{
    const auto last = static_cast<quint64>(end.directoryEnd);
    const bool empty = end.size == 0 && end.count == 0 && end.endsFile;
    if ((end.size == 0 && !empty) || end.size > last || end.offset > last - end.size)
        return std::nullopt;
    const auto start = static_cast<qint64>(last - end.size);
    return ArchiveEnd{start, end.directoryEnd, start - static_cast<qint64>(end.offset),
                      end.comment};
}

/// Whether a record of a member is where the directory should begin; corrects the place when other
/// records are between the directory and the end.
bool beginsWithMember(QIODevice& device, quint64 offset, ArchiveEnd& end)
{
    if (isDirectoryRecord(device, end.directoryStart))
        return true;
    if (!isDirectoryRecord(device, static_cast<qint64>(offset)))
        return false;
    end.directoryStart = static_cast<qint64>(offset);
    end.before = 0;
    return true;
}

} // namespace

std::optional<ArchiveEnd> findArchiveEnd(QIODevice& device)
{
    const qint64 size = std::min<qint64>(device.size(), kLocatorSize + kEndSize + kLongestComment);
    const QByteArray tail = bytesAt(device, device.size() - size, size);
    std::optional<ArchiveEnd> damaged;
    for (qsizetype at = tail.size() - kEndSize; at >= 0; --at) {
        at = tail.lastIndexOf(QByteArrayLiteral("PK\5\6"), at);
        if (at < 0)
            break;
        const std::optional<EndRecord> record = endRecordAt(device, tail, at);
        std::optional<ArchiveEnd> end = record ? directoryOf(*record) : std::nullopt;
        if (!end)
            continue;
        if (record->size == 0 || beginsWithMember(device, record->offset, *end))
            return end;
        if (!damaged)
            damaged = end;
    }
    return damaged;
}
