#include "review/UnpackFolders.h"

#include "document/DashboardDocument.h"
#include "document/DashboardPackage.h"
#include "document/archive/AtomicFile.h"
#include "document/archive/FolderArchive.h"
#include "review/OtherFiles.h"
#include "review/ReviewText.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace {

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
        return Outcome::failure(ReviewText::tr("There is no such folder"));
    // Listed before the package exists, which may be in the same folder.
    const std::optional<QStringList> paths = allFilesBelow(unpackFolder);
    if (!paths)
        return Outcome::failure(ReviewText::tr("Not all of its folders can be read"));
    const QString overlay = DashboardPackage::findOverlayFile(unpackFolder);
    if (overlay.isEmpty())
        return Outcome::failure(ReviewText::tr("There is no overlay in it"));
    DashboardDocument document;
    if (!document.loadOverlay(overlay))
        return Outcome::failure(document.errorString());
    const Outcome written = replaceFile(packagePath, [&](QIODevice& target) {
        return writeFolderArchive(target, unpackFolder, *paths);
    });
    return written ? written
                   : Outcome::failure(ReviewText::tr("The package \"%1\" cannot be written: %2")
                                          .arg(packagePath, written.reason()));
}
