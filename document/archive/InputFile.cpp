#include "document/archive/InputFile.h"

#include "document/archive/ArchiveText.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

Outcome openInput(QFile& file)
{
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return Outcome::failure(ArchiveText::tr("\"%1\" is not a file").arg(file.fileName()));
    return file.open(QIODevice::ReadOnly) ? Outcome() : cannotRead(file);
}

Outcome readCompletely(QIODevice& device, QByteArray& content)
{
    const qint64 size = device.size() - device.pos();
    content.resize(size + 1); // one more, to notice a file that grows
    const qint64 count = device.read(content.data(), content.size());
    content.truncate(std::max<qint64>(count, 0));
    if (count < 0)
        return Outcome::failure(device.errorString());
    return count == size ? Outcome()
                         : Outcome::failure(ArchiveText::tr("A file cannot be read completely"));
}

Outcome cannotRead(const QFile& file)
{
    return Outcome::failure(
        ArchiveText::tr("\"%1\" cannot be read: %2").arg(file.fileName(), file.errorString()));
}
