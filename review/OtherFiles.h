#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>
#include <vector>

class DashboardDocument;

/// A file of an opened package.
struct PackageFile
{
    QString path;    ///< below the unpack folder, with "/"
    qint64 size = 0; ///< bytes
    quint32 crc = 0; ///< CRC-32 of the content, as ZIP archives have it
};

/// Paths of all regular files below a folder, relative to it, hidden ones too, sorted. Links are
/// left out: no unpack folder has any. nullopt if any folder cannot be fully listed.
[[nodiscard]] std::optional<QStringList> allFilesBelow(const QString& folder);

/// All files of the package but its overlay, hidden ones too, sorted by path.
[[nodiscard]] std::vector<PackageFile> otherFiles(const DashboardDocument& document);
