#include "tests/support/SmallDisk.h"

#include <QFile>

#include <sys/mount.h>

namespace {

QByteArray sizeOption(int pages)
{
    return "size=" + QByteArray::number(static_cast<qint64>(pages) * SmallDisk::kPage);
}

bool mountDisk(const QByteArray& folder, unsigned long flags, const QByteArray& options)
{
    return mount("tmpfs", folder.constData(), "tmpfs", flags, options.constData()) == 0;
}

} // namespace

SmallDisk::SmallDisk(const QString& folder, int pages)
    : m_folder(QFile::encodeName(folder)),
      m_mounted(mountDisk(m_folder, 0, sizeOption(pages)))
{
}

SmallDisk::~SmallDisk()
{
    if (m_mounted)
        umount2(m_folder.constData(), MNT_DETACH);
}

bool SmallDisk::resize(int pages)
{
    return mountDisk(m_folder, MS_REMOUNT, sizeOption(pages));
}

bool SmallDisk::setReadOnly(bool readOnly)
{
    return mountDisk(m_folder, MS_REMOUNT | (readOnly ? MS_RDONLY : 0), {});
}
