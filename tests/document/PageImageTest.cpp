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

QByteArray png(int width)
{
    QImage image(width, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
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
