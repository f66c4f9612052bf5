#pragma once

#include <QString>

/// A dashboard package (".zconf2") is a ZIP archive with an overlay document, optionally a device
/// definition file, page images and whatever else the maker's tools put there. These functions hold
/// no state, show no message and throw nothing; they answer with false or an empty string.
namespace DashboardPackage {

/// Extracts every member of the archive into destDir, which is made when it is missing and needed.
///
/// False when the archive cannot be opened, when a member's name would leave destDir, when a member
/// is encrypted or compressed with anything but "stored" and "deflate", when there are more than
/// 8,192 folders, when the declared total size exceeds the free space of the volume, or when a file
/// cannot be written. What was extracted before the failure stays. A damaged member is kept as far
/// as it can be read. An archive without members unpacks to nothing and succeeds. No member ever
/// becomes a symbolic link.
[[nodiscard]] bool unpackArchive(const QString& archivePath, const QString& destDir);

/// Writes a new archive holding every regular, non-hidden file below srcDir; folders get no members
/// of their own. False when any file or folder cannot be read.
///
/// An existing archive is replaced only after the new one is completely on the disk: when this
/// returns false the old file is unchanged and nothing is left beside it. Symbolic links are
/// followed and the permissions of an existing file are kept.
[[nodiscard]] bool packDirectory(const QString& srcDir, const QString& archivePath);

/// Full path of the overlay file to use, or an empty string: the largest "overlay.ov3.xml" outside
/// any folder named "expansions", else the first one anywhere. None when a folder cannot be listed.
[[nodiscard]] QString findOverlayFile(const QString& rootDir);

/// Full path of the device definition file ("*.aimcfg") to use, or an empty string: the first one
/// outside any folder named "devices", else the first one anywhere. None when a folder cannot be
/// listed.
[[nodiscard]] QString findDeviceFile(const QString& rootDir);

} // namespace DashboardPackage
