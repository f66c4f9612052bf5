#include "document/archive/Unpacking.h"

#include "document/archive/ArchiveLimits.h"
#include "document/archive/ArchiveReader.h"
#include "document/archive/ArchiveText.h"
#include "document/archive/FileIdentity.h"
#include "document/archive/MemberPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <filesystem>
#include <limits>
#include <system_error>
#include <utility>

namespace {

quint64 addSaturating(quint64 left, quint64 right)
{
    return left > std::numeric_limits<quint64>::max() - right ? std::numeric_limits<quint64>::max()
                                                              : left + right;
}

/// The folder itself or, where it does not exist yet, the nearest existing one above it.
QString existingFolder(QString folder)
{
    while (!QFileInfo::exists(folder) && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    return folder;
}

bool fitsOnVolume(quint64 size, const QString& folder)
{
    // Not QStorageInfo: its list of mounted volumes is wrong for a program with another root.
    std::error_code error; // then the largest number is available
    return size <=
           std::filesystem::space(QFileInfo(existingFolder(folder)).filesystemFilePath(), error)
               .available;
}

/// Whether the data of a member can be read by us.
Outcome isReadable(const ArchiveMember& member)
{
    if (member.isEncrypted())
        return Outcome::failure(ArchiveText::tr("The archive is protected by a password"));
    if (!member.isMethodKnown()) {
        return Outcome::failure(
            ArchiveText::tr("The member \"%1\" is compressed with an unknown method")
                .arg(member.name));
    }
    return {};
}

Outcome mayUnpack(const std::vector<ArchiveMember>& members, const QString& destination)
{
    quint64 total = 0;
    QSet<QString> folders;
    for (const ArchiveMember& member : members) {
        const std::optional<QString> path = memberPath(member.name);
        if (!path) {
            return Outcome::failure(
                ArchiveText::tr("The name \"%1\" leads out of the package").arg(member.name));
        }
        addFolders(member.isFolder() ? *path : folderOf(*path), folders);
        if (folders.size() > ArchiveLimits::kFolders)
            return Outcome::failure(ArchiveText::tr("The archive has too many folders"));
        if (member.isFolder())
            continue;
        if (Outcome readable = isReadable(member); !readable)
            return readable;
        total = addSaturating(total, member.size);
    }
    return fitsOnVolume(total, destination)
               ? Outcome()
               : Outcome::failure(ArchiveText::tr("No space left on the device"));
}

/// Accepts any bytes and keeps none.
class Discard : public QIODevice
{
public:
    Discard() { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

protected:
    qint64 readData(char* /*data*/, qint64 /*size*/) override { return -1; }
    qint64 writeData(const char* /*data*/, qint64 size) override { return size; }
};

/// Unpacks one member after the other into a folder.
class Unpacker
{
public:
    Unpacker(QIODevice& device, const std::vector<ArchiveMember>& members, const QString& folder,
             std::vector<UnpackedMember>& unpacked)
        : m_reader(device, members),
          m_folder(folder),
          m_unpacked(unpacked)
    {
    }

    Outcome unpack(std::size_t index, const ArchiveMember& record)
    {
        m_unpacked.push_back({record, {}});
        UnpackedMember& member = m_unpacked.back();
        const QString path = memberPath(record.name).value_or(QString());
        const QString target = m_folder + u'/' + path;
        // A folder that cannot be made costs nothing by itself: a file in it will report it.
        // QFileInfo does not name it: on Windows it takes "folder/." for a file next to the folder.
        QDir().mkpath(record.isFolder() ? target : m_folder + u'/' + folderOf(path));
        std::optional<quint32> rawCrc;
        if (record.isFolder()) {
            checkFolder(index, record, rawCrc);
        } else {
            QString key = fileKey(path);
            if (Outcome written = write(index, target, rawCrc, key); !written)
                return written;
            takeFile(index, path, key);
        }
        member.whole = rawCrc.has_value();
        member.rawCrc = rawCrc.value_or(0);
        return {};
    }

    [[nodiscard]] bool deviceFailed() const { return m_reader.deviceFailed(); }

private:
    /// @param key receives the file's number where the system has one: where the disk ignores
    /// case, one file has two names.
    Outcome write(std::size_t index, const QString& target, std::optional<quint32>& rawCrc,
                  QString& key)
    {
        QFile file(target);
        if (!file.open(QIODevice::WriteOnly))
            return Outcome::failure(file.errorString());
        if (const auto identity = identityOf(file); identity && identity->number != 0)
            key = QStringLiteral("%1:%2").arg(identity->device).arg(identity->number);
        if (Outcome extracted = m_reader.extract(index, file, rawCrc); !extracted)
            return extracted;
        file.close();
        return file.error() == QFileDevice::NoError ? Outcome()
                                                    : Outcome::failure(file.errorString());
    }

    /// Folders have no content to speak of, but a save should not copy damage.
    void checkFolder(std::size_t index, const ArchiveMember& record, std::optional<quint32>& rawCrc)
    {
        Discard ignored;
        if (!isReadable(record) || !m_reader.extract(index, ignored, rawCrc))
            rawCrc.reset();
    }

    /// The last member that was written to a file has it, under the name that the file got first.
    void takeFile(std::size_t index, const QString& path, const QString& key)
    {
        const auto former = m_owners.constFind(key);
        m_unpacked[index].path =
            former == m_owners.cend() ? path : std::exchange(m_unpacked[*former].path, {});
        m_owners[key] = index;
    }

    ArchiveReader m_reader;
    QString m_folder;
    std::vector<UnpackedMember>& m_unpacked;
    QHash<QString, std::size_t> m_owners; ///< of the files, by their keys
};

} // namespace

QString fileKey(const QString& path)
{
    return kNativePathRules == PathRules::Windows ? path.toCaseFolded() : path;
}

Outcome unpackMembers(QIODevice& device, const std::vector<ArchiveMember>& members,
                      const QString& folder, std::vector<UnpackedMember>& unpacked)
{
    if (Outcome allowed = mayUnpack(members, folder); !allowed)
        return allowed;
    Unpacker unpacker(device, members, folder, unpacked);
    Outcome outcome;
    for (std::size_t i = 0; i < members.size() && outcome && !unpacker.deviceFailed(); ++i)
        outcome = unpacker.unpack(i, members[i]);
    // A damaged archive is unpacked as far as possible; a failing disk is another matter.
    return unpacker.deviceFailed() ? Outcome::failure(device.errorString()) : outcome;
}
