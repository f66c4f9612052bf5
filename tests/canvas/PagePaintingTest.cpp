// Pixels of the painted page. Everything but text is exact; texts are in files of their own.

#include "tests/canvas/CanvasFixture.h"
#include "tests/canvas/ReferenceWidget.h"

#include <map>
#include <vector>

namespace {

const QColor kBackdrop(50, 50, 50);
const QColor kYellow(255, 255, 0);

/// A colour with alpha over an opaque one, as the raster engine blends.
QColor over(const QColor& top, const QColor& ground)
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.fillRect(0, 0, 1, 1, top);
    painter.end();
    return image.pixelColor(0, 0);
}

class PagePainting : public CanvasFixture
{
protected:
    /// An element whose texts cannot be seen: they are wider than nothing at all.
    void addBlank(const ElementGeometry& geometry, ElementKind kind = ElementKind::Digit,
                  const QString& channel = QStringLiteral(" "))
    {
        DashElement blank = makeElement(QString(), geometry, channel);
        blank.kind = kind;
        m_page.elements.push_back(blank);
    }

    [[nodiscard]] QColor pixel(const QPoint& point)
    {
        return pictureOf(m_canvas).pixelColor(point);
    }
};

} // namespace

TEST_F(PagePainting, WithoutAPageAllIsBackdrop)
{
    m_canvas.setPage(nullptr);
    QImage expected(m_canvas.size(), QImage::Format_RGB32);
    expected.fill(kBackdrop);
    EXPECT_EQ(pictureOf(m_canvas), expected);
}

TEST_F(PagePainting, AnEmptyPageIsBlackOnTheBackdrop)
{
    QImage expected(m_canvas.size(), QImage::Format_RGB32);
    expected.fill(kBackdrop);
    QPainter painter(&expected);
    painter.fillRect(10, 10, 800, 480, Qt::black);
    painter.end();
    EXPECT_EQ(pictureOf(m_canvas), expected);
}

TEST_F(PagePainting, ThePageIsScaledAndCentred)
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

TEST_F(PagePainting, TheBackgroundImageIsStretchedOverThePage)
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

TEST_F(PagePainting, ATransparentImageShowsThePageBehindIt)
{
    m_page.image = QPixmap(4, 4);
    m_page.image.fill(QColor(255, 255, 255, 128));
    EXPECT_EQ(pixel(at(5, 5)), over(QColor(255, 255, 255, 128), Qt::black));
}

TEST_F(PagePainting, TheImagesRectangleIsRoundedToWholePixels)
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

// --- Grid ----------------------------------------------------------------------------------------

TEST_F(PagePainting, TheGridIsDrawnOnlyWhileSnapping)
{
    const QImage without = pictureOf(m_canvas);
    m_canvas.setSnap(true, 10);
    EXPECT_NE(pictureOf(m_canvas), without);
    m_canvas.setSnap(false, 10);
    EXPECT_EQ(pictureOf(m_canvas), without);
}

TEST_F(PagePainting, GridLinesStandAtBothEndsToo)
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

TEST_F(PagePainting, WhereGridLinesCrossTheyAreBlendedTwice)
{
    m_canvas.setSnap(true, 10);
    const QColor once = over(QColor(80, 80, 80, 100), Qt::black);
    EXPECT_EQ(pixel(at(20, 20)), over(QColor(80, 80, 80, 100), once));
    EXPECT_EQ(pixel(at(25, 20)), once);
    EXPECT_EQ(pixel(at(25, 25)), QColor(Qt::black));
}

TEST_F(PagePainting, APitchThatDoesNotDivideThePageStopsBeforeItsEnd)
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

TEST_F(PagePainting, APitchBelowTwoDrawsNoGrid)
{
    const QImage without = pictureOf(m_canvas);
    for (const int pitch : {1, 0, -10}) {
        m_canvas.setSnap(true, pitch);
        EXPECT_EQ(pictureOf(m_canvas), without) << pitch;
    }
    m_canvas.setSnap(true, 2);
    EXPECT_NE(pictureOf(m_canvas), without);
}

TEST_F(PagePainting, TheGridLiesOverTheImageAndUnderTheElements)
{
    m_page.image = QPixmap(1, 1);
    m_page.image.fill(Qt::red);
    addBlank({100, 100, 50, 40});
    m_canvas.setSnap(true, 10);
    const QColor line = over(QColor(80, 80, 80, 100), Qt::red);
    EXPECT_EQ(pixel(at(20, 25)), line);
    EXPECT_EQ(pixel(at(120, 125)), over(QColor(40, 180, 60, 60), line));
}

// --- Elements ------------------------------------------------------------------------------------

TEST_F(PagePainting, EveryKindHasItsTint)
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

TEST_F(PagePainting, LaterElementsLieOnTop)
{
    addBlank({100, 100, 50, 40}, ElementKind::Analog);
    addBlank({120, 110, 50, 40}, ElementKind::Icon);
    const QColor analog = over(QColor(40, 80, 200, 60), Qt::black);
    EXPECT_EQ(pixel(at(135, 125)), over(QColor(200, 180, 40, 60), analog));
    EXPECT_EQ(pixel(at(120, 125)), QColor(200, 200, 200)) << "the upper one's outline";
    EXPECT_EQ(pixel(at(150, 125)), over(QColor(200, 180, 40, 60), QColor(200, 200, 200)));
}

