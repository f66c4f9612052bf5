// The part of DashboardPackage that finds the files the editor reads among the unpacked ones.

#include "document/DashboardPackage.h"
#include "document/archive/FolderListing.h"

#include <QFileInfo>

namespace {

bool liesUnder(const QString& path, const QString& folder)
{
    return path.contains(u'/' + folder + u'/', Qt::CaseInsensitive);
}

bool isNamed(const QString& path, const QString& name)
{
    return path.endsWith(u'/' + name, Qt::CaseInsensitive);
}

} // namespace

QString DashboardPackage::findOverlayFile(const QString& rootDir)
{
    QString largest;
    QString first;
    qint64 largestSize = 0; // an empty file is never the largest
    for (const QString& path : filesBelow(rootDir).value_or(QStringList())) {
        if (!isNamed(path, QStringLiteral("overlay.ov3.xml")))
            continue;
        if (first.isEmpty())
            first = path;
        const qint64 size = QFileInfo(path).size();
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
    for (const QString& path : filesBelow(rootDir).value_or(QStringList())) {
        if (!path.endsWith(QStringLiteral(".aimcfg"), Qt::CaseInsensitive))
            continue;
        if (!liesUnder(path, QStringLiteral("devices")))
            return path;
        if (first.isEmpty())
            first = path;
    }
    return first;
}
