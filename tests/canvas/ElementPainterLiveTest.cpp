// Live values on the canvas, read from a real session on a scripted reader, against a picture
// painted by hand.

#include "paths/FixedPaths.h"
#include "telemetry/TelemetrySession.h"
#include "tests/canvas/CanvasFixture.h"
#include "tests/canvas/ReferenceWidget.h"
#include "tests/support/ScriptedReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <QTemporaryDir>

#include <array>
#include <string>
#include <utility>

namespace {

/// The folder that turns the trace on, while a test runs. Its place is fixed on Windows.
class TraceFolder
{
public:
    TraceFolder() : m_wasThere(QFileInfo::exists(path())) { QDir().mkpath(path()); }
    TraceFolder(const TraceFolder&) = delete;
    TraceFolder& operator=(const TraceFolder&) = delete;
    ~TraceFolder()
    {
        if (!m_wasThere)
            QDir(path()).removeRecursively();
    }
    [[nodiscard]] bool wasThere() const { return m_wasThere; }

private:
    static QString path() { return QFileInfo(FixedPaths::channelTraceFile()).path(); }

    bool m_wasThere;
};

class ElementPainterLive : public CanvasFixture
{
public:
    ~ElementPainterLive() override { QDir::setCurrent(m_before); }

protected:
    ElementPainterLive() : m_before(QDir::currentPath())
    {
        QDir::setCurrent(m_folder.path()); // where the trace file would go
        m_reader.channels[ReaderHost::kPlain] = {
            {"Engine RPM", {0.0, 10.0}, {0.0, 20000.0}},
            {"Water Temp", {0.0}, {57.26}},
            {"Ratio", {0.0}, {0.5}},
            {"Cold", {0.0}, {-0.25}},
            {"Almost", {0.0}, {999.99}},
            {"Huge", {0.0}, {123456789012.0}},
            {"GPS Speed", {0.0}, {10.0}},
            {"GPS Altitude", {0.0}, {10.0}},
        };
        EXPECT_TRUE(m_session.load(QStringLiteral("a.xrk"),
                                   QString::fromStdString(ScriptedReader::path())));
        m_canvas.setSession(&m_session);
    }

    DashElement& addLive(const char* channel, ElementKind kind = ElementKind::Digit,
                         const ElementGeometry& geometry = {100, 100, 150, 60})
    {
        DashElement live =
            makeElement(QStringLiteral("mask"), geometry, QString::fromLatin1(channel));
        live.kind = kind;
        m_page.elements.push_back(live);
        return m_page.elements.back();
    }

    /// What the canvas has to look like when its elements show these values.
    [[nodiscard]] QImage expected(const std::vector<std::string>& values)
    {
        ReferenceWidget reference([&](QPainter& painter) {
            painter.fillRect(QRect(QPoint(), m_canvas.size()), QColor(50, 50, 50));
            painter.fillRect(QRectF(m_canvas.pageOrigin(),
                                    QSizeF(m_page.width, m_page.height) * m_canvas.fitScale()),
                             Qt::black);
            for (std::size_t i = 0; i < values.size(); ++i)
                paintElement(painter, element(i), QString::fromStdString(values[i]));
        });
        reference.setFont(m_canvas.font());
        reference.resize(m_canvas.size());
        return pictureOf(reference);
    }

    [[nodiscard]] QImage picture() { return pictureOf(m_canvas); }

