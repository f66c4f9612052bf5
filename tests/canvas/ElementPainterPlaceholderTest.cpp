// The names shown in the boxes of a layout without live values, against a picture painted by hand.

#include "telemetry/TelemetrySession.h"
#include "tests/canvas/CanvasFixture.h"
#include "tests/canvas/ReferenceWidget.h"

#include <QFontMetrics>

namespace {

class ElementPainterPlaceholder : public CanvasFixture
{
protected:
    /// What the canvas has to look like, painted by hand.
    [[nodiscard]] QImage expected()
    {
        ReferenceWidget reference([this](QPainter& painter) { paintPage(painter); });
        reference.setFont(m_canvas.font());
        reference.resize(m_canvas.size());
        return pictureOf(reference);
    }

private:
    void paintPage(QPainter& painter)
    {
        const double scale = m_canvas.fitScale();
        painter.fillRect(QRect(QPoint(), m_canvas.size()), QColor(50, 50, 50));
        painter.fillRect(QRectF(m_canvas.pageOrigin(), QSizeF(m_page.width, m_page.height) * scale),
                         Qt::black);
        for (const DashElement& e : m_page.elements)
            paintElement(painter, e, scale);
    }

    void paintElement(QPainter& painter, const DashElement& e, double scale)
    {
        const QRectF box = m_canvas.elementRect(e);
        painter.fillRect(box, QColor(128, 128, 128, 60));
        if (e.channelLongName.isEmpty())
            painter.setPen(QPen(QColor(150, 150, 150), 1.0, Qt::DashLine));
        else
            painter.setPen(QPen(QColor(200, 200, 200), 1.0, Qt::SolidLine));
        painter.drawRect(box);

        QFont font = painter.font();
        font.setPixelSize(std::max(static_cast<int>(scale * 10.0), 8));
        painter.setFont(font);
        painter.setPen(Qt::white);
        const QFontMetrics metrics(font);
        const int width = static_cast<int>(box.width()) - 4;
        if (!e.channelLongName.isEmpty())
            painter.drawText(box.adjusted(2, 1, -2, -1), Qt::AlignLeft | Qt::AlignTop,
                             metrics.elidedText(e.channelLongName, Qt::ElideRight, width));
        painter.drawText(box.adjusted(2, 1, -2, -1), Qt::AlignRight | Qt::AlignBottom,
                         metrics.elidedText(e.name, Qt::ElideRight, width));
    }
};

} // namespace

TEST_F(ElementPainterPlaceholder, ShowsChannelAndName)
{
    add({100, 100, 150, 60});
    EXPECT_EQ(pictureOf(m_canvas), expected());
    m_page.elements[0].channelLongName = QStringLiteral("Oil Pressure");
    EXPECT_EQ(pictureOf(m_canvas), expected());
}

TEST_F(ElementPainterPlaceholder, WithoutAChannelShowsTheNameOnly)
{
    m_page.elements.push_back(
        makeElement(QStringLiteral("mask.7"), {100, 100, 150, 60}, QString()));
    EXPECT_EQ(pictureOf(m_canvas), expected());
}

TEST_F(ElementPainterPlaceholder, LongTextsAreElidedAtTheRight)
{
    m_page.elements.push_back(makeElement(QStringLiteral("a name that is much too long"),
                                          {100, 100, 71, 60},
                                          QStringLiteral("a channel that is much too long")));
    EXPECT_EQ(pictureOf(m_canvas), expected());
}

TEST_F(ElementPainterPlaceholder, GrowsWithTheScale)
{
    add({100, 100, 150, 60});
    for (const QSize size : {QSize(1620, 980), QSize(1100, 700), QSize(640, 417)}) {
        m_canvas.resize(size);
        EXPECT_EQ(pictureOf(m_canvas), expected()) << size.width();
    }
}

TEST_F(ElementPainterPlaceholder, IsAtLeastEightPixelsHigh)
{
    m_canvas.resize(400, 240);
    add({100, 100, 150, 60});
    EXPECT_EQ(pictureOf(m_canvas), expected());
}

TEST_F(ElementPainterPlaceholder, KeepsTheWeightOfTheCanvassFont)
{
    QFont bold = m_canvas.font();
    bold.setBold(true);
    m_canvas.setFont(bold);
    add({100, 100, 150, 60});
    EXPECT_EQ(pictureOf(m_canvas), expected());
}

TEST_F(ElementPainterPlaceholder, AnEmptyBoxIsHarmless)
{
    add({100, 100, 0, 0});
    add({200, 100, -50, -40});
    add({300, 100, 3, 2});
    EXPECT_EQ(pictureOf(m_canvas), expected());
}

TEST_F(ElementPainterPlaceholder, ASessionWithoutARecordingShowsNamesToo)
{
    TelemetrySession session;
    m_canvas.setSession(&session);
    add({100, 100, 150, 60});
    EXPECT_EQ(pictureOf(m_canvas), expected());
    m_canvas.setSession(nullptr);
}

TEST_F(ElementPainterPlaceholder, NamesOfMegabytesCostNoTime)
{
    const QString huge(10'000'000, u'x');
    m_page.elements.push_back(makeElement(huge, {100, 100, 150, 60}, huge));
    const QImage picture = pictureOf(m_canvas);
    m_page.elements[0].name.truncate(500);
    m_page.elements[0].channelLongName.truncate(500);
    EXPECT_EQ(picture, pictureOf(m_canvas));
}
