#include "document/archive/FolderArchive.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QBuffer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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
    TestPackage::writeFolder(m_folder.path(),
                             {{QStringLiteral(":a"), "1"}, {QStringLiteral("b/.c"), "2"}});
    QFile target(m_folder.filePath(QStringLiteral("archive")));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writeFolderArchive(target, m_folder.path(),
                                   {QStringLiteral(":a"), QStringLiteral("b/.c")}));
    target.close();
    const TestPackage::Members expected{{QStringLiteral(":a"), "1"}, {QStringLiteral("b/.c"), "2"}};
    EXPECT_EQ(TestPackage::readPackage(target.fileName()), expected);
}

TEST_F(FolderArchiveTest, NamesTheFileThatCannotBeRead)
{
    ASSERT_TRUE(TestPackage::writeFile(m_folder.filePath(QStringLiteral("a")), "1"));
    const QString missing = m_folder.filePath(QStringLiteral("missing"));
    EXPECT_EQ(reasonFor({QStringLiteral("a"), QStringLiteral("missing")}),
              QStringLiteral("\"%1\" cannot be read: No such file or directory").arg(missing));
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
