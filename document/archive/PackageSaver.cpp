#include "document/archive/PackageSaver.h"

#include "document/archive/ArchiveLimits.h"
#include "document/archive/ArchiveText.h"
#include "document/archive/Checksum.h"
#include "document/archive/InputFile.h"
#include "document/archive/MemberPath.h"
#include "document/archive/Unpacking.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QTemporaryFile>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

/// Kinds of extra fields that hold times: they would contradict the date of a changed member.
constexpr quint16 kUnixTimes = 0x5455;
constexpr quint16 kFormerUnixTimes = 0x5855;
constexpr quint16 kNtfsTimes = 0x000a;

quint32 dosDateOf(const QDateTime& time)
{
    const QDate date = time.date();
    const int years = std::clamp(date.year() - 1980, 0, 127);
    const int day = years << 9 | date.month() << 5 | date.day();
    const int second =
        time.time().hour() << 11 | time.time().minute() << 5 | time.time().second() / 2;
    return static_cast<quint32>(day) << 16U | static_cast<quint32>(second);
}

/// Whether there is certainly no file. One that cannot be looked at is not missing.
bool isMissing(const QString& path)
{
    const QFileInfo info(path);
    std::error_code error;
    return !info.exists() && std::filesystem::status(info.filesystemFilePath(), error).type() ==
                                 std::filesystem::file_type::not_found;
}

/// Whether an open file has the content that a member has, by size and CRC; then reads it again
/// from the start.
/// @return a failure when the file cannot be read
Outcome compare(QFile& file, const ArchiveMember& member, bool& same)
{
    same = false;
    if (static_cast<quint64>(file.size()) != member.size)
        return {};
    const std::optional<ContentSum> found = sumContent(file);
    if (!found || !file.seek(0))
        return cannotRead(file);
    same = *found == ContentSum{member.size, member.crc};
    return {};
}

} // namespace

PackageSaver::PackageSaver(QIODevice& target, const std::vector<UnpackedMember>& members,
                           ArchiveReader* source, const QString& folder, const QStringList& files,
                           const DeflatedBlocks& former, bool careful)
    : m_writer(target),
      m_members(members),
      m_source(source),
      m_folder(folder),
      m_deflater(former),
      m_careful(careful),
      m_now(dosDateOf(QDateTime::currentDateTime()))
{
    for (const QString& file : files) {
        m_names.append(m_folder.relativeFilePath(file));
        m_keys.insert(fileKey(m_names.back()));
    }
}

Outcome PackageSaver::write(const QByteArray& comment)
{
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        if (Outcome written = writeMember(i); !written)
            return written;
    }
    if (Outcome written = writeNewFiles(); !written)
        return written;
    return m_writer.finish(comment);
}

Outcome PackageSaver::writeMember(std::size_t index)
{
    const UnpackedMember& member = m_members[index];
    if (!member.path.isEmpty())
        return writeOwner(index);
    if (canCopy(index))
        return copy(index);
    if (member.record.isFolder()) {
        m_written.push_back({member.record.rawName, {}, 0, 0});
        return m_writer.addFolder(member.record);
    }
    // Another member has the file of this one, so only the archive has its content.
    return m_source ? recover(index) : Outcome();
}

Outcome PackageSaver::writeOwner(std::size_t index)
{
    const UnpackedMember& member = m_members[index];
    QFile file(m_folder.path() + u'/' + member.path);
    // The listing leaves out hidden files.
    if (!m_keys.contains(fileKey(member.path)) && isMissing(file.fileName()))
        return writeWithoutFile(index);
    if (Outcome opened = openInput(file); !opened)
        return opened;
    bool same = false;
    if (Outcome compared = compare(file, member.record, same); !compared)
        return compared;
    if (same && canCopy(index))
        return copy(index);
    ArchiveMember like = member.record;
    like.dosDate = same ? like.dosDate : m_now;
    return deflate(like, member.path, file);
}

Outcome PackageSaver::writeWithoutFile(std::size_t index)
{
    const UnpackedMember& member = m_members[index];
    if (canCopy(index))
        return copy(index);
    if (m_source && !member.whole)
        return recover(index);
    return Outcome::failure(
        ArchiveText::tr(
            "The file \"%1\" is missing, and the package was changed since it was opened")
            .arg(member.path));
}

Outcome PackageSaver::writeNewFiles()
{
    QSet<QString> known;
    QHash<QString, QString> paths; // by those in lower case
    for (const UnpackedMember& member : m_members) {
        known.insert(fileKey(member.path));
        paths[member.path.toCaseFolded()] = member.path;
    }
    QSet<QString> folders = memberFolders();
    for (const QString& name : m_names) {
        if (known.contains(fileKey(name)) || isSameFile(name, paths.value(name.toCaseFolded())))
            continue;
        if (Outcome written = writeNewFile(name, folders); !written)
            return written;
    }
    return {};
}

