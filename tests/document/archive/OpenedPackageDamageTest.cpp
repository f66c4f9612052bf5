// What a save makes of damaged packages, of packages made to do harm, and of files that are in the
// way.

#include "document/archive/Checksum.h"
#include "tests/document/archive/OpenedPackageFixture.h"
#include "tests/support/AwkwardArchives.h"

#include <QElapsedTimer>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

#ifdef Q_OS_LINUX
#include "tests/support/Unprivileged.h"

#include <fcntl.h>
#include <sys/stat.h>
#endif

using RawArchive::Member;
using TestPackage::readFile;
using TestPackage::writeFile;

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

TEST_F(OpenedPackageTest, WritesAnewWhatDoesNotEndWithItsContent)
{
    const QByteArray stream = RawArchive::deflated("content");
    Member longer{"longer", "content"};
    longer.size = 3;
    longer.crc = extendedCrc(0, "con", 3);
    Member storedLonger = longer;
    storedLonger.name = "stored";
    storedLonger.method = RawArchive::kStored;
    Member followed{"followed", "content"};
    followed.data = stream + "junk";
    Member unfinished{"unfinished", "content"};
    unfinished.data = stream;
    unfinished.data->front() = static_cast<char>(stream.front() & ~1); // not the last block
    Member nothing{"nothing", ""};
    nothing.data = "";
    const Member exact{"exact", "content"};
    open(RawArchive::build({longer, storedLonger, followed, unfinished, nothing, exact}));
    save(m_other);
    const QByteArrayList contents{"con", "con", "content", "content", "", "content"};
    for (qsizetype i = 0; i < contents.size(); ++i) {
        const auto index = static_cast<std::size_t>(i);
        const ArchiveMember& member = m_after.directory().members.at(index);
        EXPECT_EQ(m_after.content(index), contents[i]);
        EXPECT_EQ(member.packedSize, quint64(RawArchive::deflated(contents[i]).size()))
            << member.rawName.toStdString();
    }
    EXPECT_EQ(m_after.members().back(), m_before.members().back());
}

TEST_F(OpenedPackageTest, DropsExtraFieldsThatDoNotParse)
{
    const QByteArray field("xx\1\0y", 5);
    Member tooLong{"long", "content"};
    tooLong.otherField = field + "tooLong";
    Member tooShort{"short", "content"};
    tooShort.otherField = field + "\1\2\3";
    Member padded{"padded", "content"};
    padded.otherField = field + QByteArray(3, '\0');
    Member empty{"empty", "content"};
    empty.otherField = QByteArray("zz\0\0", 4);
    open(RawArchive::build({tooLong, tooShort, padded, empty}));
    save(m_other);
    EXPECT_EQ(m_after.members(), m_before.members());
    const QByteArray bytes = readFile(m_other);
    EXPECT_FALSE(bytes.contains("tooLong"));
    EXPECT_FALSE(bytes.contains("\1\2\3"));
    EXPECT_EQ(bytes.count(field), 6);
    EXPECT_EQ(bytes.count(padded.otherField), 2);
    EXPECT_EQ(bytes.count(empty.otherField), 2) << "a header alone is a field";
}

TEST_F(OpenedPackageTest, WritesAFileWithTheAttributeOfAFolderAsAFile)
{
    Member unreadable{"a", "content", RawArchive::kDeflate};
    unreadable.attributes = RawArchive::kDosFolder; // counts for members without content only
    unreadable.data = "\xFF";
    open(RawArchive::build({unreadable}));
    ASSERT_EQ(readFile(inFolder("a")), "");
    save(m_other);
    EXPECT_FALSE(m_after.directory().members[0].isFolder());
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

TEST_F(OpenedPackageTest, SaysWhyAnArchiveIsRefused)
{
    const auto reason = [this](const QByteArray& bytes) {
        writeFile(m_path, bytes);
        return OpenedPackage().unpack(m_path, m_folder).reason().toStdString();
    };
#ifdef Q_OS_WIN // where no name holds angle brackets, and reasons are in the user's language
    const QByteArray name = "b&%1";
    const std::string missing = qt_error_string(ERROR_FILE_NOT_FOUND).toStdString();
#else
    const QByteArray name = "<b>&%1";
    const std::string missing = "No such file or directory";
#endif
    Member encrypted{"a", "x"};
    encrypted.flags = RawArchive::kEncrypted;
    QByteArray local = RawArchive::build({Member{"a", "x"}, Member{name, "x"}});
    local[local.lastIndexOf("PK\3\4")] = 'X';
    EXPECT_EQ(reason("no archive"), "The file is not a ZIP archive");
    EXPECT_EQ(reason(RawArchive::build({encrypted})), "The archive is protected by a password");
    EXPECT_EQ(reason(RawArchive::build({Member{"a", "x", 12}})),
              "The member \"a\" is compressed with an unknown method");
    EXPECT_EQ(reason(RawArchive::build({Member{"../a", "x"}})),
              "The name \"../a\" leads out of the package");
    EXPECT_EQ(reason(local), "The member \"" + name.toStdString() + "\" is damaged");
    EXPECT_EQ(OpenedPackage().unpack(m_other, m_folder).reason().toStdString(), missing);
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

TEST_F(OpenedPackageTest, DoesNotTrustWhatItCouldNotReadRightAfterASave)
{
    EXPECT_TRUE(runUnprivileged([] {
        const QTemporaryDir world(openFolderTemplate());
        const QString path = world.filePath(QStringLiteral("a.zconf2"));
        const QString folder = world.filePath(QStringLiteral("unpacked"));
        OpenedPackage package;
        bool right = writeFile(path, RawArchive::build({Member{"x", "old"}})) &&
                     package.unpack(path, folder) &&
                     writeFile(folder + QStringLiteral("/x"), "edited") &&
                     QFile::setPermissions(path, QFile::WriteOwner) && package.save(folder, path) &&
                     QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        QByteArray damaged = readFile(path);
        const qsizetype data = damaged.indexOf(RawArchive::deflated("edited"));
        right = right && data > 0;
        damaged[data + 2] = static_cast<char>(~damaged[data + 2]);
        right = right && writeFile(path, damaged) && package.save(folder, path);
        return right && SavedArchive(path).isWhole() && SavedArchive(path).content(0) == "edited";
    }));
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

TEST_F(OpenedPackageTest, FailsWhileTheFolderOrAFileCannotBeRead)
{
    EXPECT_TRUE(runUnprivileged([] {
        const auto all = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
        const QTemporaryDir world(openFolderTemplate());
        const QString path = world.filePath(QStringLiteral("a.zconf2"));
        const QString folder = world.filePath(QStringLiteral("unpacked"));
        const QByteArray bytes = RawArchive::build({Member{"x", "old"}});
        OpenedPackage package;
        bool right = writeFile(path, bytes) && package.unpack(path, folder);
        for (const QString& closed : {folder, QString(folder + QStringLiteral("/x"))}) {
            right = right && QFile::setPermissions(closed, {}) && !package.save(folder, path) &&
                    QFile::setPermissions(closed, all) && readFile(path) == bytes;
        }
        return right && package.save(folder, path);
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
