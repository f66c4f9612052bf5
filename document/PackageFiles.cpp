// The part of DashboardPackage that finds the files the editor reads among the unpacked ones.

#include "document/DashboardPackage.h"

#include <QDirIterator>
#include <QFileInfo>

namespace {

bool liesUnder(const QString& path, const QString& folder)
{
    return path.contains(u'/' + folder + u'/', Qt::CaseInsensitive);
}

} // namespace

QString DashboardPackage::findOverlayFile(const QString& rootDir)
{
    QString largest;
    QString first;
    qint64 largestSize = 0; // an empty file is never the largest
    QDirIterator files(rootDir, {QStringLiteral("overlay.ov3.xml")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString path = files.next();
        if (first.isEmpty())
            first = path;
        const qint64 size = files.fileInfo().size();
        if (size > largestSize && !liesUnder(path, QStringLiteral("expansions"))) {
            largest = path;
            largestSize = size;
        }
    }
    return largest.isEmpty() ? first : largest;
}

QString DashboardPackage::findDeviceFile(const QString& rootDir)
{
    QString first;
    QDirIterator files(rootDir, {QStringLiteral("*.aimcfg")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString path = files.next();
        if (!liesUnder(path, QStringLiteral("devices")))
            return path;
        if (first.isEmpty())
            first = path;
    }
    return first;
}
