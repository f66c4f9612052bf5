// Pixels of the painted page. Everything but text is exact; grid and texts are in files of their
// own.

#include "tests/canvas/PaintingFixture.h"

#include <vector>

namespace {

using PagePainterTest = PaintingFixture;

} // namespace

TEST_F(PagePainterTest, WithoutAPageAllIsBackdrop)
{
    m_canvas.setPage(nullptr);
    QImage expected(m_canvas.size(), QImage::Format_RGB32);
    expected.fill(kBackdrop);
    EXPECT_EQ(pictureOf(m_canvas), expected);
}

TEST_F(PagePainterTest, AnEmptyPageIsBlackOnTheBackdrop)
{
    QImage expected(m_canvas.size(), QImage::Format_RGB32);
    expected.fill(kBackdrop);
    QPainter painter(&expected);
    painter.fillRect(10, 10, 800, 480, Qt::black);
    painter.end();
    EXPECT_EQ(pictureOf(m_canvas), expected);
}

TEST_F(PagePainterTest, ThePageIsScaledAndCentred)
{
    m_page.width = 400; // twice 400 x 240 fills the height; the width is left over
    m_page.height = 480;
    const QImage picture = pictureOf(m_canvas);
    EXPECT_EQ(picture.pixelColor(209, 250), kBackdrop);
    EXPECT_EQ(picture.pixelColor(210, 250), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(609, 250), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(610, 250), kBackdrop);
    EXPECT_EQ(picture.pixelColor(400, 9), kBackdrop);
    EXPECT_EQ(picture.pixelColor(400, 10), QColor(Qt::black));
}

TEST_F(PagePainterTest, TheBackgroundImageIsStretchedOverThePage)
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.setPixelColor(0, 0, Qt::red);
    image.setPixelColor(1, 0, Qt::green);
    image.setPixelColor(0, 1, Qt::blue);
    image.setPixelColor(1, 1, Qt::cyan);
    m_page.image = QPixmap::fromImage(image);
    const QImage picture = pictureOf(m_canvas);
    EXPECT_EQ(picture.pixelColor(10, 10), QColor(Qt::red));
    // Not smoothed: full colours close to the middle.
    EXPECT_EQ(picture.pixelColor(407, 247), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(412, 247), QColor(Qt::green));
    EXPECT_EQ(picture.pixelColor(407, 252), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(809, 489), QColor(Qt::cyan));
    EXPECT_EQ(picture.pixelColor(810, 489), kBackdrop);
    EXPECT_EQ(picture.pixelColor(9, 10), kBackdrop);
}

TEST_F(PagePainterTest, ATransparentImageShowsThePageBehindIt)
{
    m_page.image = QPixmap(4, 4);
    m_page.image.fill(QColor(255, 255, 255, 128));
    EXPECT_EQ(pixel(at(5, 5)), over(QColor(255, 255, 255, 128), Qt::black));
}

TEST_F(PagePainterTest, TheImagesRectangleIsRoundedToWholePixels)
{
    m_canvas.resize(433, 240); // scale 220/480, origin x 33.17
    m_page.image = QPixmap(1, 1);
    m_page.image.fill(Qt::red);
    const QRect expected =
        QRectF(m_canvas.pageOrigin(), QSizeF(800, 480) * m_canvas.fitScale()).toRect();
    const QImage picture = pictureOf(m_canvas);
    EXPECT_EQ(picture.pixelColor(expected.topLeft()), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(expected.bottomRight()), QColor(Qt::red));
    EXPECT_NE(picture.pixelColor(expected.topLeft() - QPoint(1, 0)), QColor(Qt::red));
    EXPECT_NE(picture.pixelColor(expected.bottomRight() + QPoint(1, 0)), QColor(Qt::red));
}

// --- Elements ------------------------------------------------------------------------------------

