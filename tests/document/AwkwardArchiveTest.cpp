// Archives made to break readers, each with the answer it must get.

#include "document/DashboardPackage.h"
#include "tests/support/AwkwardArchives.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

std::string titleOf(const testing::TestParamInfo<AwkwardArchive>& archive)
{
    return archive.param.title;
}

class AwkwardArchiveTest : public testing::TestWithParam<AwkwardArchive>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("out")));
        ASSERT_TRUE(TestPackage::writeFile(m_archive, GetParam().bytes));
    }

    QTemporaryDir m_folder;
    QString m_out = m_folder.filePath(QStringLiteral("out"));
    QString m_archive = m_folder.filePath(QStringLiteral("a.zconf2"));
};

} // namespace

TEST_P(AwkwardArchiveTest, GetsItsAnswer)
{
    ASSERT_EQ(DashboardPackage::unpackArchive(m_archive, m_out), GetParam().accepted);
    if (GetParam().accepted) {
        EXPECT_EQ(FolderTools::contents(m_out), GetParam().files);
    }
}

TEST_P(AwkwardArchiveTest, WritesNothingOutsideAndNoSymbolicLinks)
{
    static_cast<void>(DashboardPackage::unpackArchive(m_archive, m_out));
    EXPECT_EQ(FolderTools::names(m_folder.path()),
              (QStringList{QStringLiteral("a.zconf2"), QStringLiteral("out")}));
    EXPECT_FALSE(FolderTools::holdsSymbolicLink(m_out));
    EXPECT_EQ(TestPackage::readFile(m_archive), GetParam().bytes);
}

TEST_P(AwkwardArchiveTest, SavesWhatWasUnpacked)
{
    if (!DashboardPackage::unpackArchive(m_archive, m_out))
        return; // nothing is saved of an archive that was refused
    const QString saved = m_folder.filePath(QStringLiteral("saved.zconf2"));
    ASSERT_TRUE(DashboardPackage::packDirectory(m_out, saved));
    const QTemporaryDir again;
    ASSERT_TRUE(DashboardPackage::unpackArchive(saved, again.path()));
    EXPECT_EQ(FolderTools::contents(again.path()),
              FolderTools::visible(FolderTools::contents(m_out)));
}

INSTANTIATE_TEST_SUITE_P(All, AwkwardArchiveTest, testing::ValuesIn(awkwardArchives()), titleOf);
