#include "review/OtherFiles.h"

#include "tests/review/OpenedLayout.h"

using namespace Qt::StringLiterals;

TEST(OtherFiles, AreAllButTheOverlayWithSizeAndCrc)
{
    const OpenedLayout layout(TestPackage::Members{
        {u"b/overlay.ov3.xml"_s, TestPackage::overlayXml({TestPackage::page("Race", 800, 480)})},
        {u"b/0.png"_s, "123456789"},
        {u"b/.hidden/x"_s, QByteArray()},
        {u"a.txt"_s, QByteArray(100'000, 'a')}});
    const std::vector<PackageFile> files = otherFiles(layout.document());
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0].path, u"a.txt"_s);
    EXPECT_EQ(files[0].size, 100'000);
    EXPECT_EQ(files[1].path, u"b/.hidden/x"_s);
    EXPECT_EQ(files[1].crc, 0U);
    EXPECT_EQ(files[2].path, u"b/0.png"_s);
    EXPECT_EQ(files[2].crc, 0xcbf43926U) << "the check value of CRC-32";
}
