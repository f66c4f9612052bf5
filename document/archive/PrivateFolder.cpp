#include "document/archive/PrivateFolder.h"

#include "document/archive/ArchiveText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

Outcome ensurePrivateFolder(const QString& path, std::optional<uint> owner)
{
    const QFileInfo info(path);
    if (info.isSymLink() || (owner && info.exists() && info.ownerId() != *owner)) {
        return Outcome::failure(
            ArchiveText::tr("The folder \"%1\" has been replaced by another one").arg(path));
    }
    const bool exists =
        info.isDir() ||
        (QDir().mkpath(info.absolutePath()) &&
         QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    return exists ? Outcome()
                  : Outcome::failure(ArchiveText::tr("The folder \"%1\" cannot be made").arg(path));
}
