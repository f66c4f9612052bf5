#pragma once

#include <QSet>
#include <QString>

#include <optional>

/// Which characters of a member's name mean something to the file system.
enum class PathRules
{
    Unix,
    Windows
};

#ifdef Q_OS_WIN
inline constexpr PathRules kNativePathRules = PathRules::Windows;
#else
inline constexpr PathRules kNativePathRules = PathRules::Unix;
#endif

/// Path, relative to the unpack folder, that a member of that name is written to. nullopt when the
/// name leads out of the folder or means something else on the platform:
/// - everywhere: absolute names and names that climb too far;
/// - on Windows also backslashes, colons (drive letters, streams), device names such as "CON" or
///   "aux.png", and names that end in a dot or a blank, which Windows drops.
/// Names that climb but stay inside are resolved: "a/../b" gives "b", whether "a" exists or not.
[[nodiscard]] std::optional<QString> memberPath(const QString& name,
                                                PathRules rules = kNativePathRules);

/// The folder of a relative path, empty at the top.
[[nodiscard]] QString folderOf(const QString& path);

/// Adds the folder, a relative path, and those above it to the known ones.
void addFolders(QString folder, QSet<QString>& known);
