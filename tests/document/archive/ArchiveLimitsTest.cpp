// What the archive format and the library cannot hold must fail, and what wraps must not lose
// members.

#include "document/archive/ArchiveLimits.h"

#include "document/DashboardPackage.h"
#include "document/archive/ArchiveWriter.h"
#include "document/archive/OpenedPackage.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RawArchive.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr int kTooMany = 70000;

RawArchive::Archive archiveOf(int members)
{
    RawArchive::Archive archive;
    for (int i = 0; i < members; ++i) {
        archive.members.push_back(
            {QByteArray::number(i / 1000) + '/' + QByteArray::number(i), "x", RawArchive::kStored});
    }
    return archive;
}

int countFiles(const QString& folder)
{
    int count = 0;
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    for (; files.hasNext(); files.next())
        ++count;
    return count;
}

void expectUnpacksAll(const RawArchive::Archive& archive)
{
    const QTemporaryDir folder(FolderTools::memoryTemplate());
    const QString path = folder.filePath(QStringLiteral("a.zconf2"));
    const QTemporaryDir out(FolderTools::memoryTemplate());
    ASSERT_TRUE(TestPackage::writeFile(path, RawArchive::build(archive)));
    EXPECT_TRUE(DashboardPackage::unpackArchive(path, out.path()));
    EXPECT_EQ(countFiles(out.path()), kTooMany);
}

/// Files that each stand in so many folders of their own, one in the other.
std::vector<RawArchive::Member> nestedMembers(int members, int depth)
{
    std::vector<RawArchive::Member> result;
    for (int i = 0; i < members; ++i) {
        const QByteArray folder =
            QByteArray::number(i) + '/' + QByteArray("f/").repeated(depth - 1);
        result.push_back({folder + 'x', "x", RawArchive::kStored});
    }
    return result;
}

/// Pretends that gigabytes stand before what is written to it.
class FarDevice : public QIODevice
{
public:
    explicit FarDevice(qint64 start) : m_start(start)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        QIODevice::seek(start);
    }
    [[nodiscard]] qint64 size() const override { return m_start + m_bytes.size(); }
    bool seek(qint64 position) override { return QIODevice::seek(position); }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        const qint64 at = pos() - m_start;
        m_bytes.replace(at, size, data, size);
        return size;
    }

private:
    qint64 m_start;
    QByteArray m_bytes;
};

/// Says that it holds more than it gives.
class ShortDevice : public QBuffer
{
public:
    [[nodiscard]] qint64 size() const override { return QBuffer::size() + 1; }
};

} // namespace

TEST(ArchiveLimitsTest, UnpacksMoreMembersThanTheEndRecordCanCount)
{
    RawArchive::Archive archive = archiveOf(kTooMany);
    archive.wideEnd = true;
    expectUnpacksAll(archive);
}

TEST(ArchiveLimitsTest, UnpacksAllMembersWhenTheirCountWrapped)
{
    const RawArchive::Archive archive = archiveOf(kTooMany);
    expectUnpacksAll(archive);
}

TEST(ArchiveLimitsTest, UnpacksAsManyFoldersAsAnyPackageMayHave)
{
    const QTemporaryDir folder(FolderTools::memoryTemplate());
    const QString path = folder.filePath(QStringLiteral("a.zconf2"));
    std::vector<RawArchive::Member> members = nestedMembers(64, 128);
    for (int i = 0; i < 64; ++i) // folders that are known already
        members.push_back({QByteArray::number(i) + "/f/../f/y", "y", RawArchive::kStored});
    members.push_back({"0/f/", ""});
    ASSERT_TRUE(TestPackage::writeFile(path, RawArchive::build(members)));
    const QTemporaryDir out(FolderTools::memoryTemplate());
    EXPECT_TRUE(DashboardPackage::unpackArchive(path, out.path()));
    EXPECT_EQ(countFiles(out.path()), 128);

    members.push_back({"one more/", ""});
    ASSERT_TRUE(TestPackage::writeFile(path, RawArchive::build(members)));
    const QTemporaryDir empty(FolderTools::memoryTemplate());
    EXPECT_FALSE(DashboardPackage::unpackArchive(path, empty.path()));
    EXPECT_EQ(FolderTools::names(empty.path()), QStringList());
}

TEST(ArchiveLimitsTest, SavesNoMoreFoldersThanItOpens)
{
    const QTemporaryDir world(FolderTools::memoryTemplate());
    const QString path = world.filePath(QStringLiteral("a.zconf2"));
    const QString folder = world.filePath(QStringLiteral("unpacked"));
    ASSERT_TRUE(TestPackage::writeFile(path, RawArchive::build(nestedMembers(64, 128))));
    OpenedPackage package;
    ASSERT_TRUE(package.unpack(path, folder));
    ASSERT_TRUE(TestPackage::writeFile(folder + QStringLiteral("/0/f/new"), "new"));
    ASSERT_TRUE(package.save(folder, path));
    EXPECT_TRUE(OpenedPackage().unpack(path, world.filePath(QStringLiteral("again"))));
    ASSERT_TRUE(TestPackage::writeFile(folder + QStringLiteral("/one more/new"), "new"));
    EXPECT_EQ(package.save(folder, path).reason().toStdString(), "There are too many folders");
}

