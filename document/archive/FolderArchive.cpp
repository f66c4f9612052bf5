#include "document/archive/FolderArchive.h"

#include "document/archive/ArchiveWriter.h"
#include "document/archive/InputFile.h"

#include <QFile>

Outcome writeFolderArchive(QIODevice& target, const QString& folder, const QStringList& paths)
{
    ArchiveWriter archive(target);
    for (const QString& path : paths) {
        QFile file(folder + u'/' + path);
        if (Outcome opened = openInput(file); !opened)
            return opened;
        if (Outcome added = archive.addMember(newMember(path.toUtf8()), file); !added)
            return added;
    }
    return archive.finish();
}
