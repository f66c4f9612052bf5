// Disks that run full at every possible point, limits on the size of a file, disks and folders that
// take nothing.

#include "tests/document/FaultScenario.h"
#include "tests/document/OpenPackageFixture.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/FolderTools.h"
#include "tests/support/ImmutableFolder.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/SmallDisk.h"

#include <QDir>

#include <cerrno>

using FaultInjection::Call;
using FaultInjection::Effect;

namespace {

int pagesOf(qsizetype bytes)
{
    return static_cast<int>((bytes + SmallDisk::kPage - 1) / SmallDisk::kPage);
}

class DiskFullTest : public OpenPackageFixture
{
protected:
    /// Puts the packages onto a disk with that many pages beside what the package needs.
    void mountPackages(int freePages)
    {
        m_usedPages = pagesOf(m_old.size());
        m_disk = std::make_unique<SmallDisk>(m_folder, m_usedPages + freePages);
        if (!m_disk->isMounted())
            GTEST_SKIP() << "mounting is not allowed here";
        ASSERT_TRUE(TestPackage::writeFile(m_package, m_old));
    }

    int m_usedPages = 0;
    std::unique_ptr<SmallDisk> m_disk;
};

class ImmutableFolderTest : public OpenPackageFixture,
                            public testing::WithParamInterface<FaultScenario>
{
};

} // namespace

TEST_F(DiskFullTest, SaveFailsUntilTheWholePackageFits)
{
    mountPackages(0);
    if (IsSkipped())
        return;
    const int needed = pagesOf(m_old.size());
    int failures = 0;
    bool saved = false;
    for (int free = 0; !saved && free < 3 * needed && !HasFailure(); ++free) {
        SCOPED_TRACE(free);
        ASSERT_TRUE(m_disk->resize(m_usedPages + free));
        saved = m_document->save(m_package);
        failures += saved ? 0 : 1;
        ASSERT_TRUE(m_disk->resize(m_usedPages + 3 * needed)); // room for the second save
        expectNothingLost(saved);
    }
    EXPECT_TRUE(saved);
    EXPECT_GE(failures, needed - 1);
}

TEST_F(DiskFullTest, OpenFailsUntilEverythingFits)
{
    const QString other = m_folder + QStringLiteral("/other.zconf2");
    ASSERT_TRUE(writePackage(other, "Other"));
    const QString full = m_world.filePath(QStringLiteral("full"));
    ASSERT_TRUE(QDir().mkdir(full));
    SmallDisk disk(full, 1);
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting is not allowed here";
    const QString tempDir = m_document->tempDir();
    const QByteArray temp = qgetenv("TMPDIR");

    int failures = 0;
    bool opened = false;
    for (int pages = 1; !opened && pages < 100; ++pages) {
        SCOPED_TRACE(pages);
        for (const QString& name : FolderTools::names(full))
            QDir(full + u'/' + name).removeRecursively();
        ASSERT_TRUE(disk.resize(pages));
        qputenv("TMPDIR", QFile::encodeName(full));
        opened = m_document->open(other);
        qputenv("TMPDIR", temp);
        failures += opened ? 0 : 1;
        if (opened)
            continue;
        ASSERT_EQ(m_document->tempDir(), tempDir);
        ASSERT_EQ(m_document->pageAt(0)->elements.at(0).x, kMoved);
        ASSERT_TRUE(m_document->save(m_package));
        ASSERT_TRUE(isComplete(m_package, kMoved));
    }
    ASSERT_TRUE(opened);
    EXPECT_EQ(FolderTools::contents(m_document->tempDir()), members("Other", kUnmoved));
    EXPECT_GT(failures, 20);
}

TEST_F(DiskFullTest, OpenSaysThatTheDiskIsFull)
{
    const QString tempDir = m_document->tempDir();
    FaultInjection::arm(world(), {{Call::Space}, 1, Effect::Fail, 0});
    const bool opened = m_document->open(m_package);
    EXPECT_TRUE(FaultInjection::disarm());
    EXPECT_FALSE(opened);
    EXPECT_EQ(m_document->errorString(), QStringLiteral("No space left on the device"));
    EXPECT_EQ(m_document->tempDir(), tempDir);
    expectNothingLost(false);
}

