#include "document/archive/AtomicFile.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/Unprivileged.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include "tests/support/FileSizeLimit.h"

#include <sys/stat.h>
#include <unistd.h>
#endif
#ifdef Q_OS_WIN
#include "tests/support/HeldFile.h"
#endif

using TestPackage::readFile;
using TestPackage::writeFile;

namespace {

const QString kGivesUp = QStringLiteral("the writer gives up");

Outcome outcomeOf(bool written)
{
    return written ? Outcome() : Outcome::failure(kGivesUp);
}

ContentWriter content(const QByteArray& bytes)
{
    return [bytes](QIODevice& device) { return outcomeOf(device.write(bytes) == bytes.size()); };
}

class AtomicFileTest : public testing::Test
{
protected:
    QTemporaryDir m_folder{openFolderTemplate()};
    QString m_path = m_folder.filePath(QStringLiteral("file"));

    [[nodiscard]] QStringList names() const { return FolderTools::names(m_folder.path()); }
};

} // namespace

TEST_F(AtomicFileTest, MakesANewFile)
{
    EXPECT_TRUE(replaceFile(m_path, content("new")));
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
}

TEST_F(AtomicFileTest, ReplacesALongerFileCompletely)
{
    writeFile(m_path, "old and longer");
    EXPECT_TRUE(replaceFile(m_path, content("new")));
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
}

TEST_F(AtomicFileTest, ReplacesWithoutWaitingForTheDisk)
{
    writeFile(m_path, "old and longer");
    EXPECT_TRUE(replaceFileUnflushed(m_path, content("new")));
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_FALSE(replaceFileUnflushed(m_path, [this](QIODevice& device) {
        device.write("half");
        return outcomeOf(readFile(m_path) != "new");
    }));
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_TRUE(replaceFileUnflushed(m_folder.filePath(QStringLiteral("other")), content("x")));
    EXPECT_EQ(names(), (QStringList{QStringLiteral("file"), QStringLiteral("other")}));
}

TEST_F(AtomicFileTest, KeepsTheOldFileUntilTheNewOneIsComplete)
{
    writeFile(m_path, "old");
    EXPECT_TRUE(replaceFile(m_path, [this](QIODevice& device) {
        device.write(QByteArray(1000000, 'n'));
        return outcomeOf(readFile(m_path) == "old");
    }));
}

TEST_F(AtomicFileTest, LetsTheWriterGoBack)
{
    EXPECT_TRUE(replaceFile(m_path, [](QIODevice& device) {
        return outcomeOf(device.write("0123456789") == 10 && device.seek(2) &&
                         device.write("xy") == 2 && device.seek(10) && device.write("!") == 1);
    }));
    EXPECT_EQ(readFile(m_path), "01xy456789!");
}

TEST_F(AtomicFileTest, KeepsTheOldFileWhenTheWriterGivesUp)
{
    writeFile(m_path, "old");
    EXPECT_FALSE(replaceFile(m_path, [](QIODevice& device) {
        device.write("half");
        return outcomeOf(false);
    }));
    EXPECT_EQ(readFile(m_path), "old");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
}

TEST_F(AtomicFileTest, SaysWhyItFailed)
{
    writeFile(m_path, "old");
    EXPECT_EQ(replaceFile(m_path, content("new")).reason(), QString());
    const auto giveUp = [](QIODevice&) { return outcomeOf(false); };
    EXPECT_EQ(replaceFile(m_path, giveUp).reason(), kGivesUp);
    EXPECT_EQ(replaceFile(m_folder.path(), content("new")).reason(),
              QStringLiteral("The destination is not an ordinary file"));
#ifdef Q_OS_WIN
    const QString expected = qt_error_string(ERROR_PATH_NOT_FOUND);
#else
    const QString expected = QStringLiteral("Not a directory");
#endif
    EXPECT_EQ(replaceFile(m_path + QStringLiteral("/missing"), content("new")).reason(), expected);
}

