#include "document/DashboardDocument.h"
#include "paths/FixedPaths.h"
#include "tests/support/PackageBuilder.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QScreen>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>
#include <zlib.h>

namespace {

QByteArray pngBytes(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray pngOf(QImage image, const QColor& color)
{
    image.fill(color);
    return pngBytes(image);
}

/// Of 100 million pixels, as many as are shown in full size, in 12 kB.
QByteArray largestPng()
{
    return pngOf(QImage(10'000, 10'000, QImage::Format_Mono), Qt::black);
}

bool fitsScreen(const QPixmap& image)
{
    const QSize screen = QGuiApplication::primaryScreen()->size();
    return !image.isNull() && image.width() <= screen.width() && image.height() <= screen.height();
}

/// Stripes of two colours out of a table, a quarter and three quarters of the width.
QByteArray stripedPng(int width, int height, QImage::Format format)
{
    QImage image(width, height, format);
    image.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 255)});
    image.fill(0);
    for (int y = 0; y < height; ++y) {
        for (int x = width / 4; x < width; ++x)
            image.setPixel(x, y, 1);
    }
    return pngBytes(image);
}

/// The image with another size in its header, whose checksum is right.
QByteArray withSize(QByteArray bytes, quint32 width, quint32 height)
{
    constexpr qsizetype kHeader = 12;       // where the header's type begins
    constexpr qsizetype kHeaderLength = 17; // of type and content
    qToBigEndian(width, bytes.data() + kHeader + 4);
    qToBigEndian(height, bytes.data() + kHeader + 8);
    const uLong crc = crc32(0, reinterpret_cast<const Bytef*>(bytes.constData()) + kHeader,
                            static_cast<uInt>(kHeaderLength));
    qToBigEndian(static_cast<quint32>(crc), bytes.data() + kHeader + kHeaderLength);
    return bytes;
}

QByteArray png(int width)
{
    return pngOf(QImage(width, 2, QImage::Format_RGB32), Qt::red);
}

/// Three pages, the second of which names an image.
class PageImagesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir::setCurrent(m_folder.path())); // on Unix the image root is below it
        if (QFileInfo::exists(makersFolder()))
            GTEST_SKIP() << "this computer has the maker's own folder";
    }
    void TearDown() override
    {
        if (!IsSkipped())
            QDir(makersFolder()).removeRecursively();
        QDir::setCurrent(m_oldFolder);
    }

    /// Of the fixed root of the images, the topmost folder.
    static QString makersFolder() { return FixedPaths::imageRoot().section(u'/', 0, 1); }

    bool open(TestPackage::Members members, const QByteArray& pathImage = "Pictures/p1.png")
    {
        TestPackage::Object second = TestPackage::page("Second", 300, 200);
        second.properties.push_back({"PATH_IMAGE", pathImage});
        members[QStringLiteral("layout/overlay.ov3.xml")] = TestPackage::overlayXml(
            {TestPackage::page("First", 300, 200), second, TestPackage::page("Third", 300, 200)});
        const QString path = m_folder.filePath(QStringLiteral("made.zconf2"));
        return TestPackage::writePackage(path, members) && m_document.open(path);
    }

    /// Opens a package of pages with one numbered image each.
    bool openWithImages(const std::vector<QByteArray>& images)
    {
        TestPackage::Members members;
        std::vector<TestPackage::Object> pages;
        for (std::size_t i = 0; i < images.size(); ++i) {
            pages.push_back(TestPackage::page("Page", 300, 200));
            members[QString::number(i) + QStringLiteral(".png")] = images[i];
        }
        members[QStringLiteral("overlay.ov3.xml")] = TestPackage::overlayXml(pages);
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

TEST_F(PageImagesTest, ComesFromTheMakersFolderFirst)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({{QStringLiteral("layout/1.png"), png(22)}}));
    EXPECT_EQ(page(1).image.width(), 11);
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("Pictures/p1.png"));
}

TEST_F(PageImagesTest, TheLastOfSeveralPathsCounts)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({}, R"(missing.png</p><p n="PATH_IMAGE">Pictures/p1.png)"));
    EXPECT_EQ(page(1).image.width(), 11);
    ASSERT_TRUE(open({}, R"(Pictures/p1.png</p><p n="PATH_IMAGE">missing.png)"));
    EXPECT_TRUE(page(1).imagePath.isEmpty());
}

