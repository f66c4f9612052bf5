#pragma once

#include "document/archive/Outcome.h"

class QByteArray;
class QFile;
class QIODevice;

/// Opens a file whose content goes into a package, for reading. Refuses whatever exists and is no
/// file: opening a pipe would wait for a writer. The reason names the file.
Outcome openInput(QFile& file);

/// Reads the `size` bytes that an open device should have from its position to the end. A failure
/// also when it has fewer or more by now.
Outcome readCompletely(QIODevice& device, qint64 size, QByteArray& content);

/// The failure of reading an open file, which knows why.
Outcome cannotRead(const QFile& file);
