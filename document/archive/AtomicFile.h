#pragma once

#include <QString>

#include <functional>

class QIODevice;

/// Replaces the file at path by what write puts into the device it is given. write may be called
/// twice.
///
/// The new content is written to a sibling and renamed over the file only when every write, the
/// flush and the close succeeded, so a failure leaves the old file as it was and nothing beside it.
/// Symbolic links are followed and permissions kept.
///
/// Where no sibling can be created or renamed over the file, it is written in place as a fallback,
/// and its old bytes are put back when that fails; this alone cannot outlive the end of the
/// process.
/// @return false when write returns false or anything fails on the way to the disk.
[[nodiscard]] bool replaceFile(const QString& path, const std::function<bool(QIODevice&)>& write);
