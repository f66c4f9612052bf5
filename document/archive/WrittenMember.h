#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// A member as it was written.
struct WrittenMember
{
    QByteArray rawName;
    QString path; ///< as in UnpackedMember
    quint32 crc = 0;
    std::optional<quint32> rawCrc; ///< of the compressed bytes, where it is known
};
