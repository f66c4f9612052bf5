#include "document/DashboardPackage.h"

#include "document/archive/AtomicFile.h"
#include "document/archive/FolderArchive.h"
#include "document/archive/FolderListing.h"
#include "document/archive/OpenedPackage.h"

#include <QDir>

#include <optional>

bool DashboardPackage::unpackArchive(const QString& archivePath, const QString& destDir)
{
    return static_cast<bool>(OpenedPackage().unpack(archivePath, destDir));
}

bool DashboardPackage::packDirectory(const QString& srcDir, const QString& archivePath)
{
    // Listed before the new archive exists, which may be in the same folder.
    const std::optional<QStringList> files = filesBelow(srcDir);
    if (!files)
        return false;
    QStringList paths;
    for (const QString& file : *files)
        paths.append(QDir(srcDir).relativeFilePath(file));
    return bool(replaceFile(
        archivePath, [&](QIODevice& target) { return writeFolderArchive(target, srcDir, paths); }));
}
