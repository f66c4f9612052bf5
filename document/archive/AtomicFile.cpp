#include "document/archive/AtomicFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace {

/// QSaveFile asks for this as well but takes no notice of the answer, and some file systems tell
/// only here that the disk is full.
bool reachedDisk(const QFileDevice& file)
{
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0 || errno == EINVAL; // EINVAL: nothing to wait for
#else
    Q_UNUSED(file);
    return true;
#endif
}

bool writeContent(QSaveFile& sibling, const std::function<bool(QIODevice&)>& write)
{
    // commit() alone does not notice a short write, and would rename a truncated file.
    return write(sibling) && sibling.flush() && sibling.error() == QFileDevice::NoError &&
           reachedDisk(sibling);
}

bool overwrite(QFile& file, const QByteArray& content)
{
    return file.seek(0) && file.write(content) == content.size() && file.resize(content.size()) &&
           reachedDisk(file);
}

/// For folders that take no new file, and for files that none can be renamed over: those of others
/// in a shared folder, mounted ones, those whose names leave no room for a sibling's. The content
/// is made before the file is touched, and the file keeps its length until the content is in it, so
/// that the old bytes can be put back even on a full disk.
bool writeInPlace(const QString& path, const std::function<bool(QIODevice&)>& write)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return false;
    const QByteArray old = file.readAll();
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    if (old.size() != file.size() || !write(content))
        return false;
    if (overwrite(file, content.data()))
        return true;
    overwrite(file, old);
    return false;
}

} // namespace

bool replaceFile(const QString& path, const std::function<bool(QIODevice&)>& write)
{
    const QFileInfo destination(path);
    if (destination.exists() && !destination.isFile())
        return false; // never put a file in the place of a device or a pipe
    QSaveFile sibling(path);
    if (!sibling.open(QIODevice::WriteOnly))
        return writeInPlace(path, write);
    if (!writeContent(sibling, write)) {
        sibling.cancelWriting();
        return false;
    }
    return sibling.commit() || writeInPlace(path, write);
}
