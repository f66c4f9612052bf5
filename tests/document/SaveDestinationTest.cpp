// Saving onto everything that can stand at a destination.

#include "tests/document/OpenPackageFixture.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/mount.h>
#endif

using TestPackage::readFile;
using TestPackage::writeFile;

namespace {

class SaveDestinationTest : public OpenPackageFixture
{
protected:
    /// Where a test puts what it saves onto.
    QString m_destination = m_folder + QStringLiteral("/other.zconf2");

    void expectRefusedAndEditable(const QString& destination)
    {
        EXPECT_FALSE(m_document->save(destination));
        expectNothingLost(false);
    }
};

} // namespace

TEST_F(SaveDestinationTest, ThePackageThatIsOpen)
{
    const bool saved = m_document->save(m_package);
    EXPECT_TRUE(saved);
    expectNothingLost(saved);
}

TEST_F(SaveDestinationTest, ThePackageThatIsOpenThoughItWasDeleted)
{
    ASSERT_TRUE(QFile::remove(m_package));
    const bool saved = m_document->save(m_package);
    EXPECT_TRUE(saved);
    expectNothingLost(saved);
}

TEST_F(SaveDestinationTest, ANewFileLeavesTheOpenPackageAlone)
{
    const QString path = m_folder + QString::fromUtf8("/\xE8\xB5\x9B \xC3\xA9.zconf2");
    EXPECT_TRUE(m_document->save(path));
    EXPECT_TRUE(isComplete(path, kMoved));
    EXPECT_EQ(readFile(m_package), m_old);
}

TEST_F(SaveDestinationTest, AnotherPackage)
{
    ASSERT_TRUE(writePackage(m_destination, "Other"));
    EXPECT_TRUE(m_document->save(m_destination));
    EXPECT_TRUE(isComplete(m_destination, kMoved));
}

TEST_F(SaveDestinationTest, ThePackageThatAnotherEditorHasOpen)
{
    DashboardDocument other;
    ASSERT_TRUE(other.open(m_package));
    other.pageAt(0)->elements.at(0).x = 5;
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(other.save(m_package));
        EXPECT_TRUE(isComplete(m_package, 5));
        EXPECT_TRUE(m_document->save(m_package));
        EXPECT_TRUE(isComplete(m_package, kMoved));
    }
    FolderTools::remove(other.tempDir());
}

TEST_F(SaveDestinationTest, AnotherPackageThatAnotherEditorHasOpen)
{
    ASSERT_TRUE(writePackage(m_destination, "Other"));
    DashboardDocument other;
    ASSERT_TRUE(other.open(m_destination));
    const auto files = FolderTools::contents(other.tempDir());
    EXPECT_TRUE(m_document->save(m_destination));
    EXPECT_TRUE(isComplete(m_destination, kMoved));
    EXPECT_TRUE(other.save(m_destination)) << "from its own files";
    EXPECT_TRUE(isComplete(m_destination, kUnmoved));
    EXPECT_TRUE(m_document->save(m_package));
    EXPECT_TRUE(isComplete(m_package, kMoved));
    EXPECT_EQ(FolderTools::contents(other.tempDir()).size(), files.size());
    FolderTools::remove(other.tempDir());
}

TEST_F(SaveDestinationTest, APackageThatAnotherEditorSavedReplacesNoMissingFile)
{
    DashboardDocument other;
    ASSERT_TRUE(other.open(m_package));
    ASSERT_TRUE(writeFile(other.tempDir() + QStringLiteral("/images/0.png"), "another image"));
    ASSERT_TRUE(other.save(m_package));
    const QByteArray saved = readFile(m_package);
    const QString image = m_document->tempDir() + QStringLiteral("/images/0.png");
    const QByteArray pixels = readFile(image);
    ASSERT_TRUE(QFile::remove(image));
    EXPECT_FALSE(m_document->save(m_package));
    EXPECT_EQ(m_document->errorString(),
              QStringLiteral("The file \"images/0.png\" is missing, and the package was changed "
                             "since it was opened"));
    EXPECT_EQ(readFile(m_package), saved);
    ASSERT_TRUE(writeFile(image, pixels));
    EXPECT_TRUE(m_document->save(m_package));
    EXPECT_TRUE(isComplete(m_package, kMoved));
    FolderTools::remove(other.tempDir());
}

