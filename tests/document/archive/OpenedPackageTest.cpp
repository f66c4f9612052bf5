// What a save makes of a package: what nobody changed comes back as it was.

#include "document/archive/OpenedPackage.h"

#include "document/archive/ArchiveReader.h"
#include "tests/support/AwkwardArchives.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RawArchive.h"
#include "tests/support/SavedArchive.h"
#ifdef Q_OS_LINUX
#include "tests/support/Unprivileged.h"
#endif

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <sys/stat.h>
#endif

using RawArchive::Member;
using TestPackage::readFile;
using TestPackage::writeFile;

namespace {

constexpr quint32 kSomeDate = 0x52a16c85; // some day in 2021

QByteArray unixTimes()
{
    return QByteArray("UT\5\0\1\1\2\3\4", 9);
}

/// A package with everything that a save used to lose.
RawArchive::Archive richArchive()
{
    Member stored{"z.png", QByteArray(3000, 'p'), RawArchive::kStored};
    stored.date = kSomeDate;
    stored.madeBy = RawArchive::kMadeOnUnix;
    stored.attributes = 0100644U << 16U;
    stored.internalAttributes = 1;
    stored.otherField = unixTimes();
    stored.localField = QByteArray("UT\x9\0\3\1\2\3\4\5\6\7\x8", 13);
    stored.comment = QByteArray("a\0comment", 9);
    Member late{"overlay.ov3.xml", "<overlay/>", RawArchive::kDeflate,
                RawArchive::kDataDescriptor | RawArchive::kUtf8Name};
    late.date = kSomeDate + 1;
    Member wide{"wide", QByteArray(2000, 'w')};
    wide.wideSizes = true;
    wide.otherField = unixTimes();
    RawArchive::Archive archive;
    archive.members = {stored,
                       Member{"empty/", "", RawArchive::kStored},
                       late,
                       Member{".hidden", "hidden"},
                       Member{".folder/inside", "hidden, too"},
                       Member{"\xE8.txt", "first"},
                       Member{"\xE9.txt", "last"},
                       Member{QByteArray("a\0b", 3), "NUL"},
                       wide,
                       Member{"a.txt", "text"}};
    archive.comment = QByteArray("of\0the archive", 14);
    return archive;
}

class OpenedPackageTest : public testing::Test
{
protected:
    void open(const QByteArray& bytes)
    {
        ASSERT_TRUE(writeFile(m_path, bytes));
        const Outcome opened = m_package.unpack(m_path, m_folder);
        ASSERT_TRUE(opened) << opened.reason().toStdString();
        m_before = SavedArchive(m_path);
    }

    /// Saves to another file, or onto the package itself.
    void save(const QString& path)
    {
        const Outcome saved = m_package.save(m_folder, path);
        ASSERT_TRUE(saved) << saved.reason().toStdString();
        m_after = SavedArchive(path);
        EXPECT_TRUE(m_after.isWhole());
    }

    void expectFails(const QString& reason)
    {
        ASSERT_TRUE(writeFile(m_other, "old"));
        EXPECT_EQ(m_package.save(m_folder, m_other).reason(), reason);
        EXPECT_EQ(readFile(m_other), "old");
        EXPECT_EQ(FolderTools::names(m_world.path()).size(), QFile::exists(m_path) ? 3 : 2);
    }

    [[nodiscard]] QString inFolder(const char* path) const
    {
        return m_folder + u'/' + QString::fromUtf8(path);
    }

    void openRich() { open(RawArchive::build(richArchive())); }

    QTemporaryDir m_world{FolderTools::memoryTemplate()};
    QString m_path = m_world.filePath(QStringLiteral("a.zconf2"));
    QString m_other = m_world.filePath(QStringLiteral("b.zconf2"));
    QString m_folder = m_world.filePath(QStringLiteral("unpacked"));
    OpenedPackage m_package;
    SavedArchive m_before;
    SavedArchive m_after;
};

} // namespace

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

