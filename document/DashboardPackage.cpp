#include "document/DashboardPackage.h"

#include "document/archive/ArchiveReader.h"
#include "document/archive/ArchiveWriter.h"
#include "document/archive/AtomicFile.h"
#include "document/archive/FolderListing.h"
#include "document/archive/MemberPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>

namespace {

quint64 addSaturating(quint64 left, quint64 right)
{
    return left > std::numeric_limits<quint64>::max() - right ? std::numeric_limits<quint64>::max()
                                                              : left + right;
}

/// The folder itself or, where it is yet to be made, the nearest one above it that exists.
QString existingFolder(QString folder)
{
    while (!QFileInfo::exists(folder) && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    return folder;
}

bool fitsOnVolume(quint64 size, const QString& folder)
{
    // Asked of the folder itself: the list of mounted volumes, which QStorageInfo needs, does not
    // tell where a program was given another root.
    std::error_code error; // then as much as can be counted is available
    return size <=
           std::filesystem::space(QFileInfo(existingFolder(folder)).filesystemFilePath(), error)
               .available;
}

/// Far more than any dashboard has. Folders take time and room on the disk of which no declared
/// size tells, and a member's name of 512 bytes can ask for 255 of them.
constexpr qsizetype kMostFolders = 8192;

/// The folder that a relative path leads through, empty at the top.
QString folderOf(const QString& path)
{
    return path.left(std::max<qsizetype>(path.lastIndexOf(u'/'), 0));
}

/// Adds the folder, a relative path, and those above it to the known ones.
void addFolders(QString folder, QSet<QString>& known)
{
    for (; !folder.isEmpty() && !known.contains(folder); folder = folderOf(folder))
        known.insert(folder);
}

/// Whether every member may be unpacked into destDir. Asked for all of them before anything is
/// written, so that an archive that is refused leaves nothing behind.
bool mayUnpack(ArchiveReader& archive, const QString& destDir)
{
    quint64 total = 0;
    QSet<QString> folders;
    for (bool more = archive.toFirst(); more; more = archive.toNext()) {
        const ArchiveMember& member = archive.current();
        const std::optional<QString> path = memberPath(member.name);
        if (!path)
            return false;
        addFolders(member.isFolder() ? *path : folderOf(*path), folders);
        if (folders.size() > kMostFolders)
            return false;
        if (member.isFolder())
            continue;
        if (!member.readable)
            return false;
        total = addSaturating(total, member.size);
    }
    return fitsOnVolume(total, destDir);
}

bool unpackMembers(ArchiveReader& archive, const QString& destDir)
{
    for (bool more = archive.toFirst(); more; more = archive.toNext()) {
        const ArchiveMember& member = archive.current();
        const QString target = destDir + u'/' + memberPath(member.name).value_or(QString());
        // A folder that cannot be made costs nothing by itself: a file in it will say so.
        QDir().mkpath(member.isFolder() ? target : QFileInfo(target).absolutePath());
        if (!member.isFolder() && !archive.extractCurrent(target))
            return false;
    }
    return true;
}

bool writeArchive(QIODevice& device, const QDir& root, const QStringList& paths)
{
    ArchiveWriter archive(device);
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly) ||
            !archive.addMember(root.relativeFilePath(path).toUtf8(), file))
            return false;
    }
    return archive.finish();
}

} // namespace

bool DashboardPackage::unpackArchive(const QString& archivePath, const QString& destDir)
{
    QFile file(archivePath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    ArchiveReader archive(file);
    if (!archive.isOpen())
        return isEmptyArchive(file);
    // A damaged archive is unpacked as far as it can be read; a failing disk is another matter.
    return mayUnpack(archive, destDir) && unpackMembers(archive, destDir) &&
           !archive.deviceFailed();
}

bool DashboardPackage::packDirectory(const QString& srcDir, const QString& archivePath)
{
    // Listed before the new archive exists, which may well stand in the same folder.
    const std::optional<QStringList> paths = filesBelow(srcDir);
    return paths && replaceFile(archivePath, [&](QIODevice& device) {
               return writeArchive(device, QDir(srcDir), *paths)
                          ? Outcome()
                          : Outcome::failure(device.errorString());
           });
}
