#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Paths of all regular files below the folder, at any depth, in the order of the folder, each
/// beginning with the folder's own path. Hidden files and what hidden folders hold are left out;
/// links to folders are not followed.
///
/// Nothing at all when any folder cannot be listed to its end or any entry cannot be looked at: a
/// file that goes unnoticed would be lost with the next save.
[[nodiscard]] std::optional<QStringList> filesBelow(const QString& folder);
