// Finding the overlay and the device file among the unpacked ones.

#include "document/DashboardPackage.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using DashboardPackage::findDeviceFile;
using DashboardPackage::findOverlayFile;

namespace {

class PackageFilesTest : public testing::Test
{
protected:
    void add(const char* path, int size)
    {
        ASSERT_TRUE(TestPackage::writeFile(m_root.filePath(QString::fromUtf8(path)),
                                           QByteArray(size, 'x')));
    }

    [[nodiscard]] QString full(const char* path) const
    {
        return m_root.filePath(QString::fromUtf8(path));
    }

    /// The first file of that name as the folder is walked.
    [[nodiscard]] QString firstMet(const char* pattern) const
    {
        QDirIterator files(m_root.path(), {QString::fromUtf8(pattern)}, QDir::Files,
                           QDirIterator::Subdirectories);
        return files.hasNext() ? files.next() : QString();
    }

    QTemporaryDir m_root;
};

} // namespace

TEST_F(PackageFilesTest, FindsNothingInAnEmptyOrMissingFolder)
{
    EXPECT_EQ(findOverlayFile(m_root.path()), QString());
    EXPECT_EQ(findDeviceFile(m_root.path()), QString());
    EXPECT_EQ(findOverlayFile(full("missing")), QString());
    EXPECT_EQ(findDeviceFile(full("missing")), QString());
}

TEST_F(PackageFilesTest, PrefersTheOverlayOutsideExpansionsThoughSmaller)
{
    add("overlay.ov3.xml", 3000);
    add("expansions/pack/overlay.ov3.xml", 9000);
    EXPECT_EQ(findOverlayFile(m_root.path()), full("overlay.ov3.xml"));
}

TEST_F(PackageFilesTest, TakesTheOverlayBelowExpansionsWhenThereIsNoOther)
{
    add("expansions/pack/overlay.ov3.xml", 9000);
    EXPECT_EQ(findOverlayFile(m_root.path()), full("expansions/pack/overlay.ov3.xml"));
}

TEST_F(PackageFilesTest, KnowsExpansionsInAnyLetterCaseAndDepth)
{
    add("a/EXPANSIONS/overlay.ov3.xml", 9000);
    add("z/overlay.ov3.xml", 1);
    EXPECT_EQ(findOverlayFile(m_root.path()), full("z/overlay.ov3.xml"));
}

TEST_F(PackageFilesTest, TakesNoFolderForExpansionsThatOnlyContainsTheWord)
{
    add("my expansions/overlay.ov3.xml", 9000);
    add("overlay.ov3.xml", 10);
    EXPECT_EQ(findOverlayFile(m_root.path()), full("my expansions/overlay.ov3.xml"));
}

TEST_F(PackageFilesTest, TakesTheLargestOverlay)
{
    add("a/overlay.ov3.xml", 100);
    add("b/overlay.ov3.xml", 300);
    add("c/overlay.ov3.xml", 200);
    EXPECT_EQ(findOverlayFile(m_root.path()), full("b/overlay.ov3.xml"));
}

TEST_F(PackageFilesTest, TakesTheFirstOfEquallyLargeOverlays)
{
    add("a/overlay.ov3.xml", 100);
    add("b/overlay.ov3.xml", 100);
    add("c/overlay.ov3.xml", 100);
    EXPECT_EQ(findOverlayFile(m_root.path()), firstMet("overlay.ov3.xml"));
}

TEST_F(PackageFilesTest, TakesAnyOverlayWhenTheOneOutsideExpansionsIsEmpty)
{
    add("overlay.ov3.xml", 0);
    EXPECT_EQ(findOverlayFile(m_root.path()), full("overlay.ov3.xml"));
    add("expansions/overlay.ov3.xml", 9000);
    EXPECT_EQ(findOverlayFile(m_root.path()), firstMet("overlay.ov3.xml"));
}

TEST_F(PackageFilesTest, KnowsBothNamesInAnyLetterCase)
{
    add("a/Overlay.OV3.Xml", 10);
    add("b/Dash.AIMcfg", 10);
    EXPECT_EQ(findOverlayFile(m_root.path()), full("a/Overlay.OV3.Xml"));
    EXPECT_EQ(findDeviceFile(m_root.path()), full("b/Dash.AIMcfg"));
}

