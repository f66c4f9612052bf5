#include "review/UnpackFolders.h"

#include "document/DashboardDocument.h"
#include "document/DashboardPackage.h"
#include "document/archive/ArchiveWriter.h"
#include "document/archive/AtomicFile.h"
#include "review/OtherFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("UnpackFolders", text);
}

std::optional<UnpackFolder> read(const QString& folder)
{
    const QString overlay = DashboardPackage::findOverlayFile(folder);
    DashboardDocument document;
    if (overlay.isEmpty() || !document.loadOverlay(overlay))
        return std::nullopt;
    UnpackFolder found{folder, QFileInfo(overlay).lastModified(), {}};
    for (const DashPage& page : document.pages())
        found.pages.append(page.name);
    return found;
}

Outcome writeArchive(QIODevice& target, const QDir& root, const QStringList& paths)
{
    ArchiveWriter archive(target);
    for (const QString& path : paths) {
        QFile file(root.filePath(path));
        if (!file.open(QIODevice::ReadOnly))
            return Outcome::failure(file.errorString());
        if (Outcome added = archive.addMember(newMember(path.toUtf8()), file); !added)
            return added;
    }
    return archive.finish();
}

} // namespace

std::vector<UnpackFolder> unpackFolders(const QString& temporaryFolder)
{
    std::vector<UnpackFolder> folders;
    const QFileInfoList candidates =
        QDir(temporaryFolder)
            .entryInfoList({QStringLiteral("Gaugewright-??????")},
                           QDir::Dirs | QDir::CaseSensitive | QDir::NoSymLinks);
    for (const QFileInfo& candidate : candidates) {
        if (std::optional<UnpackFolder> folder = read(candidate.filePath()))
            folders.push_back(*std::move(folder));
    }
    std::stable_sort(folders.begin(), folders.end(),
                     [](const UnpackFolder& left, const UnpackFolder& right) {
                         return left.changed > right.changed;
                     });
    return folders;
}

Outcome recoverPackage(const QString& unpackFolder, const QString& packagePath)
{
    if (!QFileInfo(unpackFolder).isDir())
        return Outcome::failure(
            translated(QT_TRANSLATE_NOOP("UnpackFolders", "There is no such folder")));
    // Listed before the package exists, which may be in the same folder.
    const std::optional<QStringList> paths = allFilesBelow(unpackFolder);
    if (!paths)
        return Outcome::failure(
            translated(QT_TRANSLATE_NOOP("UnpackFolders", "Not all of its folders can be read")));
    const QString overlay = DashboardPackage::findOverlayFile(unpackFolder);
    if (overlay.isEmpty())
        return Outcome::failure(
            translated(QT_TRANSLATE_NOOP("UnpackFolders", "There is no overlay in it")));
    DashboardDocument document;
    if (!document.loadOverlay(overlay))
        return Outcome::failure(document.errorString());
    const Outcome written = replaceFile(packagePath, [&](QIODevice& target) {
        return writeArchive(target, QDir(unpackFolder), *paths);
    });
    return written ? written
                   : Outcome::failure(
                         translated(QT_TRANSLATE_NOOP("UnpackFolders",
                                                      "The package \"%1\" cannot be written: %2"))
                             .arg(packagePath, written.reason()));
}
