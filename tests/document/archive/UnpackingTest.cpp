// Archives made to break readers, each with the answer it must get.

#include "document/DashboardPackage.h"
#include "tests/support/AwkwardArchives.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RawArchive.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

std::string titleOf(const testing::TestParamInfo<AwkwardArchive>& archive)
{
    return archive.param.title;
}

class UnpackingTest : public testing::TestWithParam<AwkwardArchive>
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

TEST_P(UnpackingTest, GetsItsAnswer)
{
    ASSERT_EQ(DashboardPackage::unpackArchive(m_archive, m_out), GetParam().accepted);
    if (GetParam().accepted) {
        EXPECT_EQ(FolderTools::contents(m_out), GetParam().files);
    }
}

TEST_P(UnpackingTest, WritesNothingOutsideAndNoSymbolicLinks)
{
    static_cast<void>(DashboardPackage::unpackArchive(m_archive, m_out));
    EXPECT_EQ(FolderTools::names(m_folder.path()),
              (QStringList{QStringLiteral("a.zconf2"), QStringLiteral("out")}));
    EXPECT_FALSE(FolderTools::holdsSymbolicLink(m_out));
    EXPECT_EQ(TestPackage::readFile(m_archive), GetParam().bytes);
}

TEST_P(UnpackingTest, SavesWhatWasUnpacked)
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

TEST(Unpacking, AMemberOfWideSizesEndsWithTheArchive)
{
    constexpr int kDeclared = 200'000;
    const QByteArray content(20'000, 'x');
    RawArchive::Member member{"a", content, RawArchive::kStored};
    member.size = kDeclared;
    member.wideSizes = true;
    const QTemporaryDir folder;
    const QString archive = folder.filePath(QStringLiteral("a.zconf2"));
    ASSERT_TRUE(TestPackage::writeFile(archive, RawArchive::build({member})));
    ASSERT_TRUE(DashboardPackage::unpackArchive(archive, folder.path()));
    const QByteArray unpacked = TestPackage::readFile(folder.filePath(QStringLiteral("a")));
    EXPECT_TRUE(unpacked.startsWith(content));
    EXPECT_LT(unpacked.size(), kDeclared); // and is not filled up with zeros
}

INSTANTIATE_TEST_SUITE_P(All, UnpackingTest, testing::ValuesIn(awkwardArchives()), titleOf);
