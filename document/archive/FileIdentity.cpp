#include "document/archive/FileIdentity.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#endif

#ifdef Q_OS_LINUX

std::optional<FileIdentity> identityOf(const QFile& file)
{
    constexpr qint64 kNanosecondsPerSecond = 1'000'000'000;
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_size,
                        status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec,
                        status.st_dev, status.st_ino};
}

#else

std::optional<FileIdentity> identityOf(const QFile& file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return std::nullopt;
    return FileIdentity{info.size(), info.lastModified().toMSecsSinceEpoch(), 0, 0};
}

#endif
