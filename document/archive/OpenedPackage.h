#pragma once

#include "document/archive/DeflatedBlocks.h"
#include "document/archive/FileIdentity.h"
#include "document/archive/Outcome.h"
#include "document/archive/UnpackedMember.h"
#include "document/archive/WrittenMember.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class QIODevice;

/// The archive that the files in an unpack folder come from, so that a save copies what has not
/// changed since. A value; keeps no file open, but in memory what the last save deflated.
class OpenedPackage
{
public:
    /// Unpacks an archive into a folder and remembers it. A member whose data are damaged is kept
    /// as far as it can be read; one whose header is damaged is a failure. After a failure this is
    /// useless, and the folder has what was written before.
    Outcome unpack(const QString& archivePath, const QString& folder);

    /// Makes the folder that was unpacked into again when it is gone. Fails when another one has
    /// its place; see ensurePrivateFolder.
    [[nodiscard]] Outcome ensureFolder(const QString& folder) const;

    /// Whether the archive's directory could be read to its end. If not, a save would lose members.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }

    /// Replaces the file at `destination` with an archive of the files in the folder, and remembers
    /// that one instead.
    ///
    /// Members that have not changed are copied with all that the archive says about them, in their
    /// order. A changed file is deflated anew with the current date, a new one is added at the end
    /// unless it is hidden or `destination` itself, a missing one is copied from the archive. When
    /// the archive is gone, has changed or has damage that the folder does not make up for, all
    /// comes from the folder, and a file missing there is a failure. On failure `destination` is
    /// unchanged.
    Outcome save(const QString& folder, const QString& destination);

private:
    struct Attempt;

    [[nodiscard]] Attempt write(QIODevice& target, const QString& folder, const QStringList& files,
                                bool careful) const;
    void remember();

    QString m_path;                         ///< of the archive
    std::optional<FileIdentity> m_identity; ///< when it was read; nullopt if it must not be used
    std::optional<uint> m_folderOwner;      ///< of the unpack folder; nullopt if there was none
    QByteArray m_comment;
    bool m_isComplete = true;
    std::vector<UnpackedMember> m_members;
    std::vector<WrittenMember> m_unread; ///< saved to m_path, but not read again yet
    DeflatedBlocks m_blocks;             ///< of the last save
};
