#include "document/DashboardPackage.h"

#include "document/archive/ArchiveWriter.h"
#include "document/archive/AtomicFile.h"
#include "document/archive/FolderListing.h"
#include "document/archive/OpenedPackage.h"

#include <QDir>
#include <QFile>

#include <optional>

namespace {

Outcome writeArchive(QIODevice& device, const QDir& root, const QStringList& paths)
{
    ArchiveWriter archive(device);
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return Outcome::failure(file.errorString());
        if (Outcome added =
                archive.addMember(newMember(root.relativeFilePath(path).toUtf8()), file);
            !added)
            return added;
    }
    return archive.finish();
}

} // namespace

bool DashboardPackage::unpackArchive(const QString& archivePath, const QString& destDir)
{
    return static_cast<bool>(OpenedPackage().unpack(archivePath, destDir));
}

bool DashboardPackage::packDirectory(const QString& srcDir, const QString& archivePath)
{
    // Listed before the new archive exists, which may be in the same folder.
    const std::optional<QStringList> paths = filesBelow(srcDir);
    return paths && replaceFile(archivePath, [&](QIODevice& device) {
               return writeArchive(device, QDir(srcDir), *paths);
           });
}
