#pragma once

#include "document/archive/ArchiveDevice.h"
#include "document/archive/ArchiveDirectory.h"
#include "document/archive/MemberStream.h"

#include <QByteArray>

#include <zip.h>

#include <memory>
#include <vector>

/// Writes a ZIP archive member by member.
///
/// Never leaves an archive that reads back differently: whatever the format or the library cannot
/// hold (see ArchiveLimits.h) is a failure. The device belongs to the caller, who must discard what
/// was written after any failure.
class ArchiveWriter
{
public:
    /// The device must be open for writing, seekable, empty, and outlive the writer.
    explicit ArchiveWriter(QIODevice& device);

    /// Appends a member with all of content, an open device, deflated at the default level.
    /// @param like has the name, date, attributes, extra fields and comment; sizes, CRC and method
    /// are those of the content, and of the flags only the one for UTF-8 names counts.
    Outcome addMember(const ArchiveMember& like, QIODevice& content);

    /// Appends a member whose content was deflated before, with the content's size and CRC.
    Outcome addDeflated(const ArchiveMember& like, const QByteArray& deflated, quint64 size,
                        quint32 crc);

    /// CRCs of the content that was added last and of its compressed bytes.
    [[nodiscard]] quint32 contentCrc() const { return m_contentCrc; }
    [[nodiscard]] quint32 rawCrc() const { return m_device.writtenCrc(); }

    /// Appends a folder, stored and without data, with the name and attributes of `like`.
    Outcome addFolder(const ArchiveMember& like);

    /// Appends a member of another archive with its compressed bytes unchanged.
    /// @param source the member, open raw
    /// @param rawCrc the CRC that the compressed bytes must have
    /// @param intact receives false when the bytes cannot be read or have another CRC; then this is
    /// a failure, too.
    Outcome copyMember(const ArchiveMember& member, MemberStream& source, quint32 rawCrc,
                       bool& intact);

    /// Writes the directory, which completes the archive. Nothing may be added afterwards.
    Outcome finish(const QByteArray& comment = {});

private:
    struct Closer
    {
        void operator()(zipFile archive) const { zipClose(archive, nullptr); }
    };
    /// Bytes to write over what the library has written.
    struct Patch
    {
        qint64 position;
        QByteArray bytes;
    };

    Outcome begin(const ArchiveMember& header, const QByteArray& localExtra, quint16 flags,
                  int method, bool raw);
    void rememberNuls(const ArchiveMember& header);
    [[nodiscard]] bool applyPatches(qint64 directoryStart, const QByteArray& comment);
    Outcome writeContent(QIODevice& content);
    [[nodiscard]] bool writeRaw(const ArchiveMember& member, MemberStream& source, quint32 rawCrc);
    Outcome checked(bool written) const;

    QIODevice& m_target;
    ArchiveDevice m_device;
    std::unique_ptr<std::remove_pointer_t<zipFile>, Closer> m_archive;
    std::size_t m_members = 0;
    quint32 m_contentCrc = 0;
    qint64 m_directorySize = 0;
    std::vector<Patch> m_localPatches;     ///< positions in the file
    std::vector<Patch> m_directoryPatches; ///< positions in the directory
    std::vector<char> m_chunk;             ///< of the content being written
};

/// The header of a new member: no attributes, no comment.
/// @param dosDate by default the one that the library writes for "no date".
[[nodiscard]] ArchiveMember newMember(const QByteArray& utf8Name, quint32 dosDate = 0x00200000);