TEST_F(PageImagesTest, OfAPageReadByItselfFollowsTheOrdinalItIsGiven)
{
    ASSERT_TRUE(open({{QStringLiteral("layout/2.png"), png(33)}}));
    m_document.readPage(m_document.pageNode(0), 2);
    EXPECT_EQ(page(3).image.width(), 33);
}

TEST_F(PageImagesTest, ElseFromBesideTheOverlayByOrdinal)
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

TEST_F(PageImagesTest, AnUnreadableImageFallsBack)
{
    makeRootImage("no image");
    ASSERT_TRUE(open({{QStringLiteral("layout/1.png"), png(22)}}));
    EXPECT_EQ(page(1).image.width(), 22);
    EXPECT_EQ(page(1).imagePath, beside("1.png"));

    ASSERT_TRUE(open({}));
    EXPECT_TRUE(page(1).image.isNull());
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("Pictures/p1.png"));
}

TEST_F(PageImagesTest, ThePathIsAppendedAsItStands)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({}, "x/../Pictures/p1.png"));
#ifdef Q_OS_WIN // resolves names before it looks
    EXPECT_FALSE(page(1).image.isNull());
#else
    EXPECT_TRUE(page(1).image.isNull()) << "no folder x";
#endif
    ASSERT_TRUE(open({}, "./Pictures//p1.png"));
    EXPECT_EQ(page(1).image.width(), 11);
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("./Pictures//p1.png"));
}

TEST_F(PageImagesTest, TheRootItselfIsNoImage)
{
    makeRootImage(png(11));
    ASSERT_TRUE(open({}, ""));
    EXPECT_TRUE(page(1).imagePath.isEmpty());
    ASSERT_TRUE(open({}, "Pictures"));
    EXPECT_TRUE(page(1).image.isNull());
    EXPECT_TRUE(page(1).imagePath.isEmpty()) << "a folder is no image file";
}

TEST_F(PageImagesTest, OneFileIsDecodedOnceHoweverManyPagesShowIt)
{
    makeRootImage(largestPng());
    TestPackage::Members members;
    std::vector<TestPackage::Object> pages(9, TestPackage::page("Page", 300, 200));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        pages[i].properties.push_back(
            {"PATH_IMAGE", i % 2 == 0 ? "Pictures/p1.png" : "Pictures/.//p1.png"});
    }
    members[QStringLiteral("overlay.ov3.xml")] = TestPackage::overlayXml(pages);
    const QString path = m_folder.filePath(QStringLiteral("made.zconf2"));
    ASSERT_TRUE(TestPackage::writePackage(path, members) && m_document.open(path));
    for (const DashPage& shown : m_document.pages()) {
        EXPECT_EQ(shown.image.size(), QSize(10'000, 10'000));
        EXPECT_EQ(shown.image.cacheKey(), page(0).image.cacheKey());
    }
    EXPECT_TRUE(page(1).imagePath.endsWith(QStringLiteral("/.//p1.png")));
}

TEST_F(PageImagesTest, BeyondAHundredMillionPixelsTheyAreSmaller)
{
    const QByteArray huge = pngOf(QImage(5790, 5790, QImage::Format_Mono), Qt::black);
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(openWithImages({huge, huge, huge, huge, huge, png(33)}));
        EXPECT_EQ(page(0).image.width(), 5790);
        EXPECT_EQ(page(1).image.width(), 5790);
        for (int i = 2; i < 5; ++i) {
            EXPECT_TRUE(fitsScreen(page(i).image)) << i;
            EXPECT_EQ(page(i).imagePath,
                      beside(qPrintable(QString::number(i) + QStringLiteral(".png"))));
        }
        EXPECT_EQ(page(5).image.width(), 33) << "there is room for this one";
    }
    m_document.readPage(m_document.pageNode(0), 0);
    EXPECT_EQ(page(6).image.cacheKey(), page(0).image.cacheKey());
}

