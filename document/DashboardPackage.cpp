#include "document/DashboardPackage.h"

#include "document/AtomicFile.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <unzip.h>
#include <zip.h>

#include <array>

namespace {

constexpr int kNameLimit = 512;
constexpr int kChunkSize = 8192;

bool extractCurrent(unzFile archive, const QString& target)
{
    QDir().mkpath(QFileInfo(target).absolutePath());
    if (unzOpenCurrentFile(archive) != UNZ_OK)
        return false;
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly)) {
        unzCloseCurrentFile(archive);
        return false;
    }
    std::array<char, kChunkSize> chunk{};
    int count = 0;
    bool written = true;
    while (written && (count = unzReadCurrentFile(archive, chunk.data(), kChunkSize)) > 0)
        written = file.write(chunk.data(), count) == count;
    unzCloseCurrentFile(archive);
    return written && file.flush();
}

} // namespace

bool DashboardPackage::unpackArchive(const QString& archivePath, const QString& destDir)
{
    unzFile archive = unzOpen64(archivePath.toLocal8Bit().constData());
    if (!archive)
        return false;
    bool ok = true;
    for (int status = unzGoToFirstFile(archive); ok && status == UNZ_OK;
         status = unzGoToNextFile(archive)) {
        std::array<char, kNameLimit + 1> buffer{};
        unz_file_info64 info{};
        unzGetCurrentFileInfo64(archive, &info, buffer.data(), kNameLimit, nullptr, 0, nullptr, 0);
        const QString name = QString::fromUtf8(buffer.data());
        const QString target = destDir + u'/' + name;
        ok = name.endsWith(u'/') ? QDir().mkpath(target) : extractCurrent(archive, target);
    }
    unzClose(archive);
    return ok;
}

bool DashboardPackage::packDirectory(const QString& srcDir, const QString& archivePath)
{
    zipFile archive = zipOpen(archivePath.toLocal8Bit().constData(), APPEND_STATUS_CREATE);
    if (!archive)
        return false;
    QDirIterator it(srcDir, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        const QByteArray name = QDir(srcDir).relativeFilePath(path).toUtf8();
        const zip_fileinfo info{};
        if (!file.open(QIODevice::ReadOnly)) {
            zipClose(archive, nullptr);
            return false;
        }
        const QByteArray content = file.readAll();
        zipOpenNewFileInZip(archive, name.constData(), &info, nullptr, 0, nullptr, 0, nullptr,
                            Z_DEFLATED, Z_DEFAULT_COMPRESSION);
        zipWriteInFileInZip(archive, content.constData(), static_cast<unsigned>(content.size()));
        zipCloseFileInZip(archive);
    }
    return zipClose(archive, nullptr) == ZIP_OK;
}

QString DashboardPackage::findOverlayFile(const QString& rootDir)
{
    QString largest;
    QString first;
    qint64 largestSize = 0;
    QDirIterator it(rootDir, {QStringLiteral("overlay.ov3.xml")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (first.isEmpty())
            first = path;
        const qint64 size = it.fileInfo().size();
        if (size > largestSize &&
            !path.contains(QStringLiteral("/expansions/"), Qt::CaseInsensitive)) {
            largest = path;
            largestSize = size;
        }
    }
    return largest.isEmpty() ? first : largest;
}

QString DashboardPackage::findDeviceFile(const QString& rootDir)
{
    QString first;
    QDirIterator it(rootDir, {QStringLiteral("*.aimcfg")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (!path.contains(QStringLiteral("/devices/"), Qt::CaseInsensitive))
            return path;
        if (first.isEmpty())
            first = path;
    }
    return first;
}
