// Painting a page of elements and a replay frame, each beside the same rectangles, lines and texts
// drawn from ready arrays: fonts chosen, texts formatted and cut to their boxes beforehand. Both
// are first checked to make the same picture.

#include "canvas/LiveText.h"
#include "canvas/PagePainter.h"
#include "document/ElementGeometry.h"
#include "telemetry/TelemetrySession.h"
#include "tests/support/ScriptedReader.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace {

constexpr QSize kCanvas(1280, 750);
constexpr int kFrames = 8; // replay positions that are painted in turn
constexpr int kTypicalPage = 60;
constexpr int kLargestPage = 10'000;

/// Elements of one size, as on a full page; beyond sixty they lie on top of each other.
DashPage makePage(int count)
{
    DashPage page;
    for (int i = 0; i < count; ++i) {
        DashElement element;
        element.name = QStringLiteral("mask.%1").arg(i);
        element.channelLongName = QStringLiteral("Channel %1").arg(i % kTypicalPage);
        element.kind = static_cast<ElementKind>(i % 4);
        element.valueFontSize = i % 3 == 0 ? 0 : 20 + i % 7;
        element.valueColor = QColor::fromHsv(i * 7 % 360, 200, 255);
        setGeometry(element, {i % 10 * 80 + 3, i / 10 % 6 * 80 + 3, 74, 70});
        page.elements.push_back(element);
    }
    return page;
}

/// A session on a recording of the channels that the pages ask for.
class Replay
{
public:
    Replay()
    {
        for (int i = 0; i < kTypicalPage; ++i) {
            ScriptedChannel channel{"Channel " + std::to_string(i), {}, {}};
            for (int sample = 0; sample < 6000; ++sample) {
                channel.times.push_back(sample / 10.0);
                channel.values.push_back(sample * (i + 1) % 7919 / 3.0);
            }
            m_reader.channels[ReaderHost::kPlain].push_back(std::move(channel));
        }
        m_loaded = m_session.load(QString(), QString::fromStdString(ScriptedReader::path()));
    }

    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    [[nodiscard]] const TelemetrySession& session() const { return m_session; }

private:
    ScriptedReader m_reader;
    TelemetrySession m_session;
    bool m_loaded = false;
};

double secondsOf(int frame)
{
    return 100.0 + frame / 10.0;
}

struct ReadyText
{
    QFont font;
    QPen pen;
    QRectF area;
    int flags;
    QString text;
};

struct ReadyElement
{
    QRectF box;
    QColor tint;
    QPen outline;
    ReadyText first;
    ReadyText second;
};

using ReadyPage = std::vector<ReadyElement>;

ReadyText readyValue(const DashElement& element, const QRectF& box, double value)
{
    const QString text = LiveText::format(value);
    const int size = LiveText::valuePixelSize(element.valueFontSize, element.h, box.height());
    QFont font = QApplication::font();
    font.setWeight(element.kind == ElementKind::Analog ? QFont::Bold : QFont::Normal);
    font.setPixelSize(size);
    font.setPixelSize(LiveText::fittedPixelSize(size, QFontMetrics(font).horizontalAdvance(text),
                                                LiveText::availableWidth(box.width())));
    return {font, QPen(element.valueColor), box.adjusted(3, 2, -3, -2), Qt::AlignCenter, text};
}

ReadyText readyName(const QString& name, const QRectF& box, int size, const QColor& color,
                    int flags)
{
    QFont font = QApplication::font();
    font.setPixelSize(size);
    font.setWeight(QFont::Normal);
    return {font, QPen(color), box.adjusted(2, 1, -2, -1), flags,
            QFontMetrics(font).elidedText(name, Qt::ElideRight, static_cast<int>(box.width()) - 4)};
}

ReadyPage makeReady(const PageView& view)
{
    static const QColor kTints[] = {
        {40, 80, 200, 60}, {40, 180, 60, 60}, {200, 180, 40, 60}, {128, 128, 128, 60}};
    const double scale = view.transform.scale();
    const int topLeft = Qt::AlignLeft | Qt::AlignTop;
    ReadyPage ready;
    for (const DashElement& element : view.page->elements) {
        const QRectF box = view.transform.map(geometryOf(element));
        const QString& channel = element.channelLongName;
        ReadyElement drawn{
            box, kTints[static_cast<int>(element.kind)], QPen(QColor(200, 200, 200), 1.0), {}, {}};
        if (view.live.session) {
            drawn.first =
                readyValue(element, box, view.live.session->value(channel, view.live.seconds));
            drawn.second = readyName(channel, box, LiveText::captionPixelSize(scale),
                                     QColor(160, 160, 160), topLeft);
        } else {
            const int size = LiveText::placeholderPixelSize(scale);
            drawn.first = readyName(channel, box, size, Qt::white, topLeft);
            drawn.second =
                readyName(element.name, box, size, Qt::white, Qt::AlignRight | Qt::AlignBottom);
        }
        ready.push_back(std::move(drawn));
    }
    return ready;
}