TEST_F(PagePainterTest, EveryKindHasItsTint)
{
    struct Case
    {
        ElementKind kind;
        QColor onBlack; // 60/255 of the tint
    };
    for (const Case& expected :
         {Case{ElementKind::Analog, {9, 19, 47}}, Case{ElementKind::Digit, {9, 42, 14}},
          Case{ElementKind::Icon, {47, 42, 9}}, Case{ElementKind::Other, {30, 30, 30}},
          Case{static_cast<ElementKind>(7), {30, 30, 30}},
          Case{static_cast<ElementKind>(-1), {30, 30, 30}}}) {
        m_page.elements.clear();
        addBlank({100, 100, 50, 40}, expected.kind);
        EXPECT_EQ(pixel(at(125, 120)), expected.onBlack) << static_cast<int>(expected.kind);
    }
}

TEST_F(PagePainterTest, LaterElementsLieOnTop)
{
    addBlank({100, 100, 50, 40}, ElementKind::Analog);
    addBlank({120, 110, 50, 40}, ElementKind::Icon);
    const QColor analog = over(QColor(40, 80, 200, 60), Qt::black);
    EXPECT_EQ(pixel(at(135, 125)), over(QColor(200, 180, 40, 60), analog));
    EXPECT_EQ(pixel(at(120, 125)), QColor(200, 200, 200)) << "the upper one's outline";
    EXPECT_EQ(pixel(at(150, 125)), over(QColor(200, 180, 40, 60), QColor(200, 200, 200)));
}

TEST_F(PagePainterTest, AnElementWithAChannelHasASolidOutline)
{
    addBlank({100, 100, 50, 40});
    const QImage picture = pictureOf(m_canvas);
    for (int x = 100; x <= 150; ++x) {
        EXPECT_EQ(picture.pixelColor(at(x, 100)), QColor(200, 200, 200)) << x;
        EXPECT_EQ(picture.pixelColor(at(x, 140)), QColor(200, 200, 200)) << x;
    }
    for (int y = 100; y <= 140; ++y) {
        EXPECT_EQ(picture.pixelColor(at(100, y)), QColor(200, 200, 200)) << y;
        EXPECT_EQ(picture.pixelColor(at(150, y)), QColor(200, 200, 200)) << y;
    }
    EXPECT_EQ(picture.pixelColor(at(99, 120)), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(at(151, 120)), QColor(Qt::black));
    EXPECT_NE(picture.pixelColor(at(101, 120)), QColor(200, 200, 200));
}

TEST_F(PagePainterTest, AnElementWithoutAChannelHasADashedGreyOutline)
{
    addBlank({100, 100, 50, 40}, ElementKind::Other, QString());
    const QImage picture = pictureOf(m_canvas);
    int dashes = 0;
    int gaps = 0;
    for (int x = 100; x <= 149; ++x) {
        const QColor color = picture.pixelColor(at(x, 100));
        dashes += color == QColor(150, 150, 150) ? 1 : 0;
        gaps += color == QColor(30, 30, 30) ? 1 : 0;
    }
    EXPECT_GT(dashes, 20);
    EXPECT_GT(gaps, 5);
    EXPECT_EQ(dashes + gaps, 50);
}

TEST_F(PagePainterTest, TheSelectedElementHasAYellowOutlineTwoPixelsWide)
{
    addBlank({100, 100, 100, 80});
    click(at(150, 140));
    const QImage picture = pictureOf(m_canvas);
    std::vector<int> yellow;
    for (int x = 90; x < 110; ++x) {
        if (picture.pixelColor(at(x, 120)) == kYellow) // between two handles
            yellow.push_back(x);
    }
    EXPECT_EQ(yellow, (std::vector<int>{99, 100}));
}

TEST_F(PagePainterTest, SelectionWinsOverTheDashesOfAMissingChannel)
{
    addBlank({100, 100, 100, 80}, ElementKind::Other, QString());
    click(at(150, 140));
    const QImage picture = pictureOf(m_canvas);
    for (int y = 110; y < 130; ++y)
        EXPECT_EQ(picture.pixelColor(at(100, y)), kYellow);
}

TEST_F(PagePainterTest, OnlyTheSelectedElementIsYellow)
{
    addBlank({100, 100, 100, 80});
    addBlank({300, 100, 100, 80});
    click(at(350, 140));
    EXPECT_EQ(pixel(at(100, 120)), QColor(200, 200, 200));
    EXPECT_EQ(pixel(at(300, 120)), kYellow);
}

