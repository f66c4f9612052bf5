#pragma once

#include "document/archive/Outcome.h"

#include <QString>

#include <functional>

class QIODevice;

/// Writes the content of a file into the open device it is given.
using ContentWriter = std::function<Outcome(QIODevice&)>;

/// Replaces the file at `path` with whatever `write` outputs. `write` may be called twice.
///
/// The new content goes to a sibling, which is renamed over the file only when every write, the
/// flush and the close succeeded. So a failure leaves the old file unchanged and no litter.
/// Symbolic links are followed and permissions kept.
///
/// Where no sibling can be created or renamed, the file is written in place. Its old bytes are
/// restored when that fails, but a crash during this fallback can corrupt the file.
/// @return the system's reason where a system call failed, else the reason that `write` gave.
Outcome replaceFile(const QString& path, const ContentWriter& write);

/// Like replaceFile, on Unix without waiting for the disk: the new content outlives the program,
/// but maybe not a power cut.
Outcome replaceFileUnflushed(const QString& path, const ContentWriter& write);
