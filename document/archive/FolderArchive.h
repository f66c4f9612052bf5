#pragma once

#include "document/archive/Outcome.h"

#include <QString>
#include <QStringList>

class QIODevice;

/// Writes a new archive of the files with these paths below a folder to an open, empty, seekable
/// device. Each path is the name of its member. Fails when a file cannot be read.
Outcome writeFolderArchive(QIODevice& target, const QString& folder, const QStringList& paths);