    ScriptedReader m_reader;
    TelemetrySession m_session; // unloads the library before the reader goes

private:
    void paintElement(QPainter& painter, const DashElement& e, const QString& text)
    {
        const QRectF box = m_canvas.elementRect(e);
        painter.fillRect(box, e.kind == ElementKind::Analog  ? QColor(40, 80, 200, 60)
                              : e.kind == ElementKind::Digit ? QColor(40, 180, 60, 60)
                              : e.kind == ElementKind::Icon  ? QColor(200, 180, 40, 60)
                                                             : QColor(128, 128, 128, 60));
        painter.setPen(QPen(QColor(200, 200, 200), 1.0, Qt::SolidLine));
        painter.drawRect(box);

        QFont font = painter.font();
        font.setWeight(e.kind == ElementKind::Analog ? QFont::Weight(700) : QFont::Weight(400));
        const int nominal = e.valueFontSize > 0 ? e.valueFontSize : static_cast<int>(e.h * 0.4);
        const double ratio = std::min(nominal / static_cast<double>(std::max(e.h, 1)), 0.6);
        int size = std::max(static_cast<int>(box.height() * ratio), 10);
        font.setPixelSize(size);
        const int textWidth = QFontMetrics(font).horizontalAdvance(text);
        const int available = static_cast<int>(box.width()) - 6;
        if (textWidth > available && available > 0) {
            size = std::max(static_cast<int>(static_cast<double>(available) / textWidth * size), 8);
            font.setPixelSize(size);
        }
        painter.setFont(font);
        painter.setPen(e.valueColor.isValid() ? e.valueColor : QColor(255, 255, 255));
        painter.drawText(box.adjusted(3, 2, -3, -2), Qt::AlignHCenter | Qt::AlignVCenter, text);

        QFont caption = painter.font();
        caption.setPixelSize(std::max(static_cast<int>(m_canvas.fitScale() * 8.0), 7));
        caption.setWeight(QFont::Weight(400));
        painter.setFont(caption);
        painter.setPen(QColor(160, 160, 160));
        painter.drawText(box.adjusted(2, 1, -2, -1), Qt::AlignLeft | Qt::AlignTop,
                         QFontMetrics(caption).elidedText(e.channelLongName, Qt::ElideRight,
                                                          static_cast<int>(box.width()) - 4));
    }

    QTemporaryDir m_folder;
    QString m_before;
};

} // namespace

TEST_F(ElementPainterLive, ShowsTheValueAtTheReplayTime)
{
    addLive("Engine RPM");
    EXPECT_EQ(picture(), expected({"0.00"}));
    m_canvas.setReplayTime(2.5);
    EXPECT_EQ(picture(), expected({"5000"}));
    m_canvas.setReplayTime(0.25);
    EXPECT_EQ(picture(), expected({"500.0"}));
    m_canvas.setReplayTime(1e9);
    EXPECT_EQ(picture(), expected({"20000"}));
}

TEST_F(ElementPainterLive, DecimalsFollowTheMagnitude)
{
    addLive("Water Temp");
    addLive("Ratio", ElementKind::Digit, {300, 100, 150, 60});
    addLive("Almost", ElementKind::Digit, {100, 200, 150, 60});
    addLive("Cold", ElementKind::Digit, {300, 200, 150, 60});
    EXPECT_EQ(picture(), expected({"57.3", "0.50", "1000.0", "-0.25"}));
}

TEST_F(ElementPainterLive, OnlyAnalogValuesAreBold)
{
    int y = 10;
    for (const ElementKind kind : {ElementKind::Analog, ElementKind::Digit, ElementKind::Icon,
                                   ElementKind::Other, ElementKind::Analog, ElementKind::Other}) {
        addLive("Water Temp", kind, {100, y, 150, 60});
        y += 70;
    }
    EXPECT_EQ(picture(), expected({"57.3", "57.3", "57.3", "57.3", "57.3", "57.3"}));
    m_page.elements[1].kind = ElementKind::Analog;
    EXPECT_EQ(picture(), expected({"57.3", "57.3", "57.3", "57.3", "57.3", "57.3"}));
}

TEST_F(ElementPainterLive, TheWidgetsOwnWeightDoesNotMatter)
{
    QFont bold = m_canvas.font();
    bold.setBold(true);
    m_canvas.setFont(bold);
    addLive("Water Temp");
    EXPECT_EQ(picture(), expected({"57.3"}));
}

TEST_F(ElementPainterLive, TheElementsFontSizeAndColorAreUsed)
{
    addLive("Water Temp").valueFontSize = 30;
    element(0).valueColor = QColor(255, 0, 128);
    EXPECT_EQ(picture(), expected({"57.3"}));
    const QImage coloured = picture();
    element(0).valueColor = QColor();
    EXPECT_NE(picture(), coloured);
    EXPECT_EQ(picture(), expected({"57.3"}));
}