void paintText(QPainter& painter, const ReadyText& ready)
{
    painter.setFont(ready.font);
    painter.setPen(ready.pen);
    painter.drawText(ready.area, ready.flags, ready.text);
}

void paintReady(QPainter& painter, const QRectF& pageRect, const ReadyPage& ready)
{
    painter.fillRect(QRect(QPoint(), kCanvas), QColor(50, 50, 50));
    painter.fillRect(pageRect, Qt::black);
    for (const ReadyElement& element : ready) {
        painter.fillRect(element.box, element.tint);
        painter.setPen(element.outline);
        painter.drawRect(element.box);
        paintText(painter, element.first);
        paintText(painter, element.second);
    }
}

/// One page, its views at every replay position and the ready arrays for them.
class Scene
{
public:
    Scene(int count, const TelemetrySession* session)
        : m_page(makePage(count)),
          m_image(kCanvas, QImage::Format_RGB32)
    {
        const PageTransform transform(kCanvas, {m_page.width, m_page.height});
        for (int frame = 0; frame < (session ? kFrames : 1); ++frame) {
            m_views.push_back({&m_page, transform, -1, {}, {session, secondsOf(frame), {}}});
            m_ready.push_back(makeReady(m_views.back()));
        }
    }

    void paint(std::size_t frame)
    {
        QPainter painter(&m_image);
        PagePainter::paint(painter, m_image.rect(), m_views[frame % m_views.size()], m_texts);
    }

    void paintFloor(std::size_t frame)
    {
        QPainter painter(&m_image);
        paintReady(painter, m_views[0].transform.pageRect(), m_ready[frame % m_ready.size()]);
    }

    /// Whether both ways make the same picture, without which their times say nothing.
    [[nodiscard]] bool agrees()
    {
        for (std::size_t frame = 0; frame < m_views.size(); ++frame) {
            paint(frame);
            const QImage painted = m_image.copy();
            paintFloor(frame);
            if (painted != m_image)
                return false;
        }
        return true;
    }

private:
    DashPage m_page;
    QImage m_image;
    ElidedTexts m_texts;
    std::vector<PageView> m_views;
    std::vector<ReadyPage> m_ready;
};

void run(benchmark::State& state, const TelemetrySession* session,
         void (Scene::*paint)(std::size_t frame))
{
    Scene scene(static_cast<int>(state.range(0)), session);
    if (!scene.agrees()) {
        state.SkipWithError("canvas and floor paint different pictures");
        return;
    }
    std::size_t frame = 0;
    for ([[maybe_unused]] const auto iteration : state)
        (scene.*paint)(frame++);
    state.SetComplexityN(state.range(0));
}

void runLive(benchmark::State& state, void (Scene::*paint)(std::size_t frame))
{
    const Replay replay;
    if (replay.isLoaded())
        run(state, &replay.session(), paint);
    else
        state.SkipWithError("the recording does not load");
}

void pageFloor(benchmark::State& state)
{
    run(state, nullptr, &Scene::paintFloor);
}

void paintPage(benchmark::State& state)
{
    run(state, nullptr, &Scene::paint);
}

void liveFloor(benchmark::State& state)
{
    runLive(state, &Scene::paintFloor);
}

void paintLive(benchmark::State& state)
{
    runLive(state, &Scene::paint);
}

void sizes(benchmark::internal::Benchmark* program)
{
    program->Unit(benchmark::kMicrosecond)->Arg(10)->Arg(kTypicalPage)->Arg(100)->Arg(1000);
    program->Arg(kLargestPage)->Complexity(benchmark::oN);
}

BENCHMARK(pageFloor)->Apply(sizes);
BENCHMARK(paintPage)->Apply(sizes);
BENCHMARK(liveFloor)->Apply(sizes);
BENCHMARK(paintLive)->Apply(sizes);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
