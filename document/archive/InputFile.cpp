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

Outcome cannotRead(const QFile& file)
{
    return Outcome::failure(
        ArchiveText::tr("\"%1\" cannot be read: %2").arg(file.fileName(), file.errorString()));
}
