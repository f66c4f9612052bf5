// What a save makes of a package: what nobody changed comes back as it was.

#include "document/archive/ArchiveReader.h"
#include "document/archive/BlockDeflater.h"
#include "tests/document/archive/OpenedPackageFixture.h"

#include <QDateTime>

#include <ctime>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using RawArchive::Member;
using TestPackage::readFile;
using TestPackage::writeFile;

TEST_F(OpenedPackageTest, KeepsAllThatTheArchiveSaysAboutUnchangedMembers)
{
    openRich();
    for (const QString& path : {m_other, m_path}) {
        save(path);
        EXPECT_EQ(m_after.members(), m_before.members());
        EXPECT_EQ(m_after.comment(), m_before.comment());
    }
}

TEST_F(OpenedPackageTest, WritesSizesInPlainFieldsBeforeTheData)
{
    openRich();
    save(m_other);
    for (const ArchiveMember& member : m_after.directory().members)
        EXPECT_EQ(member.flags & RawArchive::kDataDescriptor, 0);
    const QByteArray bytes = readFile(m_other);
    EXPECT_FALSE(bytes.contains(QByteArray("\1\0\x10\0", 4))) << "a field for 64-bit sizes";
    EXPECT_EQ(bytes.count("PK\7\x8"), 0) << "sizes behind the data";
}

TEST_F(OpenedPackageTest, KeepsTheExtraFieldsOfLocalHeaders)
{
    openRich();
    save(m_other);
    EXPECT_TRUE(readFile(m_other).contains(*richArchive().members[0].localField));
}

TEST_F(OpenedPackageTest, DeflatesWhatHasChangedInItsPlace)
{
    openRich();
    ASSERT_TRUE(writeFile(inFolder("z.png"), QByteArray(3000, 'q'))); // as long as before
    ASSERT_TRUE(writeFile(inFolder(".hidden"), "changed, too"));
    save(m_other);
    auto expected = m_before.members();
    for (const std::size_t changed : {0U, 3U})
        expected[changed] = m_after.members().at(changed);
    EXPECT_EQ(m_after.members(), expected);
    const ArchiveMember& image = m_after.directory().members[0];
    EXPECT_EQ(m_after.content(0), QByteArray(3000, 'q'));
    EXPECT_EQ(m_after.content(3), "changed, too");
    EXPECT_EQ(image.method, RawArchive::kDeflate);
    EXPECT_EQ(image.externalAttributes, 0100644U << 16U);
    EXPECT_EQ(image.comment, QByteArray("a\0comment", 9));
    EXPECT_EQ(image.extra, "") << "the time of the former content";
    const auto year = static_cast<int>(image.dosDate >> 25U) + 1980;
    EXPECT_LE(std::abs(year - QDate::currentDate().year()), 1);
}

TEST_F(OpenedPackageTest, SavesFilesTooLargeToKeepForTheNextSave)
{
    openRich();
    const QByteArray large(BlockDeflater::kMostBytes + 1, 'x');
    ASSERT_TRUE(writeFile(inFolder("large.bin"), large));
    save(m_other);
    EXPECT_EQ(m_after.names().back(), "large.bin");
    EXPECT_EQ(m_after.content(m_after.members().size() - 1), large);
}

