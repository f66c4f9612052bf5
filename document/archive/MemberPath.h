#pragma once

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

/// The path, relative to the unpack folder, that a member of that name is written to, or nothing
/// when the name would lead out of the folder: names that climb too far and absolute names
/// everywhere, backslashes and colons (drive letters, streams) on Windows. Names that climb but
/// stay inside are resolved: "a/../b" gives "b", whether "a" exists or not.
[[nodiscard]] std::optional<QString> memberPath(const QString& name,
                                                PathRules rules = kNativePathRules);
