#include "tests/document/OpenPackageFixture.h"
#include "tests/support/AwkwardNames.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#ifdef Q_OS_WIN
#include "tests/support/HeldFile.h"
#endif

namespace {

class FileNames : public OpenPackageFixture, public testing::WithParamInterface<const char*>
{
protected:
    QString m_name = QString::fromUtf8(GetParam());
};

TEST_P(FileNames, PackageIsSavedAndOpened)
{
    const QString folder = m_folder + u'/' + m_name;
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString path = folder + u'/' + m_name + QStringLiteral(".zconf2");
    ASSERT_TRUE(m_document->save(path));
    EXPECT_EQ(FolderTools::names(folder), QStringList(m_name + QStringLiteral(".zconf2")));
    EXPECT_TRUE(isComplete(path, kMoved));
}

TEST_P(FileNames, MemberSurvivesASave)
{
    auto files = members("Race", kUnmoved);
    const QString member = QStringLiteral("images/%1/%1.png").arg(m_name);
    files[member] = "content";
    ASSERT_TRUE(TestPackage::writePackage(m_package, files));
    reopen();
    ASSERT_TRUE(m_document->save(m_package));
    EXPECT_EQ(TestPackage::readPackage(m_package)[member], "content");
}

INSTANTIATE_TEST_SUITE_P(OfEveryScript, FileNames, testing::ValuesIn(AwkwardNames::kEveryScript));

class LongPaths : public OpenPackageFixture
{
};

TEST_F(LongPaths, PackageIsSavedAndOpened)
{
    const QString folder = AwkwardNames::longFolder(m_folder);
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString path = folder + QStringLiteral("/race.zconf2");
    ASSERT_TRUE(m_document->save(path));
    EXPECT_EQ(FolderTools::names(folder), QStringList(QStringLiteral("race.zconf2")));
    EXPECT_TRUE(isComplete(path, kMoved));
}

TEST_F(LongPaths, MemberSurvivesASave)
{
    auto files = members("Race", kUnmoved);
    const QString member =
        AwkwardNames::longFolder(QStringLiteral("images")) + QStringLiteral("/0.png");
    files[member] = "content";
    ASSERT_TRUE(TestPackage::writePackage(m_package, files));
    reopen();
    ASSERT_TRUE(m_document->save(m_package));
    EXPECT_EQ(TestPackage::readPackage(m_package)[member], "content");
}

#ifdef Q_OS_WIN

using HeldFiles = LongPaths;

TEST_F(HeldFiles, SaveOverOneFailsAndLosesNothing)
{
    for (const DWORD shared : {DWORD{0}, DWORD{FILE_SHARE_READ}}) {
        {
            const HeldFile held(m_package, shared);
            EXPECT_FALSE(m_document->save(m_package));
        }
        EXPECT_FALSE(m_document->errorString().isEmpty());
        expectNothingLost(false);
        reopen();
    }
}

TEST_F(HeldFiles, SaveOverOneThatMayBeReplacedWorks)
{
    {
        const HeldFile held(m_package, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
        ASSERT_TRUE(m_document->save(m_package));
    }
    EXPECT_TRUE(isComplete(m_package, kMoved));
}

TEST_F(HeldFiles, OpeningOneThatIsNotSharedChangesNothing)
{
    const HeldFile held(m_package, 0);
    const QString before = m_document->tempDir();
    EXPECT_FALSE(m_document->open(m_package));
    EXPECT_FALSE(m_document->errorString().isEmpty());
    EXPECT_EQ(m_document->tempDir(), before);
    EXPECT_EQ(m_document->pageAt(0)->elements.at(0).x, kMoved);
}

using ReadOnlyFiles = LongPaths;

TEST_F(ReadOnlyFiles, SaveOverOneFailsAndLosesNothing)
{
    QFile file(m_package);
    ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ReadUser));
    if (QFile(m_package).open(QIODevice::ReadWrite))
        GTEST_SKIP() << "the administrator of the system below Wine may write any file";
    EXPECT_FALSE(m_document->save(m_package));
    EXPECT_FALSE(m_document->errorString().isEmpty());
    ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ReadUser | QFile::WriteOwner |
                                    QFile::WriteUser));
    expectNothingLost(false);
}

#endif

} // namespace