TEST_F(AtomicFileTest, MakesNoFileWhenTheWriterGivesUp)
{
    EXPECT_FALSE(replaceFile(m_path, [](QIODevice&) { return outcomeOf(false); }));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(AtomicFileTest, TakesAnyNameAndAnEmptyContent)
{
    const QString path =
        m_folder.filePath(QString::fromUtf8("\xC3\x9C \xE8\xB5\x9B\xE9\x81\x93 %1.x"));
    EXPECT_TRUE(replaceFile(path, content({})));
    EXPECT_TRUE(QFileInfo::exists(path));
    EXPECT_EQ(readFile(path), "");
}

TEST_F(AtomicFileTest, RefusesAFolder)
{
    const QString inside = m_path + QStringLiteral("/inside");
    writeFile(inside, "kept");
    EXPECT_FALSE(replaceFile(m_path, content("new")));
    EXPECT_FALSE(replaceFile(m_path + u'/', content("new")));
    EXPECT_EQ(readFile(inside), "kept");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
}

TEST_F(AtomicFileTest, RefusesAPathWithoutItsFolder)
{
    EXPECT_FALSE(replaceFile(m_path + QStringLiteral("/missing"), content("new")));
    EXPECT_FALSE(replaceFile({}, content("new")));
    EXPECT_EQ(names(), QStringList());
}

#ifdef Q_OS_UNIX

namespace {

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

void setMode(const QString& path, mode_t mode)
{
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
}

/// Opens a folder to processes of any user.
void letEverybodyIn(const QString& folder, mode_t mode)
{
    setMode(folder, mode);
    const bool root = geteuid() == 0;
    ASSERT_TRUE(!root || chown(QFile::encodeName(folder).constData(), 65534, 65534) == 0);
}

} // namespace

TEST_F(AtomicFileTest, KeepsThePermissions)
{
    for (const mode_t mode : {0600U, 0640U, 0604U, 0755U, 0666U, 0777U}) {
        writeFile(m_path, "old");
        setMode(m_path, mode);
        EXPECT_TRUE(replaceFile(m_path, content("new")));
        EXPECT_EQ(modeOf(m_path), mode);
    }
}

TEST_F(AtomicFileTest, GivesNewFilesTheUsualPermissions)
{
    const mode_t mask = umask(027);
    EXPECT_TRUE(replaceFile(m_path, content("new")));
    umask(mask);
    EXPECT_EQ(modeOf(m_path), 0640U);
}

TEST_F(AtomicFileTest, WritesThroughSymbolicLinks)
{
    const QString elsewhere = m_folder.filePath(QStringLiteral("elsewhere/target"));
    writeFile(elsewhere, "old");
    ASSERT_TRUE(QFile::link(QStringLiteral("elsewhere/target"), m_path));
    const QString second = m_folder.filePath(QStringLiteral("second"));
    ASSERT_TRUE(QFile::link(QStringLiteral("file"), second));

    EXPECT_TRUE(replaceFile(second, content("new")));
    EXPECT_EQ(readFile(elsewhere), "new");
    EXPECT_TRUE(QFileInfo(elsewhere).isFile() && !QFileInfo(elsewhere).isSymLink());
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_TRUE(QFileInfo(second).isSymLink());
    EXPECT_EQ(names().size(), 3);
}

TEST_F(AtomicFileTest, MakesTheTargetOfADanglingLink)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("target"), m_path));
    EXPECT_TRUE(replaceFile(m_path, content("new")));
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(readFile(m_folder.filePath(QStringLiteral("target"))), "new");
}

TEST_F(AtomicFileTest, KeepsALinkIntoAMissingFolder)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("missing/target"), m_path));
    EXPECT_FALSE(replaceFile(m_path, content("new")));
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
}

TEST_F(AtomicFileTest, LeavesTheOtherNameOfAHardLinkAsItWas)
{
    const QString other = m_folder.filePath(QStringLiteral("other"));
    writeFile(other, "old");
    ASSERT_EQ(link(QFile::encodeName(other).constData(), QFile::encodeName(m_path).constData()), 0);
    EXPECT_TRUE(replaceFile(m_path, content("new")));
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_EQ(readFile(other), "old");
}