TEST_F(PagePainterTest, EightHandlesOfSixPixelsAreOnTheOutline)
{
    addBlank({100, 100, 100, 80});
    click(at(150, 140));
    const QImage picture = pictureOf(m_canvas);
    for (const QPoint grip :
         {QPoint(100, 100), QPoint(150, 100), QPoint(200, 100), QPoint(100, 140), QPoint(200, 140),
          QPoint(100, 180), QPoint(150, 180), QPoint(200, 180)}) {
        for (int dy = -3; dy <= 2; ++dy) {
            for (int dx = -3; dx <= 2; ++dx)
                EXPECT_EQ(picture.pixelColor(at(grip.x() + dx, grip.y() + dy)), kYellow);
        }
        EXPECT_NE(picture.pixelColor(at(grip.x() - 4, grip.y() - 4)), kYellow);
        EXPECT_NE(picture.pixelColor(at(grip.x() + 3, grip.y() + 3)), kYellow);
        EXPECT_NE(picture.pixelColor(at(grip.x() - 4, grip.y() + 3)), kYellow);
    }
}

TEST_F(PagePainterTest, HandlesKeepTheirSizeAtAnyZoom)
{
    m_canvas.resize(1600 + 20, 960 + 20);
    addBlank({100, 100, 100, 80});
    click({10 + 300, 10 + 280});
    const QImage picture = pictureOf(m_canvas);
    const QPoint corner(10 + 200, 10 + 200);
    EXPECT_EQ(picture.pixelColor(corner + QPoint(-3, -3)), kYellow);
    EXPECT_EQ(picture.pixelColor(corner + QPoint(2, 2)), kYellow);
    EXPECT_NE(picture.pixelColor(corner + QPoint(-4, -3)), kYellow);
    EXPECT_NE(picture.pixelColor(corner + QPoint(3, 3)), kYellow);
}

TEST_F(PagePainterTest, HandlesLieOverElementsOnTopOfTheSelectedOne)
{
    addBlank({100, 100, 100, 80});
    addBlank({180, 160, 100, 80});
    click(at(110, 110));
    EXPECT_EQ(pixel(at(198, 178)), kYellow);
}

TEST_F(PagePainterTest, WithoutASelectionThereAreNoHandles)
{
    addBlank({100, 100, 100, 80});
    const QImage picture = pictureOf(m_canvas);
    for (int y = 0; y < picture.height(); y += 1) {
        for (int x = 0; x < picture.width(); x += 1)
            ASSERT_NE(picture.pixelColor(x, y), kYellow);
    }
}

TEST_F(PagePainterTest, ASelectedElementThatIsGoneLeavesNoHandlesBehind)
{
    const QImage empty = pictureOf(m_canvas);
    addBlank({100, 100, 100, 80});
    click(at(150, 140));
    m_page.elements.clear(); // without notice to the canvas
    EXPECT_EQ(pictureOf(m_canvas), empty);
}

TEST_F(PagePainterTest, AScaledElementIsAsDrawnByHand)
{
    m_canvas.resize(640, 417); // an awkward scale
    addBlank({101, 53, 97, 61}, ElementKind::Icon);
    addBlank({301, 153, 197, 161}, ElementKind::Other, QString());
    const QImage expected = paintedByHand([&](QPainter& painter, const HandTransform& by) {
        painter.fillRect(by.box(element(0)), QColor(200, 180, 40, 60));
        painter.setPen(QPen(QColor(200, 200, 200), 1.0));
        painter.drawRect(by.box(element(0)));
        painter.fillRect(by.box(element(1)), QColor(128, 128, 128, 60));
        painter.setPen(QPen(QColor(150, 150, 150), 1.0, Qt::DashLine));
        painter.drawRect(by.box(element(1)));
    });
    EXPECT_EQ(pictureOf(m_canvas), expected);
}

