#include "app/DroppedFiles.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

DroppedFiles droppedFiles(const QMimeData& data)
{
    DroppedFiles result;
    const auto takeFirst = [](QString& taken, const QString& path, QLatin1String ending) {
        if (taken.isEmpty() && path.endsWith(ending, Qt::CaseInsensitive) &&
            QFileInfo(path).isFile())
            taken = path;
    };
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        const QString path = url.toLocalFile();
        takeFirst(result.package, path, QLatin1String(".zconf2"));
        takeFirst(result.recording, path, QLatin1String(".xrk"));
    }
    return result;
}
