#pragma once

#include "document/archive/Outcome.h"

class QFile;

/// Opens a file whose content goes into a package, for reading. Refuses whatever exists and is no
/// file: opening a pipe would wait for a writer. The reason names the file.
Outcome openInput(QFile& file);

/// The failure of reading an open file, which knows why.
Outcome cannotRead(const QFile& file);
