#include "canvas/PageTransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

} // namespace

TEST(PageTransform, WithoutAPageNothingIsScaledAndTheMarginIsTheOrigin)
{
    const PageTransform transform;
    EXPECT_EQ(transform.scale(), 1.0);
    EXPECT_EQ(transform.origin(), QPointF(10, 10));
    EXPECT_TRUE(transform.pageRect().isEmpty());
}

TEST(PageTransform, TheSmallerOfBothScalesFitsAndThePageIsCentred)
{
    const PageTransform transform({400, 240}, {800, 480});
    EXPECT_DOUBLE_EQ(transform.scale(), 220.0 / 480.0); // less than 380 / 800
    EXPECT_NEAR(transform.origin().x(), 16.67, 0.005);
    EXPECT_DOUBLE_EQ(transform.origin().y(), 10.0);
}

TEST(PageTransform, TheWidthDecidesForAWidePage)
{
    const PageTransform transform({420, 1000}, {800, 480});
    EXPECT_DOUBLE_EQ(transform.scale(), 0.5);
    EXPECT_EQ(transform.origin(), QPointF(10, 380));
    EXPECT_EQ(transform.pageRect(), QRectF(10, 380, 400, 240));
}

TEST(PageTransform, ASmallPageIsEnlargedWithoutLimit)
{
    const PageTransform transform({420, 420}, {4, 4});
    EXPECT_DOUBLE_EQ(transform.scale(), 100.0);
}

TEST(PageTransform, MapsDisplayPixelsToWidgetPixels)
{
    const PageTransform transform({420, 260}, {800, 480});
    EXPECT_EQ(transform.map({100, 40, 60, 20}), QRectF(60, 30, 30, 10));
    EXPECT_EQ(transform.map({-20, -20, 0, 0}), QRectF(0, 0, 0, 0));
}

TEST(PageTransform, APageWithoutAreaIsShownUnscaled)
{
    for (const QSize page : {QSize(0, 480), QSize(800, 0), QSize(0, 0), QSize(-800, 480),
                             QSize(800, kMin), QSize(kMin, kMin)}) {
        const PageTransform transform({820, 500}, page);
        EXPECT_EQ(transform.scale(), 1.0) << page.width() << " x " << page.height();
        EXPECT_EQ(transform.origin(), QPointF(10, 10));
        EXPECT_TRUE(transform.pageRect().isEmpty());
    }
}

TEST(PageTransform, AHugePageStaysFinite)
{
    const PageTransform transform({820, 500}, {kMax, kMax});
    EXPECT_GT(transform.scale(), 0.0);
    EXPECT_NEAR(transform.pageRect().height(), 480.0, 1e-6);
    EXPECT_TRUE(std::isfinite(transform.map({kMin, kMin, kMax, kMax}).right()));
}

TEST(PageTransform, AnElementAtTheLargestCoordinateDoesNotWrapAround)
{
    const PageTransform transform({820, 500}, {800, 480});
    const QRectF rect = transform.map({kMax, 0, kMax, 10});
    EXPECT_DOUBLE_EQ(rect.x(), 2'147'483'657.0);
    EXPECT_DOUBLE_EQ(rect.width(), 2'147'483'647.0);
}

TEST(PageTransform, AtAScaleThereIsNoMargin)
{
    const PageTransform transform = PageTransform::atScale(1.5, {800, 481});
    EXPECT_EQ(transform.scale(), 1.5);
    EXPECT_EQ(transform.origin(), QPointF(0.0, 0.0));
    EXPECT_EQ(transform.pageRect(), QRectF(0.0, 0.0, 1200.0, 721.5));
    EXPECT_EQ(transform.map({10, 20, 30, 40}), QRectF(15.0, 30.0, 45.0, 60.0));
}

TEST(PageTransform, MouseDistancesAreTruncatedTowardZero)
{
    const PageTransform transform({420, 260}, {800, 480}); // half size
    const auto distance = transform.distance({100, 100}, {103, 98});
    EXPECT_EQ(distance.dx, 6);
    EXPECT_EQ(distance.dy, -4);

    const PageTransform doubled({820, 500}, {400, 240});
    const auto small = doubled.distance({100, 100}, {103, 97});
    EXPECT_EQ(small.dx, 1);
    EXPECT_EQ(small.dy, -1);
}

TEST(PageTransform, DistancesOnAHugePageDoNotOverflow)
{
    const PageTransform transform({820, 500}, {kMax, kMax});
    EXPECT_GT(transform.distance({0, 0}, {800, 0}).dx, qint64{kMax});
}

TEST(PageTransform, AWidgetAsSmallAsItsMarginsHasNoDistances)
{
    const PageTransform transform({20, 20}, {800, 480});
    EXPECT_EQ(transform.scale(), 0.0);
    EXPECT_EQ(transform.distance({0, 0}, {5, 5}).dx, 0);
    EXPECT_EQ(transform.distance({0, 0}, {5, 5}).dy, 0);
}
