#include "app/StartPath.h"

#include <QDir>
#include <QFileInfo>

QString nearestFolder(const QString& folder)
{
    QString candidate = QDir::cleanPath(folder);
    while (!candidate.isEmpty() && !QFileInfo(candidate).isDir()) {
        const QString above = QFileInfo(candidate).path();
        candidate = above == candidate || above == QStringLiteral(".") ? QString() : above;
    }
    return candidate.isEmpty() ? QDir::homePath() : candidate;
}

QString nearestPath(const QString& file)
{
    if (file.isEmpty())
        return {};
    const QFileInfo info(file);
    return QDir(nearestFolder(info.path())).filePath(info.fileName());
}
