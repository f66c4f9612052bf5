#pragma once

#include "document/archive/ArchiveDirectory.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <string>
#include <vector>

/// An archive as a test looks at it after a save.
class SavedArchive
{
public:
    SavedArchive() = default;
    explicit SavedArchive(const QString& path);

    [[nodiscard]] const ArchiveDirectory& directory() const { return m_directory; }

    /// All that a save must keep of each member, its compressed bytes included, in one text.
    [[nodiscard]] const std::vector<std::string>& members() const { return m_members; }
    [[nodiscard]] QByteArrayList names() const;
    [[nodiscard]] QByteArray comment() const { return m_directory.comment; }
    /// Of a member, unpacked as far as that is possible.
    [[nodiscard]] QByteArray content(std::size_t index) const;
    /// Whether all members can be read and have the right size and checksum.
    [[nodiscard]] bool isWhole() const { return m_whole; }

private:
    ArchiveDirectory m_directory;
    std::vector<std::string> m_members;
    std::vector<QByteArray> m_contents;
    bool m_whole = false;
};