#ifndef Q_OS_WIN // where a dot does not hide
TEST_F(PackageFilesTest, FindsNothingHidden)
{
    add(".hidden/overlay.ov3.xml", 10);
    add(".hidden/dash.aimcfg", 10);
    add(".aimcfg", 10);
    EXPECT_EQ(findOverlayFile(m_root.path()), QString());
    EXPECT_EQ(findDeviceFile(m_root.path()), QString());
}
#endif

TEST_F(PackageFilesTest, TakesNoFolderAndNoOtherNameForAnOverlay)
{
    ASSERT_TRUE(QDir(m_root.path()).mkdir(QStringLiteral("overlay.ov3.xml")));
    add("overlay.ov3.xml.bak", 10);
    add("my overlay.ov3.xml", 10);
    EXPECT_EQ(findOverlayFile(m_root.path()), QString());
}

TEST_F(PackageFilesTest, PrefersTheDeviceFileOutsideDevices)
{
    // Some systems walk a folder by name, some by age: the one in "devices" is met first in half of
    // these.
    for (const char* const folder : {"1/a", "1/b", "2/a", "2/b"}) {
        const QByteArray root(folder, 1);
        const QByteArray other = root + (folder[2] == 'a' ? "/b" : "/a");
        const QByteArray inside = folder + QByteArrayLiteral("/devices/x.aimcfg");
        const QByteArray outside = other + "/x.aimcfg";
        add(root == "1" ? inside : outside, 10);
        add(root == "1" ? outside : inside, 10);
        EXPECT_EQ(findDeviceFile(full(root)), full(outside)) << folder;
        ASSERT_TRUE(QDir(full(root)).removeRecursively());
    }
}

TEST_F(PackageFilesTest, TakesTheDeviceFileBelowDevicesWhenThereIsNoOther)
{
    add("x/Devices/y/a.aimcfg", 10);
    EXPECT_EQ(findDeviceFile(m_root.path()), full("x/Devices/y/a.aimcfg"));
}

TEST_F(PackageFilesTest, TakesTheFirstDeviceFileOutsideDevicesOfSeveral)
{
    add("a/dash.aimcfg", 10);
    add("b/dash.aimcfg", 300);
    add("c/dash.aimcfg", 20);
    EXPECT_EQ(findDeviceFile(m_root.path()), firstMet("*.aimcfg"));
}

TEST_F(PackageFilesTest, TakesTheFirstDeviceFileBelowDevicesOfSeveral)
{
    add("devices/a.aimcfg", 10);
    add("devices/b.aimcfg", 10);
    EXPECT_EQ(findDeviceFile(m_root.path()), firstMet("*.aimcfg"));
}

TEST_F(PackageFilesTest, TakesNoFolderForDevicesThatOnlyContainsTheWord)
{
    add("my devices/a.aimcfg", 10);
    EXPECT_EQ(findDeviceFile(m_root.path()), full("my devices/a.aimcfg"));
}

TEST_F(PackageFilesTest, TheFoldersAboveTheRootCountAsWell)
{
    // Nothing lies outside then, so the first one met counts, in one of the rounds not the largest.
    for (const int size : {100, 500}) {
        add("expansions/base/a/overlay.ov3.xml", 300);
        add("expansions/base/b/overlay.ov3.xml", size);
        const QString found = findOverlayFile(full("expansions/base"));
        EXPECT_EQ(found, firstMet("overlay.ov3.xml")) << size;
        EXPECT_FALSE(found.isEmpty());
    }
    for (const bool aIsInside : {true, false}) {
        add(aIsInside ? "devices/base/a/devices/x.aimcfg" : "devices/base/a/x.aimcfg", 10);
        add(aIsInside ? "devices/base/b/x.aimcfg" : "devices/base/b/devices/x.aimcfg", 10);
        EXPECT_EQ(findDeviceFile(full("devices/base")), firstMet("*.aimcfg")) << aIsInside;
        ASSERT_TRUE(QDir(full("devices/base")).removeRecursively());
    }
}

TEST_F(PackageFilesTest, AnEmptyDeviceFileIsFound)
{
    add("a.aimcfg", 0);
    EXPECT_EQ(findDeviceFile(m_root.path()), full("a.aimcfg"));
}
