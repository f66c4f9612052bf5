#pragma once

#include "document/archive/ArchiveReader.h"
#include "document/archive/ArchiveWriter.h"
#include "document/archive/BlockDeflater.h"
#include "document/archive/UnpackedMember.h"
#include "document/archive/WrittenMember.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QStringList>

#include <optional>
#include <vector>

/// Writes one new archive from an opened one and the folder with its files. Decides for each member
/// where it comes from; OpenedPackage::save says by which rules.
class PackageSaver
{
public:
    /// @param members of the opened archive
    /// @param source the opened archive's reader, or null when the archive is gone or has changed
    /// @param folder with the unpacked files; all visible ones are in `files`
    /// @param former what the last save deflated; must outlive this
    /// @param careful read each member before copying it, to find those that are damaged by now
    PackageSaver(QIODevice& target, const std::vector<UnpackedMember>& members,
                 ArchiveReader* source, const QString& folder, const QStringList& files,
                 const DeflatedBlocks& former, bool careful);

    Outcome write(const QByteArray& comment);

    /// Whether a member turned out to be damaged after a part of it had been copied. A careful
    /// second attempt takes it from the folder.
    [[nodiscard]] bool foundDamage() const { return m_foundDamage; }

    /// What was written, after a success.
    [[nodiscard]] const std::vector<WrittenMember>& written() const { return m_written; }

    /// What was deflated, for the next save.
    [[nodiscard]] const DeflatedBlocks& deflatedBlocks() const { return m_deflater.deflated(); }

private:
    Outcome writeMember(std::size_t index);
    Outcome writeOwner(std::size_t index);
    Outcome writeWithoutFile(std::size_t index);
    Outcome writeNewFiles();
    Outcome writeNewFile(const QString& name, QSet<QString>& folders);
    Outcome copy(std::size_t index);
    Outcome recover(std::size_t index);
    Outcome deflate(const ArchiveMember& like, const QString& path, QIODevice& content);
    Outcome deflateInBlocks(const ArchiveMember& header, QIODevice& content, qint64 size);
    [[nodiscard]] QSet<QString> memberFolders() const;
    [[nodiscard]] bool isSameFile(const QString& name, const QString& path) const;
    [[nodiscard]] bool canCopy(std::size_t index);

    ArchiveWriter m_writer;
    const std::vector<UnpackedMember>& m_members;
    ArchiveReader* m_source;
    QDir m_folder;
    QStringList m_names;  ///< paths of the visible files, below the folder
    QSet<QString> m_keys; ///< of m_names
    BlockDeflater m_deflater;
    bool m_careful;
    bool m_foundDamage = false;
    quint32 m_now; ///< as the archive has dates
    std::vector<WrittenMember> m_written;
};
