#pragma once

#include <QtGlobal>

#include <optional>

class QIODevice;

/// The CRC-32 that ZIP archives have, of bytes that come in pieces.
/// @param crc of the bytes before these; 0 at the beginning
[[nodiscard]] quint32 extendedCrc(quint32 crc, const char* bytes, qint64 size);

struct ContentSum
{
    quint64 size = 0; ///< bytes
    quint32 crc = 0;

    bool operator==(const ContentSum&) const = default;
};

/// Reads an open device from its position to the end; nullopt if that fails.
[[nodiscard]] std::optional<ContentSum> sumContent(QIODevice& device);
