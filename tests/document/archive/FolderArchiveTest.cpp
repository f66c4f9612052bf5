#include "document/archive/FolderArchive.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QBuffer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

class FolderArchiveTest : public testing::Test
{
protected:
    [[nodiscard]] QString reasonFor(const QStringList& paths)
    {
        QBuffer target;
        target.open(QIODevice::WriteOnly);
        return writeFolderArchive(target, m_folder.path(), paths).reason();
    }

    QTemporaryDir m_folder{FolderTools::memoryTemplate()};
};

} // namespace

TEST_F(FolderArchiveTest, NamesMembersByTheirPaths)
{
#ifdef Q_OS_WIN // no file has a colon in its name
    const QString first = QStringLiteral("a");
#else
    const QString first = QStringLiteral(":a");
#endif
    const TestPackage::Members files{{first, "1"}, {QStringLiteral("b/.c"), "2"}};
    TestPackage::writeFolder(m_folder.path(), files);
    QFile target(m_folder.filePath(QStringLiteral("archive")));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writeFolderArchive(target, m_folder.path(), {first, QStringLiteral("b/.c")}));
    target.close();
    EXPECT_EQ(TestPackage::readPackage(target.fileName()), files);
}

TEST_F(FolderArchiveTest, NamesTheFileThatCannotBeRead)
{
    ASSERT_TRUE(TestPackage::writeFile(m_folder.filePath(QStringLiteral("a")), "1"));
    const QString missing = m_folder.filePath(QStringLiteral("missing"));
    EXPECT_EQ(reasonFor({QStringLiteral("a"), QStringLiteral("missing")}),
              QStringLiteral("\"%1\" cannot be read: %2").arg(missing, qt_error_string(ENOENT)));
}

#ifdef Q_OS_UNIX

TEST_F(FolderArchiveTest, DoesNotWaitForAPipe)
{
    const QString pipe = m_folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(reasonFor({QStringLiteral("pipe")}),
              QStringLiteral("\"%1\" is not a file").arg(pipe));
}

#endif
