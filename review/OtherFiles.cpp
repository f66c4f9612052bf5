#include "review/OtherFiles.h"

#include "document/DashboardDocument.h"
#include "document/archive/Checksum.h"
#include "document/archive/FolderListing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>

std::optional<QStringList> allFilesBelow(const QString& folder)
{
    const QDir root(QFileInfo(folder).absoluteFilePath());
    const std::optional<QStringList> files = filesBelow(root.path(), HiddenFiles::Listed);
    if (!files)
        return std::nullopt;
    QStringList paths;
    for (const QString& path : *files) {
        if (!QFileInfo(path).isSymLink())
            paths.append(root.relativeFilePath(path));
    }
    paths.sort();
    return paths;
}

std::vector<PackageFile> otherFiles(const DashboardDocument& document)
{
    const QDir root(document.tempDir());
    const QString overlay = root.relativeFilePath(document.overlayPath());
    std::vector<PackageFile> files;
    for (const QString& path : allFilesBelow(root.path()).value_or(QStringList())) {
        QFile file(root.filePath(path));
        if (path == overlay || !file.open(QIODevice::ReadOnly))
            continue;
        if (const std::optional<ContentSum> sum = sumContent(file))
            files.push_back({path, static_cast<qint64>(sum->size), sum->crc});
    }
    return files;
}
