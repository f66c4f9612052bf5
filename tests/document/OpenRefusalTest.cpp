// Packages that cannot be opened leave the document that is open as it is.

#include "tests/document/OpenPackageFixture.h"
#include "tests/support/AwkwardArchives.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RawArchive.h"

#include <ostream>
#include <string>

using RawArchive::Member;

namespace {

struct BadPackage
{
    std::string title;
    QByteArray bytes;
};

std::ostream& operator<<(std::ostream& out, const BadPackage& package)
{
    return out << package.title;
}

BadPackage withOverlay(const std::string& title, const QByteArray& overlay)
{
    return {title, RawArchive::build({Member{"overlay.ov3.xml", overlay}})};
}

/// The overlay can be read, but a save would lose the member behind the damage.
QByteArray damagedDirectory(const QByteArray& overlay)
{
    QByteArray bytes =
        RawArchive::build({Member{"overlay.ov3.xml", overlay}, Member{"0.png", "pixels"}});
    bytes[bytes.lastIndexOf("PK\1\2")] = 'X';
    return bytes;
}

std::vector<BadPackage> badPackages()
{
    const QByteArray overlay = TestPackage::overlayXml({TestPackage::page("P", 800, 480)});
    std::vector<BadPackage> packages{
        withOverlay("EmptyOverlay", {}),
        withOverlay("MalformedOverlay", overlay.left(overlay.size() - 20)),
        withOverlay("OverlayWithoutPages", TestPackage::overlayXml({})),
        withOverlay("OverlayOfAnotherKind", "<other/>"),
        {"DamagedDirectory", damagedDirectory(overlay)},
        {"NoOverlay", RawArchive::build({Member{"readme.txt", "no overlay here"}})}};
    // What cannot be unpacked cannot be opened, whatever overlay it may hold beside that.
    for (const AwkwardArchive& archive : awkwardArchives()) {
        if (!archive.accepted)
            packages.push_back({archive.title, archive.bytes});
    }
    return packages;
}

std::string titleOf(const testing::TestParamInfo<BadPackage>& package)
{
    return package.param.title;
}

class OpenRefusalTest : public OpenPackageFixture, public testing::WithParamInterface<BadPackage>
{
};

} // namespace

TEST_P(OpenRefusalTest, KeepsTheOpenDocument)
{
    const QString bad = m_world.filePath(QStringLiteral("bad.zconf2"));
    ASSERT_TRUE(TestPackage::writeFile(bad, GetParam().bytes));
    const QString tempDir = m_document->tempDir();
    const QString overlayPath = m_document->overlayPath();
    const QString devicePath = m_document->devicePath();

    EXPECT_FALSE(m_document->open(bad));

    EXPECT_EQ(m_document->tempDir(), tempDir);
    EXPECT_EQ(m_document->overlayPath(), overlayPath);
    EXPECT_EQ(m_document->devicePath(), devicePath);
    EXPECT_EQ(m_document->channels().size(), 1U);
    ASSERT_EQ(m_document->pageCount(), 1);
    EXPECT_EQ(m_document->pageAt(0)->name, QStringLiteral("Race"));
    EXPECT_EQ(m_document->pageAt(0)->elements.at(0).x, kMoved);
    EXPECT_EQ(TestPackage::readFile(bad), GetParam().bytes);
    expectNothingLost(false);
}

INSTANTIATE_TEST_SUITE_P(All, OpenRefusalTest, testing::ValuesIn(badPackages()), titleOf);
