// Which files below a folder a save takes: those that the toolkit's own walk finds, in its order.

#include "document/archive/FolderListing.h"

#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

QStringList walked(const QString& folder, QDir::Filters filters = QDir::Files)
{
    QStringList paths;
    QDirIterator files(folder, filters, QDirIterator::Subdirectories);
    while (files.hasNext())
        paths.append(files.next());
    return paths;
}

class FolderListingTest : public testing::Test
{
protected:
    FolderListingTest()
    {
        for (const char* const name : {"a", "b c", "d/e/f", "d/g", "h/.i", ".j/k", "l"})
            TestPackage::writeFile(path(name), name);
        QDir(m_folder.path()).mkpath(QStringLiteral("empty/deep"));
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(FolderListingTest, IsTheWalkOfTheToolkit)
{
    EXPECT_EQ(filesBelow(m_folder.path()), walked(m_folder.path()));
    EXPECT_EQ(filesBelow(path("empty")), QStringList());
    EXPECT_TRUE(filesBelow(m_folder.path())->contains(path("d/e/f")));
}

TEST_F(FolderListingTest, HasHiddenFilesWhereTheCallerWantsThem)
{
    const std::optional<QStringList> files = filesBelow(m_folder.path(), HiddenFiles::Listed);
    EXPECT_EQ(files, walked(m_folder.path(), QDir::Files | QDir::Hidden));
    EXPECT_TRUE(files->contains(path("h/.i")) && files->contains(path(".j/k")));
}

TEST_F(FolderListingTest, BeginsEveryPathWithTheFolderAsItIsGiven)
{
    const QString workingFolder = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    for (const char* const given : {"d", "./d", "d/", ".", "d/../d"}) {
        const QString folder = QString::fromLatin1(given);
        EXPECT_EQ(filesBelow(folder), walked(folder)) << given;
    }
    QDir::setCurrent(workingFolder);
}

TEST_F(FolderListingTest, NeedsAFolder)
{
    EXPECT_FALSE(filesBelow(path("missing")));
    EXPECT_FALSE(filesBelow(path("a")));
    EXPECT_FALSE(filesBelow(QString()));
}

#ifdef Q_OS_UNIX

TEST_F(FolderListingTest, FollowsLinksToFilesOnly)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("a"), path("to a file")));
    ASSERT_TRUE(QFile::link(QStringLiteral("to a file"), path("to a link")));
    ASSERT_TRUE(QFile::link(QStringLiteral("d"), path("to a folder")));
    ASSERT_TRUE(QFile::link(QStringLiteral(".."), path("d/to the top")));
    ASSERT_TRUE(QFile::link(QStringLiteral("nothing"), path("to nothing")));
    ASSERT_TRUE(QFile::link(QStringLiteral("a/b"), path("through a file")));
    ASSERT_TRUE(QFile::link(QStringLiteral("to itself"), path("to itself")));
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const QStringList expected = walked(m_folder.path());
    EXPECT_EQ(filesBelow(m_folder.path()), expected);
    EXPECT_TRUE(expected.contains(path("to a link")));
    EXPECT_EQ(filesBelow(path("to a folder")), walked(path("to a folder"))) << "the folder itself";
}

#endif
