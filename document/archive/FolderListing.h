#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Whether a listing has hidden files and the content of hidden folders.
enum class HiddenFiles
{
    LeftOut,
    Listed
};

/// Paths of all regular files below the folder, at any depth, in the order of the folder, each
/// beginning with the folder's own path. Links to files are listed; links to folders are not
/// followed.
///
/// nullopt if any folder cannot be fully listed or any entry cannot be looked at: a file that goes
/// unnoticed would be lost with the next save.
[[nodiscard]] std::optional<QStringList> filesBelow(const QString& folder,
                                                    HiddenFiles hidden = HiddenFiles::LeftOut);
