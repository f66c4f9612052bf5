// Packing and unpacking files whose names and paths programs often stumble over.

#include "document/DashboardPackage.h"
#include "tests/support/AwkwardNames.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class PackageNames : public testing::Test
{
protected:
    /// Packs a folder that holds the member and expects unpacking to give the same folder.
    void expectToComeBack(const QString& member, const QString& archive, const QString& target)
    {
        const QString source = m_world.filePath(QStringLiteral("source"));
        TestPackage::writeFolder(source, {{member, "content"}, {QStringLiteral("b"), "other"}});
        ASSERT_EQ(FolderTools::contents(source).size(), 2U);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(archive).path()));
        ASSERT_TRUE(DashboardPackage::packDirectory(source, archive));
        ASSERT_TRUE(DashboardPackage::unpackArchive(archive, target));
        EXPECT_EQ(FolderTools::contents(target), FolderTools::contents(source));
    }

    QTemporaryDir m_world;
};

class PackageNamesOfEveryScript : public PackageNames,
                                  public testing::WithParamInterface<const char*>
{
};

TEST_P(PackageNamesOfEveryScript, ComeBack)
{
    const QString name = QString::fromUtf8(GetParam());
    expectToComeBack(name + u'/' + name + QStringLiteral(".png"),
                     m_world.filePath(name + QStringLiteral(".zconf2")),
                     m_world.filePath(QStringLiteral("to ") + name));
}

INSTANTIATE_TEST_SUITE_P(Names, PackageNamesOfEveryScript,
                         testing::ValuesIn(AwkwardNames::kEveryScript));

TEST_F(PackageNames, LongerThan260CharactersComeBack)
{
    const QString longName = AwkwardNames::longFolder(QStringLiteral("images"));
    const QString longFolder = AwkwardNames::longFolder(m_world.path());
    expectToComeBack(longName + QStringLiteral("/0.png"),
                     longFolder + QStringLiteral("/race.zconf2"),
                     longFolder + QStringLiteral("/unpacked"));
}

} // namespace