TEST_F(DiskFullTest, SaveSaysThatTheDiskIsFull)
{
    FaultInjection::arm(QFile::encodeName(m_folder),
                        {{Call::Write}, 1, Effect::FailOnward, ENOSPC});
    const bool saved = m_document->save(m_package);
    EXPECT_TRUE(FaultInjection::disarm());
    EXPECT_FALSE(saved);
    EXPECT_EQ(m_document->errorString(), qt_error_string(ENOSPC));
    expectNothingLost(false);
}

TEST_F(DiskFullTest, ReadOnlyDiskKeepsTheOldPackage)
{
    mountPackages(3 * pagesOf(m_old.size()));
    if (IsSkipped())
        return;
    ASSERT_TRUE(m_disk->setReadOnly(true));
    EXPECT_FALSE(m_document->save(m_package));
    ASSERT_TRUE(m_disk->setReadOnly(false));
    expectNothingLost(false);
}

TEST_F(DiskFullTest, FileSizeLimitAnywhereKeepsTheOldPackage)
{
    ASSERT_TRUE(m_document->save(m_package));
    const auto complete = static_cast<rlim_t>(TestPackage::readFile(m_package).size());
    TestPackage::writeFile(m_package, m_old);
    constexpr rlim_t kCoarse = 4999;
    constexpr rlim_t kFine = 40; // the last bytes are the end record and what stands before it
    for (rlim_t limit = 0; limit < complete; limit += limit + kFine < complete ? kCoarse : 1) {
        SCOPED_TRACE(limit);
        bool saved = false;
        {
            const FileSizeLimit limited(limit);
            saved = m_document->save(m_package);
        }
        ASSERT_FALSE(saved);
        expectNothingLost(saved);
    }
    const FileSizeLimit limited(complete);
    EXPECT_TRUE(m_document->save(m_package));
}

TEST_F(DiskFullTest, InPlaceOnAFullDiskPutsTheOldPackageBack)
{
    mountPackages(2);
    if (IsSkipped())
        return;
    // Makes the new package longer than the old one and the free room together.
    const QString extra = m_document->tempDir() + QStringLiteral("/extra.bin");
    ASSERT_TRUE(TestPackage::writeFile(extra, m_old.repeated(2)));
    bool saved = true;
    {
        const ImmutableFolder immutable(m_folder);
        if (!immutable.isActive())
            GTEST_SKIP() << "this system knows no immutable folders";
        saved = m_document->save(m_package);
    }
    EXPECT_FALSE(saved);
    ASSERT_TRUE(QFile::remove(extra));
    ASSERT_TRUE(m_disk->resize(4 * m_usedPages));
    expectNothingLost(false);
}

TEST_P(ImmutableFolderTest, PutsTheOldPackageBackWhicheverCallFails)
{
    bool struck = true;
    int number = 1;
    for (; struck && !HasFailure(); ++number) {
        SCOPED_TRACE(number);
        bool saved = false;
        {
            const ImmutableFolder immutable(m_folder);
            if (!immutable.isActive())
                GTEST_SKIP() << "this system knows no immutable folders";
            FaultInjection::arm(QFile::encodeName(m_folder), GetParam().at(number));
            saved = m_document->save(m_package);
            struck = FaultInjection::disarm();
        }
        if (!struck) {
            EXPECT_TRUE(saved);
        }
        expectNothingLost(saved);
    }
    EXPECT_GT(number, 2) << "no call of this kind was made";
}

INSTANTIATE_TEST_SUITE_P(
    Calls, ImmutableFolderTest,
    testing::Values(FaultScenario{"OpenFails", Call::Open, Effect::Fail, EIO},
                    FaultScenario{"ReadFails", Call::Read, Effect::Fail, EIO},
                    FaultScenario{"WriteFails", Call::Write, Effect::Fail, EIO},
                    FaultScenario{"SeekFails", Call::Seek, Effect::Fail, EIO},
                    FaultScenario{"TruncateFails", Call::Truncate, Effect::Fail, EIO},
                    FaultScenario{"SyncFails", Call::Sync, Effect::Fail, EIO},
                    FaultScenario{"CloseFails", Call::Close, Effect::Fail, EIO}),
    titleOf);