TEST_F(ElementPainterLive, TheFontIsFittedToTheBox)
{
    for (const ElementGeometry& geometry :
         {ElementGeometry{100, 100, 60, 100}, ElementGeometry{100, 100, 30, 100},
          ElementGeometry{100, 100, 20, 20}, ElementGeometry{100, 100, 6, 50},
          ElementGeometry{100, 100, 5, 50}, ElementGeometry{100, 100, 0, 0},
          ElementGeometry{100, 100, 600, 8}}) {
        m_page.elements.clear();
        addLive("Huge", ElementKind::Analog, geometry).valueFontSize = 60;
        EXPECT_EQ(picture(), expected({"123456789012"})) << geometry.w;
    }
}

TEST_F(ElementPainterLive, TextsFollowTheScale)
{
    addLive("Water Temp", ElementKind::Analog);
    for (const QSize size : {QSize(1620, 980), QSize(640, 417), QSize(400, 240)}) {
        m_canvas.resize(size);
        EXPECT_EQ(picture(), expected({"57.3"})) << size.width();
    }
}

TEST_F(ElementPainterLive, ALongCaptionIsElided)
{
    addLive("Water Temp and quite a lot more than fits", ElementKind::Digit, {100, 100, 80, 60});
    EXPECT_EQ(picture(), expected({"57.3"}));
}

TEST_F(ElementPainterLive, TheSpeedIsConvertedToTheChosenUnit)
{
    addLive("GPS Speed");
    EXPECT_EQ(picture(), expected({"36.0"}));
    m_canvas.setSpeedUnit(1);
    EXPECT_EQ(picture(), expected({"22.4"}));
    m_canvas.setSpeedUnit(2);
    EXPECT_EQ(picture(), expected({"19.4"}));
    m_canvas.setSpeedUnit(3);
    EXPECT_EQ(picture(), expected({"10.0"}));
}

TEST_F(ElementPainterLive, DecimalsFollowTheConvertedSpeed)
{
    for (const auto& [speed, texts] : {std::pair{0.5, std::array{"1.8", "1.1", "0.97"}},
                                       std::pair{0.25, std::array{"0.90", "0.56", "0.49"}},
                                       std::pair{300.0, std::array{"1080", "671.1", "583.2"}}}) {
        m_reader.channels[ReaderHost::kPlain] = {{"GPS Speed", {0.0}, {speed}}};
        ASSERT_TRUE(m_session.load(QStringLiteral("b.xrk"),
                                   QString::fromStdString(ScriptedReader::path())));
        m_page.elements.clear();
        addLive("GPS Speed");
        for (int unit = 0; unit < 3; ++unit) {
            m_canvas.setSpeedUnit(unit);
            EXPECT_EQ(picture(), expected({texts.at(static_cast<std::size_t>(unit))}))
                << speed << " in unit " << unit;
        }
    }
}

TEST_F(ElementPainterLive, TheMatchedNameDecidesWhatIsASpeed)
{
    addLive("gps_speed");
    addLive("GPS Altitude", ElementKind::Digit, {300, 100, 150, 60});
    EXPECT_EQ(picture(), expected({"36.0", "10.0"}));
}

TEST_F(ElementPainterLive, AChannelThatMatchesNothingShowsZero)
{
    addLive("xyz");
    EXPECT_EQ(picture(), expected({"0.00"}));
}

TEST_F(ElementPainterLive, AnElementWithoutAChannelShowsItsName)
{
    addLive("");
    m_canvas.setReplayTime(5.0);
    const QImage live = picture();
    m_canvas.setSession(nullptr);
    EXPECT_EQ(picture(), live);
}

TEST_F(ElementPainterLive, ANameAfterALiveValueIsNotBoldEvenOnABoldCanvas)
{
    QFont bold = m_canvas.font();
    bold.setBold(true);
    m_canvas.setFont(bold);
    addLive("Water Temp", ElementKind::Analog);
    addLive("", ElementKind::Other, {300, 100, 150, 60});
    const QImage after = picture().copy(QRect(at(290, 90), QSize(200, 100)));
    std::swap(m_page.elements[0], m_page.elements[1]);
    EXPECT_NE(picture().copy(QRect(at(290, 90), QSize(200, 100))), after)
        << "the first element has the canvas's own weight";
}

TEST_F(ElementPainterLive, AnEmptiedSessionShowsNamesAgain)
{
    addLive("Water Temp");
    m_canvas.setSession(nullptr);
    const QImage names = picture();
    m_canvas.setSession(&m_session);
    EXPECT_NE(picture(), names);
    EXPECT_FALSE(m_session.load(QStringLiteral("a.xrk"), QStringLiteral("/no/library")));
    EXPECT_EQ(picture(), names);
}

