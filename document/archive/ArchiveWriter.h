#pragma once

#include "document/archive/ArchiveDevice.h"

#include <QByteArray>

#include <zip.h>

#include <memory>
#include <vector>

/// Writes a ZIP archive member by member: deflate at the default level, no dates, no attributes.
///
/// Never leaves an archive that reads back differently: whatever the format or the library cannot
/// hold (see the limits below) is an error. The device belongs to the caller, who must throw away
/// what was written when any call has returned false.
class ArchiveWriter
{
public:
    /// Most members that an archive can count without the 64-bit records, which the library does
    /// not write for the count.
    static constexpr std::size_t kMaxMembers = 0xffff;
    /// Sizes and offsets must stay below this: the library cannot read 64-bit ones back.
    static constexpr qint64 kSizeLimit = 0xffffffff;

    /// The device must be open for writing, seekable, and outlive the writer.
    explicit ArchiveWriter(QIODevice& device);

    /// Appends a member with everything that content, an open device, holds.
    /// @param name UTF-8, with "/" between folders.
    /// @return false when content cannot be read completely, when it or the archive grows too
    /// large, when there are too many members, or when writing fails.
    [[nodiscard]] bool addMember(const QByteArray& name, QIODevice& content);

    /// Writes the directory, which completes the archive. Nothing may be added afterwards.
    [[nodiscard]] bool finish();

private:
    struct Closer
    {
        void operator()(zipFile archive) const { zipClose(archive, nullptr); }
    };

    [[nodiscard]] bool beginMember(const QByteArray& name);
    [[nodiscard]] bool writeContent(QIODevice& content);
    [[nodiscard]] bool isSound() const;

    QIODevice& m_target;
    ArchiveDevice m_device;
    std::unique_ptr<std::remove_pointer_t<zipFile>, Closer> m_archive;
    std::size_t m_members = 0;
    std::vector<char> m_chunk; ///< of the content being written
};
