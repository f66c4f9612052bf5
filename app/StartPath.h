#pragma once

#include <QString>

// Where file dialogs start: a dialog takes a folder that does not exist for a file name.

/// The folder itself or the nearest one above it that exists; else the home folder.
[[nodiscard]] QString nearestFolder(const QString& folder);

/// The same for the folder of a file, with the file's name kept. Empty for an empty path, which
/// leaves the choice to the dialog.
[[nodiscard]] QString nearestPath(const QString& file);
