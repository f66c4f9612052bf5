#pragma once

#include <QtGlobal>

#include <cstddef>

/// What an archive may ask for. Checked where it is opened or written, and nowhere else.
namespace ArchiveLimits {

/// Bytes of a member's name that count; the rest is ignored. Longer than any path on a real disk.
inline constexpr qsizetype kNameBytes = 512;

/// Members of an archive that is read. A dashboard has tens; each takes some 200 bytes of memory.
inline constexpr std::size_t kMembersRead = 100'000;

/// Members of an archive that is written: the end record counts in 16 bits, and the library does
/// not write the 64-bit record for the count.
inline constexpr std::size_t kMembersWritten = 0xffff;

/// Sizes and offsets must be smaller, bytes: the library is only reliable with 32-bit ones.
inline constexpr qint64 kSize = 0xffffffff;

/// Length of the directory, bytes. It is read as a whole; this is enough for kMembersRead.
inline constexpr qint64 kDirectorySize = 64'000'000;

/// Folders, including those that only paths of files name. They take time and disk space that no
/// declared size accounts for, and one name of 512 bytes can ask for 255 of them.
inline constexpr qsizetype kFolders = 8192;

/// The most that a byte of deflated data unpacks to, rounded up. Members that unpack to more than
/// that together share their data.
inline constexpr quint64 kExpansion = 1032;

/// Compressed bytes that are read of all members together, as a multiple of the archive's size.
/// Members may share their data; whoever shares more is deflated anew in a save.
inline constexpr quint64 kRawReads = 4;

} // namespace ArchiveLimits
