#pragma once

#include "document/archive/ArchiveDirectory.h"

#include <QString>

/// A member of an unpacked archive.
struct UnpackedMember
{
    ArchiveMember record;
    /// The file it was written to, below the unpack folder. Empty for folders, and for a member
    /// whose file a later one overwrote.
    QString path;
    bool whole = false; ///< the data could be read to the end and have the right checksum
    quint32 rawCrc = 0; ///< of the compressed bytes; only of whole members
};
