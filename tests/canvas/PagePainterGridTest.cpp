// Pixels of the grid that is drawn while gestures snap to it.

#include "tests/canvas/PaintingFixture.h"

#include <vector>

namespace {

using PagePainterGridTest = PaintingFixture;

} // namespace

TEST_F(PagePainterGridTest, TheGridIsDrawnOnlyWhileSnapping)
{
    const QImage without = pictureOf(m_canvas);
    m_canvas.setSnap(true, 10);
    EXPECT_NE(pictureOf(m_canvas), without);
    m_canvas.setSnap(false, 10);
    EXPECT_EQ(pictureOf(m_canvas), without);
}

TEST_F(PagePainterGridTest, BothEndsHaveGridLines)
{
    m_canvas.setSnap(true, 10);
    const QImage picture = pictureOf(m_canvas);
    const QColor line = over(QColor(80, 80, 80, 100), Qt::black);
    const QColor edge = over(QColor(80, 80, 80, 100), kBackdrop); // the last one is off the black
    std::vector<int> columns;
    for (int x = 0; x < picture.width(); ++x) {
        const QColor color = picture.pixelColor(x, 15); // between two rows
        if (color == line || color == edge)
            columns.push_back(x);
    }
    ASSERT_EQ(columns.size(), 81U);
    for (std::size_t i = 0; i < columns.size(); ++i)
        EXPECT_EQ(columns[i], static_cast<int>(10 + 10 * i));

    std::vector<int> rows;
    for (int y = 0; y < picture.height(); ++y) {
        const QColor color = picture.pixelColor(15, y);
        if (color == line || color == edge)
            rows.push_back(y);
    }
    ASSERT_EQ(rows.size(), 49U);
    EXPECT_EQ(rows.front(), 10);
    EXPECT_EQ(rows.back(), 490);
}

TEST_F(PagePainterGridTest, WhereGridLinesCrossTheyAreBlendedTwice)
{
    m_canvas.setSnap(true, 10);
    const QColor once = over(QColor(80, 80, 80, 100), Qt::black);
    EXPECT_EQ(pixel(at(20, 20)), over(QColor(80, 80, 80, 100), once));
    EXPECT_EQ(pixel(at(25, 20)), once);
    EXPECT_EQ(pixel(at(25, 25)), QColor(Qt::black));
}

TEST_F(PagePainterGridTest, APitchThatDoesNotDivideThePageStopsBeforeItsEnd)
{
    m_canvas.setSnap(true, 300);
    const QImage picture = pictureOf(m_canvas);
    int columns = 0;
    for (int x = 0; x < picture.width(); ++x)
        columns +=
            picture.pixelColor(x, 15) != kBackdrop && picture.pixelColor(x, 15) != QColor(Qt::black)
                ? 1
                : 0;
    EXPECT_EQ(columns, 3); // 0, 300, 600
}

TEST_F(PagePainterGridTest, APitchBelowTwoDrawsNoGrid)
{
    const QImage without = pictureOf(m_canvas);
    for (const int pitch : {1, 0, -10}) {
        m_canvas.setSnap(true, pitch);
        EXPECT_EQ(pictureOf(m_canvas), without) << pitch;
    }
    m_canvas.setSnap(true, 2);
    EXPECT_NE(pictureOf(m_canvas), without);
}

TEST_F(PagePainterGridTest, TheGridIsOverTheImageAndUnderTheElements)
{
    m_page.image = QPixmap(1, 1);
    m_page.image.fill(Qt::red);
    addBlank({100, 100, 50, 40});
    m_canvas.setSnap(true, 10);
    const QColor line = over(QColor(80, 80, 80, 100), Qt::red);
    EXPECT_EQ(pixel(at(20, 25)), line);
    EXPECT_EQ(pixel(at(120, 125)), over(QColor(40, 180, 60, 60), line));
}

TEST_F(PagePainterGridTest, AGridOfMoreLinesThanAnyDisplayHasIsLeftOut)
{
    m_canvas.setSnap(true, 2);
    const QPoint middle = m_canvas.rect().center();
    for (const QSize most : {QSize(40'001, 480), QSize(480, 40'001)}) {
        m_page.width = most.width();
        m_page.height = most.height();
        EXPECT_NE(pixel(middle), QColor(Qt::black));
        m_page.width += most.width() > most.height() ? 1 : 0;
        m_page.height += most.height() > most.width() ? 1 : 0;
        EXPECT_EQ(pixel(middle), QColor(Qt::black));
    }
}

TEST_F(PagePainterGridTest, AScaledGridIsAsDrawnByHand)
{
    m_page.width = 803; // not a multiple of any pitch below
    m_page.height = 477;
    for (const QSize size : {QSize(823, 497), QSize(640, 417), QSize(1111, 500), QSize(823, 977)}) {
        m_canvas.resize(size);
        for (const int pitch : {7, 10, 64}) {
            m_canvas.setSnap(true, pitch);
            const QImage expected = paintedByHand([&](QPainter& painter, const HandTransform& by) {
                painter.setPen(QPen(QColor(80, 80, 80, 100), 1.0));
                for (int x = 0; x <= 803; x += pitch) {
                    const double column = by.origin.x() + x * by.scale;
                    painter.drawLine(QPointF(column, by.origin.y()),
                                     QPointF(column, by.origin.y() + 477 * by.scale));
                }
                for (int y = 0; y <= 477; y += pitch) {
                    const double row = by.origin.y() + y * by.scale;
                    painter.drawLine(QPointF(by.origin.x(), row),
                                     QPointF(by.origin.x() + 803 * by.scale, row));
                }
            });
            EXPECT_EQ(pictureOf(m_canvas), expected) << size.width() << " by " << pitch;
        }
    }
}
