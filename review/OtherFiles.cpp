#include "review/OtherFiles.h"

#include "document/DashboardDocument.h"
#include "document/archive/FolderListing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <zlib.h>

#include <array>

namespace {

quint32 crcOf(QFile& file)
{
    constexpr qint64 kChunkSize = qint64{64} * 1024;
    static std::array<char, kChunkSize> chunk; // too large for the stack
    uLong crc = crc32(0, nullptr, 0);
    for (qint64 count = 0; (count = file.read(chunk.data(), kChunkSize)) > 0;)
        crc = crc32(crc, reinterpret_cast<const Bytef*>(chunk.data()), static_cast<uInt>(count));
    return static_cast<quint32>(crc);
}

} // namespace

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
        if (path != overlay && file.open(QIODevice::ReadOnly))
            files.push_back({path, file.size(), crcOf(file)});
    }
    return files;
}
