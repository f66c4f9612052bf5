#include "document/archive/OpenedPackage.h"

#include "document/archive/ArchiveText.h"
#include "document/archive/AtomicFile.h"
#include "document/archive/FolderListing.h"
#include "document/archive/PackageSaver.h"
#include "document/archive/PrivateFolder.h"
#include "document/archive/Unpacking.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

/// Opens a file for reading, but no pipe, which would wait for a writer.
Outcome openToRead(QFile& file)
{
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return Outcome::failure(ArchiveText::tr("The file is not a ZIP archive"));
    return file.open(QIODevice::ReadOnly) ? Outcome() : Outcome::failure(file.errorString());
}

std::vector<ArchiveMember> recordsOf(const std::vector<UnpackedMember>& members)
{
    std::vector<ArchiveMember> records;
    records.reserve(members.size());
    for (const UnpackedMember& member : members)
        records.push_back(member.record);
    return records;
}

} // namespace

struct OpenedPackage::Attempt
{
    Outcome outcome;
    bool foundDamage = false;
    std::vector<WrittenMember> written;
    DeflatedBlocks blocks;
};

Outcome OpenedPackage::unpack(const QString& archivePath, const QString& folder)
{
    *this = {};
    QFile file(archivePath);
    if (Outcome opened = openToRead(file); !opened)
        return opened;
    m_path = QFileInfo(file).absoluteFilePath();
    m_identity = identityOf(file);
    ArchiveDirectory directory;
    if (Outcome read = readDirectory(file, directory); !read)
        return read;
    m_comment = directory.comment;
    m_isComplete = directory.isComplete;
    Outcome unpacked = unpackMembers(file, directory.members, folder, m_members);
    if (const QFileInfo info(folder); info.exists())
        m_folderOwner = info.ownerId();
    return unpacked;
}

Outcome OpenedPackage::ensureFolder(const QString& folder) const
{
    return ensurePrivateFolder(folder, m_folderOwner);
}

Outcome OpenedPackage::save(const QString& folder, const QString& destination)
{
    if (Outcome ensured = ensureFolder(folder); !ensured)
        return ensured;
    std::optional<QStringList> files = filesBelow(folder);
    if (!files)
        return Outcome::failure(ArchiveText::tr("The folder \"%1\" cannot be read").arg(folder));
    // Saved into the folder, each package would contain the one before.
    files->removeAll(QFileInfo(destination).absoluteFilePath());
    if (!m_unread.empty())
        remember();
    Outcome outcome;
    for (const bool careful : {false, true}) {
        Attempt attempt;
        outcome = replaceFile(destination, [&](QIODevice& target) {
            attempt = write(target, folder, *files, careful);
            return attempt.outcome;
        });
        if (outcome) {
            m_path = QFileInfo(destination).absoluteFilePath();
            m_unread = std::move(attempt.written);
            if (!attempt.blocks.contents.isEmpty()) // else the overlay has not changed
                m_blocks = std::move(attempt.blocks);
            remember();
        }
        if (outcome || !attempt.foundDamage)
            break;
    }
    return outcome;
}

OpenedPackage::Attempt OpenedPackage::write(QIODevice& target, const QString& folder,
                                            const QStringList& files, bool careful) const
{
    const std::vector<ArchiveMember> records = recordsOf(m_members);
    QFile file(m_path);
    std::optional<ArchiveReader> source;
    if (m_identity && openToRead(file) && identityOf(file) == m_identity)
        source.emplace(file, records);
    PackageSaver saver(target, m_members, source ? &*source : nullptr, folder, files, m_blocks,
                       careful);
    Outcome outcome = saver.write(m_comment);
    return {outcome, saver.foundDamage(), saver.written(), saver.deflatedBlocks()};
}

/// Reads the directory that was written, so that the next save knows where the members are. Where
/// that fails, the next save tries again. The checksums are those of what was written: by now, the
/// disk may have something else.
void OpenedPackage::remember()
{
    m_identity.reset(); // until everything is known about the new archive
    QFile file(m_path);
    ArchiveDirectory directory;
    if (!openToRead(file) || !readDirectory(file, directory) ||
        directory.members.size() != m_unread.size())
        return;
    std::vector<UnpackedMember> members;
    for (std::size_t i = 0; i < m_unread.size(); ++i) {
        const WrittenMember& written = m_unread[i];
        const ArchiveMember& record = directory.members[i];
        if (record.rawName != written.rawName || record.crc != written.crc)
            return;
        members.push_back({record, written.path, true, written.rawCrc});
    }
    m_identity = identityOf(file);
    m_members = std::move(members);
    m_unread.clear();
}
