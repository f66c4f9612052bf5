#pragma once

#include <QByteArray>
#include <QString>

/// A member as it was written.
struct WrittenMember
{
    QByteArray rawName;
    QString path; ///< as in UnpackedMember
    quint32 crc = 0;
    quint32 rawCrc = 0; ///< of the compressed bytes
};
