#include "document/archive/AtomicFile.h"

#include "document/archive/ArchiveText.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <QTemporaryFile>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <unistd.h>
#endif

namespace {

/// QSaveFile flushes to the disk too but ignores the result, and some file systems report a full
/// disk only here.
Outcome reachedDisk(const QFileDevice& file)
{
#ifdef Q_OS_UNIX
    if (::fsync(file.handle()) != 0 && errno != EINVAL) // EINVAL: nothing to wait for
        return Outcome::failure(qt_error_string(errno));
#else
    Q_UNUSED(file);
#endif
    return {};
}

Outcome failureOf(const QFileDevice& file)
{
    return Outcome::failure(file.errorString());
}

Outcome writeContent(QSaveFile& sibling, const ContentWriter& write)
{
    const Outcome written = write(sibling);
    // commit() alone does not notice a short write, and would rename a truncated file.
    if (!sibling.flush() || sibling.error() != QFileDevice::NoError)
        return failureOf(sibling);
    return written ? reachedDisk(sibling) : written;
}

Outcome overwrite(QFile& file, const QByteArray& content)
{
    if (!file.seek(0) || file.write(content) != content.size() || !file.resize(content.size()))
        return failureOf(file);
    return reachedDisk(file);
}

/// For folders that accept no new file, and for files that cannot be replaced by rename: those of
/// others in a shared folder, mounted ones, those whose names are too long for a sibling's. The
/// content is made before the file is touched, and the file keeps its length until the content is
/// in it, so that the old bytes can be restored even on a full disk.
Outcome writeInPlace(QFile& file, const ContentWriter& write)
{
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return failureOf(file);
    const QByteArray old = file.readAll();
    if (old.size() != file.size())
        return failureOf(file);
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    if (Outcome made = write(content); !made)
        return made;
    Outcome written = overwrite(file, content.data());
    if (!written)
        static_cast<void>(overwrite(file, old));
    return written;
}

/// @param sibling the file that could not be created or renamed; it knows why.
Outcome writeInPlace(const QString& path, const QSaveFile& sibling, const ContentWriter& write)
{
    QFile file(path);
    return file.exists() ? writeInPlace(file, write) : failureOf(sibling);
}

#ifdef Q_OS_UNIX

/// QSaveFile always waits for the disk. False when anything fails; then nothing has changed.
bool renameUnflushed(const QString& path, const ContentWriter& write)
{
    QTemporaryFile sibling(path + QStringLiteral(".XXXXXX"));
    if (!sibling.open() || !write(sibling) || !sibling.flush() ||
        sibling.error() != QFileDevice::NoError ||
        !sibling.setPermissions(QFile::permissions(path)))
        return false;
    std::error_code error;
    std::filesystem::rename(QFileInfo(sibling).filesystemFilePath(),
                            QFileInfo(path).filesystemFilePath(), error);
    sibling.setAutoRemove(bool(error));
    return !error;
}

#endif

} // namespace

Outcome replaceFileUnflushed(const QString& path, const ContentWriter& write)
{
#ifdef Q_OS_UNIX // Windows renames no open file, and QTemporaryFile keeps its file open
    const QFileInfo destination(path);
    const bool plain = destination.isFile() && !destination.isSymLink();
    if (plain && renameUnflushed(path, write))
        return {};
#endif
    return replaceFile(path, write);
}

Outcome replaceFile(const QString& path, const ContentWriter& write)
{
    const QFileInfo destination(path);
    if (destination.exists() && !destination.isFile()) // never replace a device or a pipe
        return Outcome::failure(ArchiveText::tr("The destination is not an ordinary file"));
    QSaveFile sibling(path);
    if (!sibling.open(QIODevice::WriteOnly))
        return writeInPlace(path, sibling, write);
    if (Outcome written = writeContent(sibling, write); !written) {
        sibling.cancelWriting();
        return written;
    }
    return sibling.commit() ? Outcome() : writeInPlace(path, sibling, write);
}
