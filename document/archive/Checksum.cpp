#include "document/archive/Checksum.h"

#include <QIODevice>

#include <zlib.h>

#include <memory>

quint32 extendedCrc(quint32 crc, const char* bytes, qint64 size)
{
    return static_cast<quint32>(
        crc32(crc, reinterpret_cast<const Bytef*>(bytes), static_cast<uInt>(size)));
}

std::optional<ContentSum> sumContent(QIODevice& device)
{
    constexpr qint64 kChunkSize = qint64{128} * 1024;
    const auto chunk = std::make_unique_for_overwrite<char[]>(kChunkSize);
    ContentSum sum;
    qint64 count = 0;
    while ((count = device.read(chunk.get(), kChunkSize)) > 0) {
        sum.size += static_cast<quint64>(count);
        sum.crc = extendedCrc(sum.crc, chunk.get(), count);
    }
    return count < 0 ? std::nullopt : std::optional(sum);
}
