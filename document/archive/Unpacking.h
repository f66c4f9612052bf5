#pragma once

#include "document/archive/Outcome.h"
#include "document/archive/UnpackedMember.h"

#include <QString>

#include <vector>

class QIODevice;

/// A path in the form in which paths of one file are equal: in lower case on Windows.
[[nodiscard]] QString fileKey(const QString& path);

/// Unpacks the members, which readDirectory found in the open device, into a folder, which is made
/// when missing and needed.
///
/// Everything that refuses an archive is checked before the first file is written: names that lead
/// out of the folder, encryption, unknown compression, too many folders, too little free space.
/// Later failures leave the files written so far.
/// @param unpacked receives the members in the archive's order.
Outcome unpackMembers(QIODevice& device, const std::vector<ArchiveMember>& members,
                      const QString& folder, std::vector<UnpackedMember>& unpacked);