TEST_F(OpenedPackageTest, WritesDamagedMembersAsFarAsTheyCouldBeRead)
{
    Member badCrc{"bad", "content"};
    badCrc.crc = 12345;
    Member cut{"cut", QByteArray(50, 'c')};
    cut.data = RawArchive::deflated(cut.content).left(4);
    Member hiddenByTheNext = badCrc;
    hiddenByTheNext.name = "twice";
    Member tooShort{"short", "content", RawArchive::kStored};
    tooShort.size = 3;
    open(RawArchive::build({badCrc, cut, hiddenByTheNext, Member{"twice", "last"}, tooShort}));
    const auto files = FolderTools::contents(m_folder);
    save(m_other);
    EXPECT_EQ(m_after.names(), m_before.names());
    EXPECT_EQ(m_after.content(0), "content");
    EXPECT_EQ(m_after.content(1), files.at(QStringLiteral("cut")));
    EXPECT_EQ(m_after.content(2), "content");
    EXPECT_EQ(m_after.content(3), "last");
    EXPECT_EQ(m_after.content(4), "con");
}

TEST_F(OpenedPackageTest, WritesADamagedMemberWhoseFileIsGoneFromThePackage)
{
    Member badCrc{"bad", "content"};
    badCrc.crc = 12345;
    open(RawArchive::build({badCrc}));
    ASSERT_TRUE(QFile::remove(inFolder("bad")));
    save(m_other);
    EXPECT_EQ(m_after.content(0), "content");
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

TEST_F(OpenedPackageTest, WritesFoldersThatCannotBeCopiedWithoutTheirData)
{
    Member encrypted{"f/", "secret", RawArchive::kStored, RawArchive::kEncrypted};
    encrypted.date = kSomeDate;
    open(RawArchive::build({encrypted, Member{"g/", "", 12}, Member{"f/a", "x"}}));
    save(m_other);
    EXPECT_EQ(m_after.names(), m_before.names());
    EXPECT_EQ(m_after.directory().members[0].size, 0U);
    EXPECT_EQ(m_after.directory().members[0].dosDate, kSomeDate);
}

TEST_F(OpenedPackageTest, NoticesADirectoryThatEndsInDamage)
{
    openRich();
    EXPECT_TRUE(m_package.isComplete());
    QByteArray bytes = RawArchive::build({Member{"a", "1"}, Member{"b", "2"}, Member{"c", "3"}});
    bytes[bytes.lastIndexOf("PK\1\2")] = 'X';
    open(bytes);
    EXPECT_FALSE(m_package.isComplete());
}

TEST_F(OpenedPackageTest, SavesAFileWhoseNameLooksLikeAResource)
{
    open(RawArchive::build({Member{":logo.png", "pixels"}}));
    ASSERT_TRUE(writeFile(inFolder(":logo.png"), "edited"));
    save(m_other);
    EXPECT_EQ(m_after.content(0), "edited");
}

TEST_F(OpenedPackageTest, ReadsSharedDataOnlyAFewTimes)
{
    // Each member asks for all of the data, but unpacks to one byte.
    const QByteArray shared(1'000'000, 's');
    std::vector<Member> members{Member{"a", shared, RawArchive::kStored}};
    for (int i = 0; i < 3000; ++i) {
        Member member{"m" + QByteArray::number(i), shared, RawArchive::kStored};
        member.listedOnly = true;
        member.offset = 0;
        member.size = 1;
        members.push_back(member);
    }
    const QByteArray bytes = RawArchive::build(members);
    ASSERT_TRUE(writeFile(m_path, bytes));
    QElapsedTimer timer;
    timer.start();
    static_cast<void>(m_package.unpack(m_path, m_folder));
    EXPECT_LT(timer.elapsed(), 20'000) << "3 GB were read";
}

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

TEST_F(OpenedPackageTest, SaysWhyAnArchiveIsRefused)
{
    const auto reason = [this](const QByteArray& bytes) {
        writeFile(m_path, bytes);
        return OpenedPackage().unpack(m_path, m_folder).reason().toStdString();
    };
    Member encrypted{"a", "x"};
    encrypted.flags = RawArchive::kEncrypted;
    QByteArray local = RawArchive::build({Member{"a", "x"}, Member{"<b>&%1", "x"}});
    local[local.lastIndexOf("PK\3\4")] = 'X';
    EXPECT_EQ(reason("no archive"), "The file is not a ZIP archive");
    EXPECT_EQ(reason(RawArchive::build({encrypted})), "The archive is protected by a password");
    EXPECT_EQ(reason(RawArchive::build({Member{"a", "x", 12}})),
              "The member \"a\" is compressed with an unknown method");
    EXPECT_EQ(reason(RawArchive::build({Member{"../a", "x"}})),
              "The name \"../a\" leads out of the package");
    EXPECT_EQ(reason(local), "The member \"<b>&%1\" is damaged");
    EXPECT_EQ(OpenedPackage().unpack(m_other, m_folder).reason().toStdString(),
              "No such file or directory");
    EXPECT_EQ(OpenedPackage().unpack(m_world.path(), m_folder).reason().toStdString(),
              "The file is not a ZIP archive");
}

#ifdef Q_OS_LINUX

namespace {

/// Changes bytes of a file so that its size, its time and its place on the disk stay.
void changeUnnoticed(const QString& path, qsizetype at, const QByteArray& bytes)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    ASSERT_EQ(stat(name.constData(), &status), 0);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(at) && file.write(bytes) == bytes.size());
    file.close();
    const struct timespec times[] = {status.st_atim, status.st_mtim};
    ASSERT_EQ(utimensat(AT_FDCWD, name.constData(), times, 0), 0);
}

} // namespace