TEST_F(OpenedPackageTest, DeflatesOnlyOnceWhatStaysTheSame)
{
    QByteArray text;
    for (int i = 0; i < 400'000; ++i)
        text += "line number " + QByteArray::number(qint64{i} * 7919) + '\n';
    open(RawArchive::build({Member{"overlay.ov3.xml", "old"}}));
    const auto timeToSave = [&](const char* edit) {
        EXPECT_TRUE(writeFile(inFolder("overlay.ov3.xml"), edit + text));
        const std::clock_t start = std::clock(); // of the processor: others may use it, too
        EXPECT_TRUE(m_package.save(m_folder, m_other));
        return std::clock() - start;
    };
    const std::clock_t first = timeToSave("1");
    timeToSave("1"); // nothing has changed
    EXPECT_LT(timeToSave("2"), first / 2);
    EXPECT_EQ(SavedArchive(m_other).content(0), "2" + text);
}

TEST_F(OpenedPackageTest, CopiesWhatTheLastSaveDeflated)
{
    openRich();
    ASSERT_TRUE(writeFile(inFolder("a.txt"), "edited"));
    save(m_other);
    const auto members = m_after.members();
    ASSERT_TRUE(QFile::remove(inFolder("a.txt")));
    save(m_path);
    EXPECT_EQ(m_after.members(), members);
    EXPECT_EQ(m_after.content(members.size() - 1), "edited");
}

TEST_F(OpenedPackageTest, AddsNewFilesAtTheEndButNoHiddenOnes)
{
    openRich();
    ASSERT_TRUE(writeFile(inFolder("new/\xC3\xA9.txt"), "new"));
    ASSERT_TRUE(writeFile(inFolder(".new"), "hidden"));
    save(m_other);
    auto members = m_after.members();
    ASSERT_EQ(members.size(), m_before.members().size() + 1);
    const ArchiveMember& added = m_after.directory().members.back();
    EXPECT_EQ(added.rawName, "new/\xC3\xA9.txt");
    EXPECT_EQ(added.flags, RawArchive::kUtf8Name);
    EXPECT_EQ(m_after.content(members.size() - 1), "new");
    members.pop_back();
    EXPECT_EQ(members, m_before.members());
}

TEST_F(OpenedPackageTest, SavesNoPackageIntoItself)
{
    openRich();
    for (int i = 0; i < 2; ++i) {
        save(inFolder("saved.zconf2"));
        EXPECT_EQ(m_after.members(), m_before.members());
    }
}

TEST_F(OpenedPackageTest, TakesFromThePackageWhatVanishedFromTheFolder)
{
    openRich();
    FolderTools::remove(m_folder);
    for (const QString& path : {m_other, m_path, m_other}) {
        save(path);
        EXPECT_EQ(m_after.members(), m_before.members());
        EXPECT_TRUE(QFile::exists(m_folder)) << "made again";
    }
}

TEST_F(OpenedPackageTest, CopiesFromTheLastPackageThatWasSaved)
{
    openRich();
    save(m_other);
    ASSERT_TRUE(QFile::remove(m_path));
    FolderTools::remove(m_folder);
    save(m_path);
    EXPECT_EQ(m_after.members(), m_before.members());
}

TEST_F(OpenedPackageTest, WritesTheFolderWhenThePackageIsGone)
{
    openRich();
    ASSERT_TRUE(QFile::remove(m_path));
    save(m_other);
    auto names = m_before.names();
    names.removeAll("\xE8.txt"); // its file has the content of the other one
    EXPECT_EQ(m_after.names(), names);
    EXPECT_EQ(m_after.content(3), "hidden");
    EXPECT_EQ(m_after.directory().members[0].dosDate, kSomeDate);
    EXPECT_EQ(m_after.comment(), m_before.comment());
}

TEST_F(OpenedPackageTest, FailsWhenPackageAndFileAreGone)
{
    openRich();
    ASSERT_TRUE(QFile::remove(m_path));
    ASSERT_TRUE(QFile::remove(inFolder(".folder/inside")));
    expectFails(QStringLiteral("The file \".folder/inside\" is missing, and the package was "
                               "changed since it was opened"));
}

TEST_F(OpenedPackageTest, DoesNotUseAPackageThatSomebodyElseHasChanged)
{
    openRich();
    const QByteArray old = readFile(m_path);
    const std::vector<QByteArray> others{old.left(1000), QByteArray(), old + "x",
                                         RawArchive::build({Member{"z.png", "another"}})};
    for (const QByteArray& changed : others) {
        SCOPED_TRACE(changed.size());
        OpenedPackage package;
        ASSERT_TRUE(package.unpack(m_path, m_folder));
        ASSERT_TRUE(writeFile(m_path, changed));
        ASSERT_TRUE(package.save(m_folder, m_other));
        EXPECT_EQ(SavedArchive(m_other).content(0), QByteArray(3000, 'p'));
        ASSERT_TRUE(writeFile(m_path, old));
    }
}

TEST_F(OpenedPackageTest, FailsWhereAFolderIsInTheWayOfAFile)
{
    openRich();
    ASSERT_TRUE(QFile::remove(inFolder("a.txt")));
    ASSERT_TRUE(QDir().mkpath(inFolder("a.txt")));
    ASSERT_TRUE(writeFile(m_other, "old"));
    EXPECT_FALSE(m_package.save(m_folder, m_other));
    EXPECT_EQ(readFile(m_other), "old");
}

TEST_F(OpenedPackageTest, FailsWhereAFileIsInTheWayOfAFolder)
{
    open(RawArchive::build({Member{"f/g/b", "b"}, Member{"listed/", "", RawArchive::kStored}}));
    for (const char* const folder : {"f", "f/g", "listed"}) {
        const QTemporaryDir kept(FolderTools::memoryTemplate());
        const QString away = kept.filePath(QStringLiteral("away"));
        ASSERT_TRUE(QDir().rename(inFolder(folder), away));
        ASSERT_TRUE(writeFile(inFolder(folder), "file"));
        // Written as both, the package could not be opened.
        expectFails(
            QStringLiteral("\"%1\" is a file, but a folder in the package").arg(inFolder(folder)));
        ASSERT_TRUE(QFile::remove(inFolder(folder)));
        ASSERT_TRUE(QDir().rename(away, inFolder(folder)));
    }
    save(m_other);
    EXPECT_EQ(m_after.members(), m_before.members());
}

TEST_F(OpenedPackageTest, KeepsAllMembersOfOneName)
{
    open(RawArchive::build(
        {Member{"a", "first"}, Member{"b", "b"}, Member{"a", "second"}, Member{"./a", "last"}}));
    save(m_other);
    EXPECT_EQ(m_after.members(), m_before.members());
    ASSERT_TRUE(writeFile(inFolder("a"), "edited"));
    save(m_path);
    EXPECT_EQ(m_after.names(), m_before.names());
    EXPECT_EQ(m_after.content(0), "first");
    EXPECT_EQ(m_after.content(2), "second");
    EXPECT_EQ(m_after.content(3), "edited");
}

#ifndef Q_OS_WIN // where no name holds a colon
TEST_F(OpenedPackageTest, SavesAFileWhoseNameLooksLikeAResource)
{
    open(RawArchive::build({Member{":logo.png", "pixels"}}));
    ASSERT_TRUE(writeFile(inFolder(":logo.png"), "edited"));
    save(m_other);
    EXPECT_EQ(m_after.content(0), "edited");
}
#endif

TEST_F(OpenedPackageTest, MakesALostUnpackFolderForNobodyElse)
{
    openRich();
    ASSERT_TRUE(QDir(m_folder).removeRecursively());
    save(m_other);
    EXPECT_EQ(m_after.members(), m_before.members());
#ifdef Q_OS_UNIX
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(m_folder) & others);
#endif
}