TEST_F(SaveDestinationTest, AFolderIsRefusedAndKept)
{
    const QString folder = m_world.filePath(QStringLiteral("folder"));
    ASSERT_TRUE(writeFile(folder + QStringLiteral("/inside"), "kept"));
    expectRefusedAndEditable(folder);
    EXPECT_EQ(FolderTools::contents(folder).size(), 1U);
}

TEST_F(SaveDestinationTest, AMissingFolderIsRefusedAndNotMade)
{
    const QString missing = m_world.filePath(QStringLiteral("missing"));
    expectRefusedAndEditable(missing + QStringLiteral("/a.zconf2"));
    EXPECT_FALSE(QFileInfo::exists(missing));
}

TEST_F(SaveDestinationTest, AnEmptyPathIsRefused)
{
    expectRefusedAndEditable({});
}

#ifdef Q_OS_UNIX

TEST_F(SaveDestinationTest, ASymbolicLinkStaysAndItsTargetIsReplaced)
{
    const QString target = m_world.filePath(QStringLiteral("target"));
    ASSERT_TRUE(writeFile(target, "old"));
    ASSERT_TRUE(QFile::link(target, m_destination));
    EXPECT_TRUE(m_document->save(m_destination));
    EXPECT_TRUE(QFileInfo(m_destination).isSymLink());
    EXPECT_TRUE(isComplete(target, kMoved));
}

TEST_F(SaveDestinationTest, ADanglingLinkGetsItsTarget)
{
    const QString target = m_world.filePath(QStringLiteral("target"));
    ASSERT_TRUE(QFile::link(target, m_destination));
    EXPECT_TRUE(m_document->save(m_destination));
    EXPECT_TRUE(QFileInfo(m_destination).isSymLink());
    EXPECT_TRUE(isComplete(target, kMoved));
}

TEST_F(SaveDestinationTest, AHardLinkLeavesTheOtherNameAsItWas)
{
    ASSERT_EQ(link(QFile::encodeName(m_package).constData(),
                   QFile::encodeName(m_destination).constData()),
              0);
    EXPECT_TRUE(m_document->save(m_destination));
    EXPECT_TRUE(isComplete(m_destination, kMoved));
    EXPECT_EQ(readFile(m_package), m_old);
}

TEST_F(SaveDestinationTest, PermissionsStay)
{
    const QByteArray path = QFile::encodeName(m_package);
    for (const mode_t mode : {0600U, 0640U, 0606U, 0755U}) {
        ASSERT_EQ(chmod(path.constData(), mode), 0);
        EXPECT_TRUE(m_document->save(m_package));
        struct stat status = {};
        ASSERT_EQ(stat(path.constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, mode);
    }
}

TEST_F(SaveDestinationTest, APipeIsRefusedAndKept)
{
    const QString pipe = m_world.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    expectRefusedAndEditable(pipe);
    struct stat status = {};
    ASSERT_EQ(lstat(QFile::encodeName(pipe).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

#endif

#ifdef Q_OS_LINUX

TEST_F(SaveDestinationTest, AMountedFileIsWrittenInPlace)
{
    const QString elsewhere = m_world.filePath(QStringLiteral("elsewhere"));
    ASSERT_TRUE(writeFile(elsewhere, "old"));
    ASSERT_TRUE(writeFile(m_destination, "below"));
    const QByteArray destination = QFile::encodeName(m_destination);
    if (mount(QFile::encodeName(elsewhere).constData(), destination.constData(), nullptr, MS_BIND,
              nullptr) != 0)
        GTEST_SKIP() << "mounting is not allowed here";
    const bool saved = m_document->save(m_destination);
    const QByteArray packed = readFile(m_destination);
    ASSERT_EQ(umount(destination.constData()), 0);
    EXPECT_TRUE(saved);
    EXPECT_EQ(readFile(elsewhere), packed);
    EXPECT_EQ(readFile(m_destination), "below");
    EXPECT_TRUE(isComplete(elsewhere, kMoved));
    EXPECT_EQ(FolderTools::names(m_folder).size(), 2) << "litter";
}

#endif
