#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>

/// Looks at folders the way a test wants to compare them.
namespace FolderTools {

/// The environment variable that moves the system's folder for temporary files.
#ifdef Q_OS_WIN
inline constexpr const char* kTempVariable = "TMP";
#else
inline constexpr const char* kTempVariable = "TMPDIR";
#endif

/// A template for QTemporaryDir: in memory where there is such a place with enough room, for tests
/// that write often, because every write waits for the disk.
[[nodiscard]] QString memoryTemplate();
/// Removes from root what test programs that died left of such folders; the first template asked
/// for does so by itself. Linux only.
void removeLeftovers(const QString& root);

/// Path below the folder and content of every file at any depth, hidden ones too.
[[nodiscard]] std::map<QString, QByteArray> contents(const QString& folder);
/// Those of the files that a save takes: none that is hidden or lies in a hidden folder.
[[nodiscard]] std::map<QString, QByteArray> visible(std::map<QString, QByteArray> files);
/// Names of everything that stands directly in the folder, hidden ones too, sorted.
[[nodiscard]] QStringList names(const QString& folder);
/// Removes a folder with all it holds; does nothing for an empty path, which would mean the working
/// directory. For the unpack directories of documents, which outlive them on purpose.
void remove(const QString& folder);
/// Whether a symbolic link, also a dangling one, stands in the folder at any depth.
[[nodiscard]] bool holdsSymbolicLink(const QString& folder);

} // namespace FolderTools