/// A package with a file where it also has a folder, or with too many folders, could not be opened.
Outcome PackageSaver::writeNewFile(const QString& name, QSet<QString>& folders)
{
    QFile file(m_folder.path() + u'/' + name);
    if (folders.contains(fileKey(name))) {
        return Outcome::failure(
            ArchiveText::tr("\"%1\" is a file, but a folder in the package").arg(file.fileName()));
    }
    addFolders(folderOf(fileKey(name)), folders);
    if (folders.size() > ArchiveLimits::kFolders)
        return Outcome::failure(ArchiveText::tr("There are too many folders"));
    if (Outcome opened = openInput(file); !opened)
        return opened;
    return deflate(newMember(name.toUtf8(), m_now), name, file);
}

/// Keys of the folders that the opened archive unpacks to.
QSet<QString> PackageSaver::memberFolders() const
{
    QSet<QString> folders;
    for (const UnpackedMember& member : m_members) {
        const QString key = fileKey(memberPath(member.record.name).value_or(QString()));
        addFolders(member.record.isFolder() ? key : folderOf(key), folders);
    }
    return folders;
}

/// For disks that ignore case: a folder's file can be listed under another name than the member's.
bool PackageSaver::isSameFile(const QString& name, const QString& path) const
{
    std::error_code error;
    return !path.isEmpty() &&
           std::filesystem::equivalent(
               QFileInfo(m_folder.path() + u'/' + name).filesystemFilePath(),
               QFileInfo(m_folder.path() + u'/' + path).filesystemFilePath(), error);
}

Outcome PackageSaver::copy(std::size_t index)
{
    const UnpackedMember& member = m_members[index];
    MemberStream stream = m_source->open(index);
    bool intact = false;
    Outcome copied = stream.isOpen()
                         ? m_writer.copyMember(member.record, stream, member.rawCrc, intact)
                         : Outcome();
    if (intact) {
        m_written.push_back({member.record.rawName, member.path, member.record.crc, member.rawCrc});
        return copied;
    }
    m_foundDamage = true;
    return Outcome::failure(ArchiveText::tr("The member \"%1\" was damaged since it was opened")
                                .arg(member.record.name));
}

/// Writes what can be read of a member whose data are damaged.
Outcome PackageSaver::recover(std::size_t index)
{
    const UnpackedMember& member = m_members[index];
    QTemporaryFile content;
    std::optional<quint32> rawCrc;
    if (!content.open())
        return Outcome::failure(content.errorString());
    if (Outcome extracted = m_source->extract(index, content, rawCrc); !extracted)
        return extracted;
    if (member.whole && !rawCrc) {
        return Outcome::failure(ArchiveText::tr("The member \"%1\" was damaged since it was opened")
                                    .arg(member.record.name));
    }
    if (!content.seek(0))
        return Outcome::failure(content.errorString());
    return deflate(member.record, member.path, content);
}

Outcome PackageSaver::deflate(const ArchiveMember& like, const QString& path, QIODevice& content)
{
    ArchiveMember header = like;
    header.externalAttributes &= ~kDosFolder; // an empty file would open as a folder
    header.extra = withoutExtraFields(like.extra, {kUnixTimes, kFormerUnixTimes, kNtfsTimes});
    const qint64 size = content.size();
    Outcome added = size <= BlockDeflater::kMostBytes ? deflateInBlocks(header, content, size)
                                                      : m_writer.addMember(header, content);
    m_written.push_back({like.rawName, path, m_writer.contentCrc(), m_writer.rawCrc()});
    return added;
}

Outcome PackageSaver::deflateInBlocks(const ArchiveMember& header, QIODevice& content, qint64 size)
{
    QByteArray bytes;
    if (Outcome read = readCompletely(content, size, bytes); !read)
        return read;
    const std::optional<QByteArray> deflated = m_deflater.deflate(bytes);
    if (!deflated)
        return Outcome::failure(ArchiveText::tr("The package cannot be written"));
    return m_writer.addDeflated(header, *deflated, static_cast<quint64>(size),
                                extendedCrc(0, bytes.constData(), bytes.size()));
}

bool PackageSaver::canCopy(std::size_t index)
{
    const UnpackedMember& member = m_members[index];
    return m_source && member.whole && (!m_careful || m_source->rawCrc(index) == member.rawCrc);
}
