#include "document/archive/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

bool ensurePrivateFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() ||
           (QDir().mkpath(info.absolutePath()) &&
            QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}
