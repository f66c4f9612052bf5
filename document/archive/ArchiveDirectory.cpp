#include "document/archive/ArchiveDirectory.h"

#include "document/archive/ArchiveEnd.h"
#include "document/archive/ArchiveLimits.h"
#include "document/archive/ArchiveText.h"
#include "document/archive/LittleEndian.h"

#include <QIODevice>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

using LittleEndian::read;

constexpr qsizetype kRecordSize = 46; ///< fixed part of a member's record
constexpr qsizetype kFieldHeader = 4;
constexpr quint16 kEncryptedFlag = 1;
constexpr quint16 kDeflated = 8;
/// A value that the field for 64-bit ones has instead.
constexpr quint64 kWideValue = 0xffffffff;

/// Bytes that are not UTF-8 triple in size as replacement characters. What is then longer than the
/// limit is cut here, because it would be cut when a saved package is opened again.
QString decoded(const QByteArray& rawName)
{
    QString name = QString::fromUtf8(rawName.left(ArchiveLimits::kNameBytes).constData());
    while (name.toUtf8().size() > ArchiveLimits::kNameBytes)
        name.chop(name.back().isLowSurrogate() ? 2 : 1); // never half of a character
    return name;
}

/// Calls visit(kind, start, length of the whole field) for every extra field until it returns true.
template <typename Visit>
void forEachField(const QByteArray& extra, Visit visit)
{
    for (qsizetype at = 0; at + kFieldHeader <= extra.size();) {
        const qsizetype size = kFieldHeader + read<quint16>(extra, at + 2);
        if (at + size > extra.size() || visit(read<quint16>(extra, at), at, size))
            return;
        at += size;
    }
}

/// Takes the values that do not fit 32 bits from their own field, in the order of the format.
void resolveWideValues(const QByteArray& extra, ArchiveMember& member)
{
    forEachField(extra, [&](quint16 kind, qsizetype start, qsizetype size) {
        if (kind != kWideField)
            return false;
        qsizetype at = start + kFieldHeader;
        for (quint64* const value : {&member.size, &member.packedSize, &member.offset}) {
            if (*value != kWideValue || at + qsizetype{sizeof(quint64)} > start + size)
                continue;
            *value = read<quint64>(extra, at);
            at += sizeof(quint64);
        }
        return true;
    });
}

/// The member whose record is at a position of the directory, which moves behind it; false at the
/// end and where the directory is damaged.
bool readRecord(const QByteArray& directory, qsizetype& at, ArchiveMember& member)
{
    if (at + kRecordSize > directory.size() || directory.mid(at, 4) != QByteArrayLiteral("PK\1\2"))
        return false;
    const auto nameSize = read<quint16>(directory, at + 28);
    const auto extraSize = read<quint16>(directory, at + 30);
    const auto commentSize = read<quint16>(directory, at + 32);
    const qsizetype next = at + kRecordSize + nameSize + extraSize + commentSize;
    if (next > directory.size())
        return false;
    member.versionMadeBy = read<quint16>(directory, at + 4);
    member.flags = read<quint16>(directory, at + 8);
    member.method = read<quint16>(directory, at + 10);
    member.dosDate = read<quint32>(directory, at + 12);
    member.crc = read<quint32>(directory, at + 16);
    member.packedSize = read<quint32>(directory, at + 20);
    member.size = read<quint32>(directory, at + 24);
    member.internalAttributes = read<quint16>(directory, at + 36);
    member.externalAttributes = read<quint32>(directory, at + 38);
    member.offset = read<quint32>(directory, at + 42);
    member.rawName = directory.mid(at + kRecordSize, nameSize);
    member.name = decoded(member.rawName);
    const QByteArray extra = directory.mid(at + kRecordSize + nameSize, extraSize);
    resolveWideValues(extra, member);
    member.extra = withoutExtraFields(extra, {kWideField});
    member.comment = directory.mid(next - commentSize, commentSize);
    at = next;
    return true;
}

/// Whether what follows the last readable record is too long to be nothing, and no other kind of
/// record (a signature, 64-bit end records).
bool hidesMembers(const QByteArray& rest)
{
    return rest.size() >= kRecordSize && !rest.startsWith(QByteArrayLiteral("PK\5\5")) &&
           !rest.startsWith(QByteArrayLiteral("PK\6"));
}

Outcome readMembers(const QByteArray& bytes, qint64 before, ArchiveDirectory& directory)
{
    std::vector<ArchiveMember>& members = directory.members;
    qsizetype at = 0;
    for (ArchiveMember member; readRecord(bytes, at, member); member = {}) {
        if (members.size() == ArchiveLimits::kMembersRead)
            return Outcome::failure(ArchiveText::tr("The archive has too many members"));
        // An offset near the end of 64 bits is damaged; it must not wrap to a valid one.
        if (member.offset <= quint64{std::numeric_limits<qint64>::max()})
            member.offset += static_cast<quint64>(before);
        members.push_back(std::move(member));
    }
    directory.isComplete = !hidesMembers(bytes.mid(at));
    return {};
}

} // namespace

bool ArchiveMember::isFolder() const
{
    return name.endsWith(u'/') || ((externalAttributes & kDosFolder) != 0 && size == 0);
}

bool ArchiveMember::isEncrypted() const
{
    return (flags & kEncryptedFlag) != 0;
}

bool ArchiveMember::isMethodKnown() const
{
    return method == 0 || method == kDeflated;
}

Outcome readDirectory(QIODevice& device, ArchiveDirectory& directory)
{
    if (device.size() >= ArchiveLimits::kSize)
        return Outcome::failure(ArchiveText::tr("The archive is larger than 4 GB"));
    const std::optional<ArchiveEnd> end = findArchiveEnd(device);
    if (!end)
        return Outcome::failure(ArchiveText::tr("The file is not a ZIP archive"));
    const qint64 size = end->directoryEnd - end->directoryStart;
    if (size > ArchiveLimits::kDirectorySize)
        return Outcome::failure(ArchiveText::tr("The archive has too many members"));
    if (!device.seek(end->directoryStart))
        return Outcome::failure(device.errorString());
    const QByteArray bytes = device.read(size);
    if (bytes.size() != size)
        return Outcome::failure(device.errorString());
    directory.comment = end->comment;
    return readMembers(bytes, end->before, directory);
}

QByteArray withoutExtraFields(const QByteArray& extra, std::initializer_list<quint16> kinds)
{
    QByteArray kept;
    qsizetype parsed = 0;
    forEachField(extra, [&](quint16 kind, qsizetype start, qsizetype size) {
        if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end())
            kept += extra.mid(start, size);
        parsed = start + size;
        return false;
    });
    const QByteArray rest = extra.mid(parsed);
    return rest.count('\0') == rest.size() ? kept + rest : kept;
}
