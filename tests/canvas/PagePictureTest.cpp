#include "canvas/PagePicture.h"

#include "canvas/DashCanvas.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <limits>

namespace {

DashElement element(int x, int y, int w, int h)
{
    DashElement made;
    made.name = QStringLiteral("mask.1");
    made.channelLongName = QStringLiteral("Engine RPM");
    made.kind = ElementKind::Digit;
    made.x = x;
    made.y = y;
    made.w = w;
    made.h = h;
    return made;
}

DashPage pageWithEverything()
{
    DashPage page;
    page.width = 400;
    page.height = 240;
    page.image = QPixmap(40, 24);
    page.image.fill(Qt::darkBlue);
    page.elements = {element(10, 10, 120, 60), element(100, 50, 90, 40), element(390, 230, 50, 50)};
    page.elements[1].channelLongName.clear();
    return page;
}

} // namespace

TEST(PagePicture, IsWhatTheCanvasPaintsWithoutItsMargin)
{
    DashPage page = pageWithEverything();
    for (const int scale : {1, 2}) {
        DashCanvas canvas;
        canvas.resize(page.width * scale + 20, page.height * scale + 20);
        canvas.setPage(&page);
        ASSERT_EQ(canvas.fitScale(), scale);
        const QImage painted = canvas.grab(QRect(10, 10, page.width * scale, page.height * scale))
                                   .toImage()
                                   .convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(PagePicture::paint(page, scale, {}), painted) << scale;
    }
}

TEST(PagePicture, HasThePagesSizeTimesTheScale)
{
    DashPage page;
    page.width = 333;
    page.height = 100;
    EXPECT_EQ(PagePicture::size(page, 1.0), QSize(333, 100));
    EXPECT_EQ(PagePicture::size(page, 1.5), QSize(500, 150));
    EXPECT_EQ(PagePicture::paint(page, 0.5, {}).size(), QSize(167, 50));
}

TEST(PagePicture, MayHaveOnePixelOrTheLongestSide)
{
    for (const QSize& size :
         {QSize(1, 1), QSize(PagePicture::kLargestSide, 1), QSize(1, PagePicture::kLargestSide)}) {
        DashPage page;
        page.width = size.width();
        page.height = size.height();
        EXPECT_EQ(PagePicture::size(page, 1.0), size);
    }
}

TEST(PagePicture, ThereIsNoneOfAPageWithoutAreaOrTooLargeAOne)
{
    constexpr int kMax = std::numeric_limits<int>::max();
    for (const QSize& size : {QSize(0, 100), QSize(100, -5), QSize(kMax, kMax), QSize(16'385, 1),
                              QSize(16'000, 16'000)}) {
        DashPage page;
        page.width = size.width();
        page.height = size.height();
        EXPECT_TRUE(PagePicture::size(page, 1.0).isEmpty()) << size.width();
        EXPECT_TRUE(PagePicture::paint(page, 1.0, {}).isNull()) << size.width();
    }
    DashPage page;
    for (const double scale : {0.0, -1.0, 1e300, std::numeric_limits<double>::quiet_NaN(), 0.0001})
        EXPECT_TRUE(PagePicture::paint(page, scale, {}).isNull()) << scale;
}
