#pragma once

#include "document/archive/Outcome.h"

#include <QByteArray>
#include <QString>

#include <initializer_list>
#include <vector>

class QIODevice;

/// What the directory of an archive says about one member.
struct ArchiveMember
{
    QByteArray rawName; ///< all bytes, in no known encoding
    QString name;       ///< decoded as UTF-8 up to the first NUL, at most 512 bytes of it
    quint16 versionMadeBy = 0;
    quint16 flags = 0;
    quint16 method = 0;
    quint32 dosDate = 0; ///< time in the lower, date in the upper half
    quint32 crc = 0;
    quint64 packedSize = 0; ///< bytes
    quint64 size = 0;       ///< declared size once unpacked, bytes
    quint16 internalAttributes = 0;
    quint32 externalAttributes = 0;
    QByteArray extra; ///< without the field for 64-bit sizes, whose values are here
    QByteArray comment;
    quint64 offset = 0; ///< of the local header in the file, bytes

    [[nodiscard]] bool isFolder() const;
    [[nodiscard]] bool isEncrypted() const;
    /// Whether it is compressed with one of the two supported methods, "stored" and "deflate".
    [[nodiscard]] bool isMethodKnown() const;
};

struct ArchiveDirectory
{
    std::vector<ArchiveMember> members; ///< in the archive's order
    QByteArray comment;
    bool isComplete = true; ///< false when damage hides the members after the last one
};

/// Reads the directory of the archive in a readable, seekable device. A damaged directory ends
/// where the damage begins. Fails when there is no archive, when it is beyond a limit (see
/// ArchiveLimits.h) or when the device fails.
Outcome readDirectory(QIODevice& device, ArchiveDirectory& directory);

/// Extra fields without those of the kinds given. What follows the last field is kept when it is
/// padding, all zeros; other tools refuse an archive for anything else there.
[[nodiscard]] QByteArray withoutExtraFields(const QByteArray& extra,
                                            std::initializer_list<quint16> kinds);
/// The external attribute that marks a folder; it counts for a member without content only.
inline constexpr quint32 kDosFolder = 0x10;
/// The kind of extra field that holds sizes and offsets beyond 32 bits.
inline constexpr quint16 kWideField = 1;