TEST_F(ElementPainterLive, ReplayingCallsNothingInTheReader)
{
    addLive("Engine RPM");
    addLive("xyz");
    const std::size_t calls = m_reader.log.size();
    for (int i = 0; i < 20; ++i) {
        m_canvas.setReplayTime(i / 10.0);
        EXPECT_FALSE(picture().isNull());
    }
    EXPECT_EQ(m_reader.log.size(), calls);
}

TEST_F(ElementPainterLive, EveryShownChannelIsTracedOnceARun)
{
    const TraceFolder folder;
    if (folder.wasThere())
        GTEST_SKIP() << "this computer has a folder for traces";
    addLive("water_temp"); // spelled as in no other test: names are traced once a run
    addLive("zzz", ElementKind::Digit, {300, 100, 150, 60});
    addLive("", ElementKind::Digit, {500, 100, 150, 60});
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(picture().isNull());
    QFile file(FixedPaths::channelTraceFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    EXPECT_EQ(file.readAll(), "OVERLAY: \"water_temp\"  ->  XRK: \"Water Temp\"\n"
                              "OVERLAY: \"zzz\"  ->  XRK: \"NO MATCH\"\n");
}

TEST_F(ElementPainterLive, LayoutsWithoutARecordingTraceNothing)
{
    const TraceFolder folder;
    if (folder.wasThere())
        GTEST_SKIP() << "this computer has a folder for traces";
    m_canvas.setSession(nullptr);
    addLive("never shown live");
    EXPECT_FALSE(picture().isNull());
    EXPECT_FALSE(QFileInfo::exists(FixedPaths::channelTraceFile()));
}

TEST_F(ElementPainterLive, ABoxThatReachesFarBeyondThePageShowsItsValueInItsMiddle)
{
    addLive("Water Temp", ElementKind::Digit, {-20'000, 100, 41'000, 60}); // its middle at 500
    addLive("Ratio", ElementKind::Digit, {100, -20'000, 150, 40'600}).valueFontSize = 30;
    EXPECT_EQ(picture(), expected({"57.3", "0.50"}));
}

TEST_F(ElementPainterLive, TheValueOfABoxWhoseMiddleIsFarAwayIsNotSeen)
{
    addLive("Water Temp", ElementKind::Digit, {100, 100, 10'000, 60});
    const QImage far = picture();
    constexpr int kFixedPointRange = 1 << 26; // pixels: text positions have 6 bits of fraction
    for (const int width : {2'000'000'000, 2 * kFixedPointRange + 600}) {
        element(0).w = width;
        EXPECT_EQ(picture(), far) << width;
    }
}

TEST_F(ElementPainterLive, AbsurdElementsAndValuesAreHarmless)
{
    constexpr int kMax = 2'147'483'647;
    m_reader.channels[ReaderHost::kPlain] = {
        {"big", {0.0}, {1e308}}, {"nan", {0.0}, {std::nan("")}}, {"inf", {0.0}, {-HUGE_VAL}}};
    ASSERT_TRUE(
        m_session.load(QStringLiteral("b.xrk"), QString::fromStdString(ScriptedReader::path())));
    for (const char* const channel : {"big", "nan", "inf"}) {
        addLive(channel, ElementKind::Analog, {0, 0, kMax, kMax}).valueFontSize = kMax;
        addLive(channel, ElementKind::Analog, {0, 0, 100, kMax});
        addLive(channel, ElementKind::Digit, {-kMax - 1, -kMax - 1, kMax, kMax});
        addLive(channel, ElementKind::Digit, {100, 100, -kMax, -kMax});
        addLive(channel, ElementKind::Icon, {kMax, kMax, 0, 0}).valueFontSize = -kMax - 1;
        addLive(channel, ElementKind::Icon, {10, 10, 400, 1}).valueFontSize = kMax;
    }
    for (const QSize page : {QSize(800, 480), QSize(1, 1), QSize(0, 0), QSize(kMax, kMax)}) {
        m_page.width = page.width();
        m_page.height = page.height();
        EXPECT_EQ(picture().size(), m_canvas.size());
    }
}
