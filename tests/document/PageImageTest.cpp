#include "document/DashboardDocument.h"
#include "document/FixedPaths.h"
#include "tests/support/PackageBuilder.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray pngOf(QImage image, const QColor& color)
{
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray png(int width)
{
    return pngOf(QImage(width, 2, QImage::Format_RGB32), Qt::red);
}

/// Three pages, the second of which names an image.
class PageImage : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (QDir::isAbsolutePath(FixedPaths::imageRoot()))
            GTEST_SKIP() << "would write into the maker's own folder";
        ASSERT_TRUE(QDir::setCurrent(m_folder.path())); // the image root lies below it here
    }
    void TearDown() override { QDir::setCurrent(m_oldFolder); }

    bool open(TestPackage::Members members, const QByteArray& pathImage = "Pictures/p1.png")
    {
        TestPackage::Object second = TestPackage::page("Second", 300, 200);
        second.properties.push_back({"PATH_IMAGE", pathImage});
        members[QStringLiteral("layout/overlay.ov3.xml")] = TestPackage::overlayXml(
            {TestPackage::page("First", 300, 200), second, TestPackage::page("Third", 300, 200)});
        const QString path = m_folder.filePath(QStringLiteral("made.zconf2"));
        return TestPackage::writePackage(path, members) && m_document.open(path);
    }

    static void makeRootImage(const QByteArray& content)
    {
        ASSERT_TRUE(TestPackage::writeFile(
            FixedPaths::imageRoot() + QStringLiteral("Pictures/p1.png"), content));
    }

    [[nodiscard]] const DashPage& page(int index) const { return *m_document.pageAt(index); }

    [[nodiscard]] QString beside(const char* name) const
    {
        return QFileInfo(m_document.overlayPath()).path() + u'/' + QString::fromLatin1(name);
    }

    QString m_oldFolder = QDir::currentPath();
    QTemporaryDir m_folder;
    DashboardDocument m_document;
};

} // namespace

TEST_F(PageImage, ComesFromTheMakersFolderFirst)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({{QStringLiteral("layout/1.png"), png(22)}}));
    EXPECT_EQ(page(1).image.width(), 11);
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("Pictures/p1.png"));
}

TEST_F(PageImage, TheLastOfSeveralPathsCounts)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({}, R"(missing.png</p><p n="PATH_IMAGE">Pictures/p1.png)"));
    EXPECT_EQ(page(1).image.width(), 11);
    ASSERT_TRUE(open({}, R"(Pictures/p1.png</p><p n="PATH_IMAGE">missing.png)"));
    EXPECT_TRUE(page(1).imagePath.isEmpty());
}

TEST_F(PageImage, OfAPageReadByItselfFollowsTheOrdinalItIsGiven)
{
    ASSERT_TRUE(open({{QStringLiteral("layout/2.png"), png(33)}}));
    m_document.readPage(m_document.pageNode(0), 2);
    EXPECT_EQ(page(3).image.width(), 33);
}

TEST_F(PageImage, ElseFromBesideTheOverlayByOrdinal)
{
    ASSERT_TRUE(open({{QStringLiteral("layout/1.png"), png(22)},
                      {QStringLiteral("layout/2.png"), png(33)},
                      {QStringLiteral("0.png"), png(44)}}));
    EXPECT_EQ(page(1).image.width(), 22);
    EXPECT_EQ(page(1).imagePath, beside("1.png"));
    EXPECT_EQ(page(2).image.width(), 33) << "without an image path of its own";
    EXPECT_TRUE(page(0).image.isNull()) << "0.png lies in another folder";
    EXPECT_TRUE(page(0).imagePath.isEmpty());
}

TEST_F(PageImage, AnUnreadableImageFallsBack)
{
    makeRootImage("no image");
    ASSERT_TRUE(open({{QStringLiteral("layout/1.png"), png(22)}}));
    EXPECT_EQ(page(1).image.width(), 22);
    EXPECT_EQ(page(1).imagePath, beside("1.png"));

    ASSERT_TRUE(open({}));
    EXPECT_TRUE(page(1).image.isNull());
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("Pictures/p1.png"));
}

TEST_F(PageImage, ThePathIsAppendedAsItStands)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({}, "x/../Pictures/p1.png"));
    EXPECT_TRUE(page(1).image.isNull()) << "no folder x";
    ASSERT_TRUE(open({}, "./Pictures//p1.png"));
    EXPECT_EQ(page(1).image.width(), 11);
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("./Pictures//p1.png"));
}

TEST_F(PageImage, TheRootItselfIsNoImage)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({}, ""));
    EXPECT_TRUE(page(1).imagePath.isEmpty());
    ASSERT_TRUE(open({}, "Pictures"));
    EXPECT_TRUE(page(1).image.isNull());
    EXPECT_TRUE(page(1).imagePath.isEmpty()) << "a folder is no image file";
}

TEST_F(PageImage, AllTogetherFillALimitedPartOfTheMemory)
{
    // Of 33 million pixels each, in 7 kB.
    const QByteArray huge = pngOf(QImage(5790, 5790, QImage::Format_Mono), Qt::black);
    const QByteArray late = png(33);
    TestPackage::Members members;
    std::vector<TestPackage::Object> pages;
    for (int i = 0; i < 6; ++i) {
        pages.push_back(TestPackage::page("Page", 300, 200));
        members[QString::number(i) + QStringLiteral(".png")] = i < 5 ? huge : late;
    }
    members[QStringLiteral("overlay.ov3.xml")] = TestPackage::overlayXml(pages);
    const QString path = m_folder.filePath(QStringLiteral("made.zconf2"));
    ASSERT_TRUE(TestPackage::writePackage(path, members));
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(m_document.open(path));
        EXPECT_EQ(page(0).image.width(), 5790);
        EXPECT_EQ(page(1).image.width(), 5790);
        for (int i = 2; i < 5; ++i) {
            EXPECT_TRUE(page(i).image.isNull()) << i;
            EXPECT_FALSE(page(i).imagePath.isEmpty()) << i;
        }
        EXPECT_EQ(page(5).image.width(), 33) << "there is room for this one";
    }
    m_document.readPage(m_document.pageNode(0), 0);
    EXPECT_TRUE(page(6).image.isNull()) << "counted on";
}

TEST_F(PageImage, ANewPageHasNone)
{
    ASSERT_TRUE(open({{QStringLiteral("layout/3.png"), png(22)}}));
    ASSERT_EQ(m_document.addBlankPage(QStringLiteral("New")), 3);
    EXPECT_TRUE(page(3).image.isNull());
    EXPECT_TRUE(page(3).imagePath.isEmpty());
}

TEST_F(PageImage, NothingIsLookedUpInTheWorkingFolder)
{
    ASSERT_TRUE(TestPackage::writeFile(QStringLiteral("0.png"), png(22)));
    ASSERT_TRUE(TestPackage::writeFile(QStringLiteral("a.xml"),
                                       TestPackage::overlayXml({TestPackage::page("A", 1, 1)})));
    ASSERT_TRUE(m_document.loadOverlay(QStringLiteral("a.xml")));
    EXPECT_TRUE(page(0).image.isNull()) << "there is no unpacked package";
}