TEST_F(OpenedPackageTest, NeverTrustsWhatItCopies)
{
    openRich();
    const qsizetype data = readFile(m_path).indexOf("pppp");
    changeUnnoticed(m_path, data, "damage");
    save(m_other);
    EXPECT_EQ(m_after.content(0), QByteArray(3000, 'p'));
    auto members = m_after.members();
    members[0] = m_before.members()[0];
    EXPECT_EQ(members, m_before.members()) << "all others are copied";
}

TEST_F(OpenedPackageTest, FailsWhenDamageHitsAMemberWithoutAFile)
{
    openRich();
    const qsizetype data = readFile(m_path).indexOf("pppp");
    changeUnnoticed(m_path, data, "damage");
    ASSERT_TRUE(QFile::remove(inFolder("z.png")));
    expectFails(QStringLiteral("The file \"z.png\" is missing, and the package was changed since "
                               "it was opened"));
}

TEST_F(OpenedPackageTest, NoticesALocalHeaderDamagedSince)
{
    openRich();
    changeUnnoticed(m_path, 0, "XX");
    save(m_other);
    EXPECT_EQ(m_after.content(0), QByteArray(3000, 'p'));
}

TEST_F(OpenedPackageTest, TakesNoFileForMissingThatCannotBeLookedAt)
{
    EXPECT_TRUE(runUnprivileged([] {
        const QTemporaryDir world(openFolderTemplate());
        const QString path = world.filePath(QStringLiteral("a.zconf2"));
        const QString folder = world.filePath(QStringLiteral("unpacked"));
        const QString hidden = folder + QStringLiteral("/.h");
        OpenedPackage package;
        const bool prepared = writeFile(path, RawArchive::build({Member{".h/x", "old"}})) &&
                              package.unpack(path, folder) &&
                              writeFile(hidden + QStringLiteral("/x"), "edited") &&
                              QFile::setPermissions(hidden, {});
        const bool saved = static_cast<bool>(package.save(folder, path));
        QFile::setPermissions(hidden, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return prepared && !saved;
    }));
}

TEST_F(OpenedPackageTest, DoesNotWaitForAPipe)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);
    EXPECT_FALSE(m_package.unpack(m_path, m_folder));
    ASSERT_TRUE(QFile::remove(m_path));
    openRich();
    ASSERT_TRUE(QFile::remove(m_path));
    ASSERT_EQ(mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);
    save(m_other);
    ASSERT_TRUE(QFile::remove(inFolder(".hidden")));
    ASSERT_EQ(mkfifo(QFile::encodeName(inFolder(".hidden")).constData(), 0600), 0);
    expectFails(QStringLiteral("\"%1\" is not a file").arg(inFolder(".hidden")));
}

#endif

namespace {

std::string titleOf(const testing::TestParamInfo<AwkwardArchive>& archive)
{
    return archive.param.title;
}

class AwkwardSaveTest : public OpenedPackageTest, public testing::WithParamInterface<AwkwardArchive>
{
};

} // namespace

TEST_P(AwkwardSaveTest, SavesAWholePackageWithTheSameMembers)
{
    ASSERT_TRUE(writeFile(m_path, GetParam().bytes));
    if (!m_package.unpack(m_path, m_folder))
        return; // nothing is saved of an archive that was refused
    m_before = SavedArchive(m_path);
    save(m_other);
    EXPECT_EQ(m_after.names(), m_before.names());
    const QTemporaryDir again(FolderTools::memoryTemplate());
    ASSERT_TRUE(OpenedPackage().unpack(m_other, again.path()));
    EXPECT_EQ(FolderTools::contents(again.path()), GetParam().files);
}

INSTANTIATE_TEST_SUITE_P(All, AwkwardSaveTest, testing::ValuesIn(awkwardArchives()), titleOf);
