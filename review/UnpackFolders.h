#pragma once

#include "document/archive/Outcome.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

/// The folders that the editor unpacks packages into and leaves behind, and what can be recovered
/// from them.
struct UnpackFolder
{
    QString path;
    QDateTime changed; ///< when its overlay was last written
    QStringList pages; ///< names of the pages
};

/// The unpack folders in a folder for temporary files whose overlay can be read, those changed last
/// first. Names alone decide what an unpack folder is, so those of running editors are among them.
[[nodiscard]] std::vector<UnpackFolder> unpackFolders(const QString& temporaryFolder);

/// Makes a package of all regular files in an unpack folder. Fails without changing anything when
/// not all of the folder can be read, it holds no overlay that can be read, or the package cannot
/// be written.
[[nodiscard]] Outcome recoverPackage(const QString& unpackFolder, const QString& packagePath);