TEST_F(PagePainterTest, AScaledSelectionIsAsDrawnByHand)
{
    addBlank({101, 53, 97, 61}, ElementKind::Icon); // its middles lie between pixels
    for (const QSize size : {QSize(640, 417), QSize(1111, 500), QSize(823, 977)}) {
        m_canvas.resize(size);
        m_canvas.rebindPage(&m_page, 0);
        const QImage expected = paintedByHand([&](QPainter& painter, const HandTransform& by) {
            const QRectF r = by.box(element(0));
            painter.fillRect(r, QColor(200, 180, 40, 60));
            painter.setPen(QPen(kYellow, 2.0));
            painter.drawRect(r);
            painter.setPen(Qt::NoPen);
            painter.setBrush(kYellow);
            const double middle = r.left() + r.width() / 2;
            const double half = r.top() + r.height() / 2;
            for (const QPointF grip :
                 {r.topLeft(), QPointF(middle, r.top()), r.topRight(), QPointF(r.left(), half),
                  QPointF(r.right(), half), r.bottomLeft(), QPointF(middle, r.bottom()),
                  r.bottomRight()})
                painter.drawRect(QRectF(grip.x() - 3, grip.y() - 3, 6, 6));
        });
        EXPECT_EQ(pictureOf(m_canvas), expected) << size.width();
    }
}

// --- Absurd pages and elements -------------------------------------------------------------------

TEST_F(PagePainterTest, AbsurdPagesArePaintedInNoTime)
{
    constexpr int kMax = 2'147'483'647;
    add({0, 0, 50, 40});
    add({kMax, kMax, kMax, kMax});
    add({-kMax - 1, -kMax - 1, kMax, kMax});
    add({0, 0, kMax, kMax});
    addBlank({0, 0, kMax, kMax}, ElementKind::Other, QString());
    for (const QSize size : {QSize(0, 0), QSize(0, 480), QSize(800, -1), QSize(-kMax - 1, kMax),
                             QSize(1, 1), QSize(kMax, kMax), QSize(kMax, 1), QSize(1, kMax)}) {
        m_page.width = size.width();
        m_page.height = size.height();
        for (const int pitch : {2, 10, kMax}) {
            m_canvas.setSnap(true, pitch);
            EXPECT_EQ(pictureOf(m_canvas).size(), m_canvas.size());
        }
    }
}

TEST_F(PagePainterTest, AnElementThatReachesAbsurdlyFarCoversWhatItCovers)
{
    constexpr int kMax = 2'147'483'647;
    addBlank({100, 100, kMax, kMax}, ElementKind::Analog);
    const QImage picture = pictureOf(m_canvas);
    EXPECT_EQ(picture.pixelColor(at(99, 200)), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(at(100, 200)), QColor(200, 200, 200));
    EXPECT_EQ(picture.pixelColor(at(500, 300)), QColor(9, 19, 47));
    EXPECT_EQ(picture.pixelColor(at(799, 479)), QColor(9, 19, 47));
}

TEST_F(PagePainterTest, AnElementFarOutsideIsNotSeen)
{
    constexpr int kMax = 2'147'483'647;
    const QImage empty = pictureOf(m_canvas);
    addBlank({kMax, 0, 100, 100});
    addBlank({-kMax, 0, 100, 100});
    addBlank({0, kMax, 100, 100});
    EXPECT_EQ(pictureOf(m_canvas), empty);
}

TEST_F(PagePainterTest, ASelectionThatReachesAbsurdlyFarHasHandlesOnlyWhereTheyCanBeSeen)
{
    constexpr int kMax = 2'147'483'647;
    addBlank({100, 100, kMax, kMax});
    m_canvas.rebindPage(&m_page, 0);
    const QImage picture = pictureOf(m_canvas);
    EXPECT_EQ(picture.pixelColor(at(102, 102)), kYellow) << "the handle at the corner";
    for (int y = 103; y < 480; ++y) {
        for (int x = 103; x < 800; ++x)
            ASSERT_NE(picture.pixelColor(at(x, y)), kYellow) << x << ", " << y;
    }
}

TEST_F(PagePainterTest, ASelectionFarOutsideIsNotSeen)
{
    constexpr int kMax = 2'147'483'647;
    const QImage empty = pictureOf(m_canvas);
    addBlank({kMax, 0, 100, 100});
    addBlank({-kMax, 0, 100, 100});
    addBlank({0, -kMax, 100, 100});
    addBlank({kMax, kMax, kMax, kMax});
    for (int index = 0; index < 4; ++index) {
        m_canvas.rebindPage(&m_page, index);
        EXPECT_EQ(pictureOf(m_canvas), empty) << index;
    }
}