#ifdef Q_OS_LINUX

TEST_F(OpenedPackageTest, KeepsAllMembersWhereTheDiskIgnoresCase)
{
    // Links make one file of two names, as such a disk does.
    ASSERT_TRUE(writeFile(inFolder("A.png"), ""));
    ASSERT_EQ(link(QFile::encodeName(inFolder("A.png")).constData(),
                   QFile::encodeName(inFolder("a.png")).constData()),
              0);
    ASSERT_TRUE(QDir().mkpath(inFolder("F")));
    ASSERT_TRUE(QFile::link(QStringLiteral("F"), inFolder("f")));
    open(RawArchive::build({Member{"A.png", "first"}, Member{"a.png", "last"}, Member{"F/x", "x"},
                            Member{"f/y", "y"}}));
    for (const QString& path : {m_other, m_path}) {
        save(path);
        EXPECT_EQ(m_after.members(), m_before.members());
    }
    ASSERT_TRUE(writeFile(inFolder("F/y"), "edited"));
    save(m_other);
    EXPECT_EQ(m_after.names(), m_before.names());
    EXPECT_EQ(m_after.content(0), "first");
    EXPECT_EQ(m_after.content(3), "edited");
}

TEST_F(OpenedPackageTest, AddsANewNameOfAnOldFile)
{
    openRich();
    ASSERT_EQ(link(QFile::encodeName(inFolder("z.png")).constData(),
                   QFile::encodeName(inFolder("copy.png")).constData()),
              0);
    save(m_other);
    EXPECT_EQ(m_after.names(), m_before.names() + QByteArrayList{"copy.png"});
}

#endif

#ifdef Q_OS_UNIX

TEST_F(OpenedPackageTest, UsesNoFolderOfAnotherOwner)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give a folder away";
    openRich();
    constexpr uid_t kNobody = 65534;
    ASSERT_EQ(chown(QFile::encodeName(m_folder).constData(), kNobody, kNobody), 0);
    expectFails(QStringLiteral("The folder \"%1\" has been replaced by another one").arg(m_folder));
    ASSERT_TRUE(QDir(m_folder).removeRecursively());
    save(m_other);
    EXPECT_EQ(m_after.members(), m_before.members());
}

TEST_F(OpenedPackageTest, FollowsNoLinkInTheFoldersPlace)
{
    openRich();
    const QTemporaryDir elsewhere(FolderTools::memoryTemplate());
    ASSERT_TRUE(writeFile(elsewhere.filePath(QStringLiteral("private")), "secret"));
    ASSERT_TRUE(QDir(m_folder).removeRecursively());
    ASSERT_TRUE(QFile::link(elsewhere.path(), m_folder));
    expectFails(QStringLiteral("The folder \"%1\" has been replaced by another one").arg(m_folder));
}

#endif