TEST(ArchiveLimitsTest, RefusesTwoHundredThousandFoldersInOneMegabyte)
{
    const QTemporaryDir folder(FolderTools::memoryTemplate());
    const QString path = folder.filePath(QStringLiteral("a.zconf2"));
    const QByteArray bytes = RawArchive::build(nestedMembers(900, 254));
    ASSERT_LT(bytes.size(), 1'100'000);
    ASSERT_TRUE(TestPackage::writeFile(path, bytes));
    const QTemporaryDir out(FolderTools::memoryTemplate());
    EXPECT_FALSE(DashboardPackage::unpackArchive(path, out.path()));
    EXPECT_EQ(FolderTools::names(out.path()), QStringList());
}

TEST(ArchiveLimitsTest, SavesNoMoreMembersThanTheEndRecordCanCount)
{
    const QTemporaryDir folder(FolderTools::memoryTemplate());
    const QString path = folder.filePath(QStringLiteral("a.zconf2"));
    const QTemporaryDir files(FolderTools::memoryTemplate());
    for (std::size_t i = 0; i <= ArchiveLimits::kMembersWritten; ++i) {
        QFile file(files.filePath(QString::number(i)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    ASSERT_TRUE(TestPackage::writeFile(path, "old"));
    EXPECT_FALSE(DashboardPackage::packDirectory(files.path(), path));
    EXPECT_EQ(TestPackage::readFile(path), "old");
}

TEST(ArchiveLimitsTest, WritesAsManyMembersAsTheEndRecordCounts)
{
    const QTemporaryDir folder(FolderTools::memoryTemplate());
    const QString path = folder.filePath(QStringLiteral("a.zconf2"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ArchiveWriter archive(file);
    for (std::size_t i = 0; i < ArchiveLimits::kMembersWritten; ++i) {
        QBuffer content;
        content.open(QIODevice::ReadOnly);
        ASSERT_TRUE(archive.addMember(newMember(QByteArray::number(qulonglong(i))), content));
    }
    EXPECT_TRUE(archive.finish());
    file.close();
    const QTemporaryDir out(FolderTools::memoryTemplate());
    ASSERT_TRUE(DashboardPackage::unpackArchive(path, out.path()));
    EXPECT_EQ(countFiles(out.path()), static_cast<int>(ArchiveLimits::kMembersWritten));
}

TEST(ArchiveLimitsTest, RefusesOneMemberMore)
{
    QBuffer target;
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ArchiveWriter archive(target);
    QBuffer content;
    ASSERT_TRUE(content.open(QIODevice::ReadOnly));
    for (std::size_t i = 0; i < ArchiveLimits::kMembersWritten; ++i)
        ASSERT_TRUE(archive.addMember(newMember(QByteArray::number(qulonglong(i))), content));
    EXPECT_FALSE(archive.addMember(newMember("one more"), content));
}

TEST(ArchiveLimitsTest, RefusesAMemberOfFourGigabytes)
{
    const QTemporaryDir folder(FolderTools::memoryTemplate());
    QFile huge(folder.filePath(QStringLiteral("huge")));
    ASSERT_TRUE(huge.open(QIODevice::ReadWrite));
    ASSERT_TRUE(huge.resize(0xffffffffLL)); // takes no room on the disk
    QBuffer target;
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ArchiveWriter archive(target);
    EXPECT_FALSE(archive.addMember(newMember("huge"), huge));
}

TEST(ArchiveLimitsTest, RefusesAnArchiveOfFourGigabytes)
{
    constexpr qint64 kLimit = 0xffffffffLL;
    QBuffer content;
    ASSERT_TRUE(content.open(QIODevice::ReadOnly));
    {
        FarDevice near(kLimit - 1000);
        ArchiveWriter archive(near);
        EXPECT_TRUE(archive.addMember(newMember("small"), content));
        EXPECT_TRUE(archive.finish());
    }
    {
        FarDevice directoryTooFar(kLimit - 60);
        ArchiveWriter archive(directoryTooFar);
        EXPECT_TRUE(archive.addMember(newMember("small"), content));
        EXPECT_FALSE(archive.finish());
    }
    {
        FarDevice memberTooFar(kLimit - 20);
        ArchiveWriter archive(memberTooFar);
        EXPECT_FALSE(archive.addMember(newMember("small"), content));
    }
}

TEST(ArchiveLimitsTest, RefusesAMemberThatGivesLessThanItHolds)
{
    QBuffer target;
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ArchiveWriter archive(target);
    ShortDevice content;
    content.setData("content");
    ASSERT_TRUE(content.open(QIODevice::ReadOnly));
    EXPECT_FALSE(archive.addMember(newMember("short"), content));
}

TEST(ArchiveLimitsTest, WritesLongNamesThatFitTheFormat)
{
    const QByteArray name = QByteArray(200, 'n') + '/' + QByteArray(200, 'm');
    QBuffer target;
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ArchiveWriter archive(target);
    QBuffer content;
    ASSERT_TRUE(content.open(QIODevice::ReadOnly));
    EXPECT_TRUE(archive.addMember(newMember(name), content));
    EXPECT_FALSE(archive.addMember(newMember(QByteArray(70000, 'n')), content));
}
