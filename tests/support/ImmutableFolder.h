#pragma once

#include <QFile>
#include <QString>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

/// Makes a folder take no new files, not even root's, for as long as the object lives. Not every
/// file system knows that, and only root may: ask isActive().
class ImmutableFolder
{
public:
    explicit ImmutableFolder(const QString& folder)
        : m_descriptor(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY)),
          m_active(setImmutable(true))
    {
    }
    ImmutableFolder(const ImmutableFolder&) = delete;
    ImmutableFolder& operator=(const ImmutableFolder&) = delete;
    ~ImmutableFolder()
    {
        if (m_active)
            setImmutable(false);
        ::close(m_descriptor);
    }

    [[nodiscard]] bool isActive() const { return m_active; }

private:
    bool setImmutable(bool immutable)
    {
        int flags = 0;
        if (ioctl(m_descriptor, FS_IOC_GETFLAGS, &flags) != 0)
            return false;
        flags = immutable ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
        return ioctl(m_descriptor, FS_IOC_SETFLAGS, &flags) == 0;
    }

    int m_descriptor;
    bool m_active;
};