TEST_F(AtomicFileTest, PutsNoFileInThePlaceOfAPipe)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);
    EXPECT_FALSE(replaceFile(m_path, content("new")));
    struct stat status = {};
    ASSERT_EQ(lstat(QFile::encodeName(m_path).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_F(AtomicFileTest, RefusesAFileThatMayNotBeWritten)
{
    writeFile(m_path, "old");
    setMode(m_path, 0444);
    letEverybodyIn(m_folder.path(), 0755);
    const auto replace = [this] { return bool(replaceFile(m_path, content("new"))); };
    EXPECT_FALSE(runUnprivileged(replace));
    EXPECT_EQ(readFile(m_path), "old");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
    setMode(m_path, 0666);
    EXPECT_TRUE(runUnprivileged(replace));
}

TEST_F(AtomicFileTest, WritesInPlaceWhereTheFolderTakesNoNewFile)
{
    for (const QByteArray& bytes : {QByteArray("n"), QByteArray(300000, 'n'), QByteArray()}) {
        writeFile(m_path, "old and longer");
        setMode(m_path, 0666);
        letEverybodyIn(m_folder.path(), 0555);
        EXPECT_TRUE(runUnprivileged([&] { return bool(replaceFile(m_path, content(bytes))); }));
        EXPECT_EQ(readFile(m_path), bytes);
        EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
    }
}

TEST_F(AtomicFileTest, WritesInPlaceWhereOnlyTheOwnerMayReplaceAFile)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root has files that are somebody else's";
    writeFile(m_path, "old and longer");
    setMode(m_path, 0666);
    setMode(m_folder.path(), 01777); // everybody makes files, nobody renames over those of others
    EXPECT_TRUE(runUnprivileged([&] { return bool(replaceFile(m_path, content("new"))); }));
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
    EXPECT_FALSE(runUnprivileged([&] {
        const FileSizeLimit limit(7000);
        return bool(replaceFile(m_path, content(QByteArray(9000, 'n'))));
    }));
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
}

TEST_F(AtomicFileTest, KeepsTheOldFileInPlaceWhenTheWriterGivesUp)
{
    writeFile(m_path, "old");
    setMode(m_path, 0666);
    letEverybodyIn(m_folder.path(), 0555);
    EXPECT_FALSE(runUnprivileged([&] {
        return bool(replaceFile(m_path, [](QIODevice& device) {
            device.write("half");
            return outcomeOf(false);
        }));
    }));
    EXPECT_EQ(readFile(m_path), "old");
}

TEST_F(AtomicFileTest, PutsTheOldFileBackWhenWritingInPlaceFails)
{
    const QByteArray old(5000, 'o');
    writeFile(m_path, old);
    setMode(m_path, 0666);
    letEverybodyIn(m_folder.path(), 0555);
    EXPECT_FALSE(runUnprivileged([&] {
        const FileSizeLimit limit(7000);
        return bool(replaceFile(m_path, content(QByteArray(9000, 'n'))));
    }));
    EXPECT_EQ(readFile(m_path), old);
}

TEST_F(AtomicFileTest, MakesNoFileInAFolderThatTakesNone)
{
    letEverybodyIn(m_folder.path(), 0555);
    EXPECT_FALSE(runUnprivileged([&] { return bool(replaceFile(m_path, content("new"))); }));
    EXPECT_EQ(names(), QStringList());
}

#endif

TEST_F(AtomicFileTest, ReplacesFilesWhoseNamesLeaveNoRoomForASiblings)
{
    for (const int length : {247, 248, 249, 255}) {
        const QString path = m_folder.filePath(QString(length, u'n'));
#ifdef Q_OS_WIN // no file can be made without a name of its own first
        writeFile(path, "old");
#else
        EXPECT_TRUE(replaceFile(path, content("old"))) << length;
#endif
        EXPECT_TRUE(replaceFile(path, content("new"))) << length;
        EXPECT_EQ(readFile(path), "new") << length;
    }
    EXPECT_EQ(names().size(), 4);
}

#ifdef Q_OS_WIN

TEST_F(AtomicFileTest, KeepsAFileThatAnotherProgramHoldsOpen)
{
    writeFile(m_path, "old");
    for (const DWORD shared : {DWORD{0}, DWORD{FILE_SHARE_READ}}) {
        QString reason;
        {
            const HeldFile held(m_path, shared);
            reason = replaceFile(m_path, content("new")).reason();
        }
        EXPECT_FALSE(reason.isEmpty()) << shared;
        EXPECT_EQ(readFile(m_path), "old") << shared;
        EXPECT_EQ(names(), QStringList(QStringLiteral("file"))) << shared;
    }
}

TEST_F(AtomicFileTest, ReplacesAFileThatAnotherProgramHoldsOpenAndShares)
{
    writeFile(m_path, "old");
    {
        const HeldFile held(m_path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
        EXPECT_TRUE(replaceFile(m_path, content("new")));
    }
    EXPECT_EQ(readFile(m_path), "new");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
}

TEST_F(AtomicFileTest, LeavesNoSiblingOfAReadOnlyFile)
{
    writeFile(m_path, "old");
    for (const auto replace : {replaceFile, replaceFileUnflushed}) {
        ASSERT_TRUE(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::ReadUser));
        static_cast<void>(replace(m_path, content("new"))); // an administrator may write it
        EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
    }
    QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner);
}

TEST_F(AtomicFileTest, KeepsAReadOnlyFile)
{
    writeFile(m_path, "old");
    ASSERT_TRUE(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::ReadUser));
    if (QFile(m_path).open(QIODevice::ReadWrite))
        GTEST_SKIP() << "the administrator of the system below Wine may write any file";
    EXPECT_FALSE(replaceFile(m_path, content("new")).reason().isEmpty());
    EXPECT_EQ(readFile(m_path), "old");
    EXPECT_EQ(names(), QStringList(QStringLiteral("file")));
    QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner);
}

#endif
