#include "document/AtomicFile.h"

#include <QSaveFile>

bool replaceFile(const QString& path, const std::function<bool(QIODevice&)>& write)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // commit() alone does not notice a short write, and would rename a truncated file.
    const bool complete = write(file) && file.flush() && file.error() == QFileDevice::NoError;
    if (!complete) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}