TEST_F(PageImagesTest, ManySmallerOnesHaveALimitAsWellAndNoneIsLeftOut)
{
    constexpr int kCount = 60;
    std::vector<QByteArray> images(kCount, pngOf(QImage(900, 900, QImage::Format_RGB32), Qt::red));
    images.insert(images.begin(), largestPng());
    ASSERT_TRUE(openWithImages(images));
    EXPECT_EQ(page(0).image.width(), 10'000);
    qint64 pixels = 0;
    for (int i = 1; i <= kCount; ++i) {
        const QPixmap& image = page(i).image;
        ASSERT_TRUE(fitsScreen(image)) << i;
        EXPECT_EQ(image.width(), image.height()) << "in its shape";
        pixels += qint64{image.width()} * image.height();
    }
    EXPECT_LE(pixels, 10'000'000);
    EXPECT_GE(page(10).image.width(), 400) << "the first ones are of use";
}

TEST_F(PageImagesTest, ASmallerOneIsNotReplacedByTheOneBesideTheOverlay)
{
    makeRootImage(pngOf(QImage(1200, 1200, QImage::Format_RGB32), Qt::blue));
    ASSERT_TRUE(open({{QStringLiteral("layout/0.png"), largestPng()},
                      {QStringLiteral("layout/1.png"), png(22)}}));
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("Pictures/p1.png"));
    EXPECT_TRUE(fitsScreen(page(1).image));
    EXPECT_EQ(page(1).image.toImage().pixelColor(5, 5), QColor(Qt::blue));
}

TEST_F(PageImagesTest, OneTooLargeToDecodeIsNotReplacedEither)
{
    makeRootImage(withSize(png(11), 30'000, 30'000));
    ASSERT_TRUE(open({{QStringLiteral("layout/1.png"), png(22)}}));
    EXPECT_EQ(page(1).imagePath, FixedPaths::imageRoot() + QStringLiteral("Pictures/p1.png"));
    EXPECT_TRUE(page(1).image.isNull());
}

TEST_F(PageImagesTest, ASmallerOneWithAColorTableKeepsItsColors)
{
    for (const QImage::Format format : {QImage::Format_Indexed8, QImage::Format_Mono}) {
        ASSERT_TRUE(openWithImages({largestPng(), stripedPng(2000, 1000, format)}));
        ASSERT_TRUE(fitsScreen(page(1).image));
        const QImage image = page(1).image.toImage();
        EXPECT_EQ(image.pixelColor(image.width() / 8, 3), QColor(Qt::red));
        EXPECT_EQ(image.pixelColor(image.width() / 2, 3), QColor(Qt::blue));
        EXPECT_EQ(image.pixelColor(image.width() - 1, 3), QColor(Qt::blue));
    }
}

TEST_F(PageImagesTest, OneThatIsBeyondTheLimitByItselfIsShown)
{
    const QByteArray huge = pngOf(QImage(12'000, 12'000, QImage::Format_Mono), Qt::black);
    ASSERT_TRUE(openWithImages({huge, png(33)}));
    EXPECT_TRUE(fitsScreen(page(0).image));
    EXPECT_EQ(page(1).image.width(), 33);
}

TEST_F(PageImagesTest, DeepColorsCountTwice)
{
    const QByteArray deep = pngOf(QImage(1000, 1000, QImage::Format_RGBA64), Qt::green);
    const QByteArray nearly = pngOf(QImage(10'000, 9'850, QImage::Format_Mono), Qt::black);
    ASSERT_TRUE(openWithImages({nearly, deep, png(33)})); // 1.5 million pixels are left
    EXPECT_TRUE(fitsScreen(page(1).image));
    EXPECT_EQ(page(1).image.toImage().pixelColor(5, 5), QColor(Qt::green));
    EXPECT_EQ(page(2).image.width(), 33);
}

TEST_F(PageImagesTest, TheToolkitsOwnLimitDoesNotCount)
{
    const int limit = QImageReader::allocationLimit();
    ASSERT_TRUE(openWithImages({pngOf(QImage(8300, 8300, QImage::Format_RGB32), Qt::green)}));
    EXPECT_EQ(page(0).image.width(), 8300); // 276 million bytes
    EXPECT_EQ(QImageReader::allocationLimit(), limit) << "for others it stays";
}

TEST_F(PageImagesTest, ANewPageHasNone)
{
    ASSERT_TRUE(open({{QStringLiteral("layout/3.png"), png(22)}}));
    ASSERT_EQ(m_document.addBlankPage(QStringLiteral("New")), 3);
    EXPECT_TRUE(page(3).image.isNull());
    EXPECT_TRUE(page(3).imagePath.isEmpty());
}

TEST_F(PageImagesTest, NothingIsLookedUpInTheWorkingFolder)
{
    ASSERT_TRUE(TestPackage::writeFile(QStringLiteral("0.png"), png(22)));
    ASSERT_TRUE(TestPackage::writeFile(QStringLiteral("a.xml"),
                                       TestPackage::overlayXml({TestPackage::page("A", 1, 1)})));
    ASSERT_TRUE(m_document.loadOverlay(QStringLiteral("a.xml")));
    EXPECT_TRUE(page(0).image.isNull()) << "there is no unpacked package";
}
