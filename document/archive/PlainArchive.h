#pragma once

#include "document/archive/ArchiveDirectory.h"

#include <QIODevice>

/// An archive with a plain directory behind its end, for the archive library to read: no 64-bit
/// records, no bytes before it, no comment, right counts, all of which the library gets wrong.
///
/// Reads from the archive's device, which must outlive this. A read that crosses the archive's end
/// is short, so that members cut off there end there; when the device itself gives less than it
/// has, the read fails.
class PlainArchive : public QIODevice
{
    Q_OBJECT

public:
    /// Opens itself for reading.
    PlainArchive(QIODevice& archive, const std::vector<ArchiveMember>& members);

    /// Where the record of a member is in the plain directory.
    [[nodiscard]] quint64 recordAt(std::size_t index) const;

    [[nodiscard]] qint64 size() const override;

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    QIODevice& m_archive;
    qint64 m_archiveSize; ///< the directory begins there
    QByteArray m_directory;
};
