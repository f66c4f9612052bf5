#include "document/archive/InputFile.h"

#include "document/archive/ArchiveText.h"

#include <QFile>
#include <QFileInfo>

Outcome openInput(QFile& file)
{
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return Outcome::failure(ArchiveText::tr("\"%1\" is not a file").arg(file.fileName()));
    return file.open(QIODevice::ReadOnly) ? Outcome() : cannotRead(file);
}

Outcome readCompletely(QIODevice& device, qint64 size, QByteArray& content)
{
    content.resize(size + 1); // one more, to notice a file that grows
    qint64 filled = 0;
    qint64 count = 0;
    // Only a read of its own fails; one that has read something falls short.
    while ((count = device.read(content.data() + filled, content.size() - filled)) > 0)
        filled += count;
    content.truncate(filled);
    if (count < 0)
        return Outcome::failure(device.errorString());
    return filled == size ? Outcome()
                          : Outcome::failure(ArchiveText::tr("A file cannot be read completely"));
}

Outcome cannotRead(const QFile& file)
{
    return Outcome::failure(
        ArchiveText::tr("\"%1\" cannot be read: %2").arg(file.fileName(), file.errorString()));
}