TEST_F(PagePainting, AnElementWithAChannelHasASolidOutline)
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

TEST_F(PagePainting, AnElementWithoutAChannelHasADashedGreyOutline)
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

TEST_F(PagePainting, TheSelectedElementHasAYellowOutlineTwoPixelsWide)
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

TEST_F(PagePainting, SelectionWinsOverTheDashesOfAMissingChannel)
{
    addBlank({100, 100, 100, 80}, ElementKind::Other, QString());
    click(at(150, 140));
    const QImage picture = pictureOf(m_canvas);
    for (int y = 110; y < 130; ++y)
        EXPECT_EQ(picture.pixelColor(at(100, y)), kYellow);
}

TEST_F(PagePainting, OnlyTheSelectedElementIsYellow)
{
    addBlank({100, 100, 100, 80});
    addBlank({300, 100, 100, 80});
    click(at(350, 140));
    EXPECT_EQ(pixel(at(100, 120)), QColor(200, 200, 200));
    EXPECT_EQ(pixel(at(300, 120)), kYellow);
}

TEST_F(PagePainting, EightHandlesOfSixPixelsStandOnTheOutline)
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

TEST_F(PagePainting, HandlesKeepTheirSizeAtAnyZoom)
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

TEST_F(PagePainting, HandlesLieOverElementsOnTopOfTheSelectedOne)
{
    addBlank({100, 100, 100, 80});
    addBlank({180, 160, 100, 80});
    click(at(110, 110));
    EXPECT_EQ(pixel(at(198, 178)), kYellow);
}

TEST_F(PagePainting, WithoutASelectionThereAreNoHandles)
{
    addBlank({100, 100, 100, 80});
    const QImage picture = pictureOf(m_canvas);
    for (int y = 0; y < picture.height(); y += 1) {
        for (int x = 0; x < picture.width(); x += 1)
            ASSERT_NE(picture.pixelColor(x, y), kYellow);
    }
}

TEST_F(PagePainting, ASelectedElementThatIsGoneLeavesNoHandlesBehind)
{
    const QImage empty = pictureOf(m_canvas);
    addBlank({100, 100, 100, 80});
    click(at(150, 140));
    m_page.elements.clear(); // and nobody tells the canvas
    EXPECT_EQ(pictureOf(m_canvas), empty);
}

TEST_F(PagePainting, AScaledElementIsAsDrawnByHand)
{
    m_canvas.resize(640, 417); // an awkward scale
    addBlank({101, 53, 97, 61}, ElementKind::Icon);
    addBlank({301, 153, 197, 161}, ElementKind::Other, QString());
    ReferenceWidget reference([&](QPainter& painter) {
        const double scale = std::min((640 - 20) / 800.0, (417 - 20) / 480.0);
        const QPointF origin((640 - 800 * scale) / 2, (417 - 480 * scale) / 2);
        const auto box = [&](const DashElement& e) {
            return QRectF(origin.x() + e.x * scale, origin.y() + e.y * scale, e.w * scale,
                          e.h * scale);
        };
        painter.fillRect(QRect(0, 0, 640, 417), kBackdrop);
        painter.fillRect(QRectF(origin, QSizeF(800 * scale, 480 * scale)), Qt::black);
        painter.fillRect(box(element(0)), QColor(200, 180, 40, 60));
        painter.setPen(QPen(QColor(200, 200, 200), 1.0));
        painter.drawRect(box(element(0)));
        painter.fillRect(box(element(1)), QColor(128, 128, 128, 60));
        painter.setPen(QPen(QColor(150, 150, 150), 1.0, Qt::DashLine));
        painter.drawRect(box(element(1)));
    });
    reference.resize(m_canvas.size());
    EXPECT_EQ(pictureOf(m_canvas), pictureOf(reference));
}

// --- Absurd pages and elements -------------------------------------------------------------------

TEST_F(PagePainting, AbsurdPagesArePaintedInNoTime)
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

TEST_F(PagePainting, AGridOfMoreLinesThanAnyDisplayHasIsLeftOut)
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

TEST_F(PagePainting, AnElementThatReachesAbsurdlyFarCoversWhatItCovers)
{
    constexpr int kMax = 2'147'483'647;
    addBlank({100, 100, kMax, kMax}, ElementKind::Analog);
    const QImage picture = pictureOf(m_canvas);
    EXPECT_EQ(picture.pixelColor(at(99, 200)), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(at(100, 200)), QColor(200, 200, 200));
    EXPECT_EQ(picture.pixelColor(at(500, 300)), QColor(9, 19, 47));
    EXPECT_EQ(picture.pixelColor(at(799, 479)), QColor(9, 19, 47));
}

TEST_F(PagePainting, AnElementFarOutsideIsNotSeen)
{
    constexpr int kMax = 2'147'483'647;
    const QImage empty = pictureOf(m_canvas);
    addBlank({kMax, 0, 100, 100});
    addBlank({-kMax, 0, 100, 100});
    addBlank({0, kMax, 100, 100});
    EXPECT_EQ(pictureOf(m_canvas), empty);
}
