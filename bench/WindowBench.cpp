// The insert dialog on a large document and the page list after a page came or went, each next to
// filling a list widget with ready texts and icons, which is the least that any program with this
// toolkit would have to do.

#include "app/PageListPanel.h"
#include "dialogs/AddElementDialog.h"
#include "document/DashboardDocument.h"
#include "tests/support/PackageBuilder.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <vector>

namespace {

constexpr int kPages = 500;
constexpr int kElementsPerPage = 20;
constexpr int kChannels = 5'000;
constexpr int kListedPages = 200;

/// What a user types and takes back again: all channels match, some, a few, none.
constexpr std::array kTyped{"t",       "te",       "tem",    "temp", "temp 4",
                            "temp 49", "temp 49x", "temp 4", ""};

QByteArray channelName(int index)
{
    constexpr std::array kNames{"Water Temp ", "Engine Speed ", "Throttle Position ", "Oil Temp "};
    return kNames.at(static_cast<std::size_t>(index) % kNames.size()) + QByteArray::number(index);
}

/// A document without an element that is a donor, except on its last page: all are looked at.
class LargeDocument
{
public:
    LargeDocument()
    {
        std::vector<TestPackage::Object> pages;
        for (int page = 0; page < kPages; ++page) {
            std::vector<TestPackage::Object> elements;
            for (int i = 1; i < kElementsPerPage; ++i)
                elements.push_back(TestPackage::labelElement("text", 0, 0, 80, 20, ""));
            elements.push_back(page + 1 < kPages
                                   ? TestPackage::labelElement("text", 0, 0, 80, 20, "")
                                   : TestPackage::digitElement("digit", 0, 0, 80, 20));
            pages.push_back(TestPackage::page("Page", 800, 480, std::move(elements)));
        }
        std::vector<TestPackage::Channel> channels;
        channels.reserve(kChannels);
        for (int i = 0; i < kChannels; ++i)
            channels.push_back({i + 1, channelName(i), "Ch" + QByteArray::number(i), "rpm"});
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("large.zconf2"));
        if (!TestPackage::writePackage(path, TestPackage::overlayXml(pages),
                                       TestPackage::deviceXml("MXS", 1, channels)) ||
            !document.open(path))
            qFatal("cannot make the document");
        QDir(document.tempDir()).removeRecursively();
    }

    DashboardDocument document;
};

DashboardDocument& document()
{
    static LargeDocument large;
    return large.document;
}

/// The texts that the channel list shows, made beforehand.
std::vector<QString> readyTexts()
{
    std::vector<QString> texts;
    for (const ChannelDef& channel : document().channels())
        texts.push_back(channel.longName + u"  (" + channel.shortName + u")  " + channel.uiv);
    return texts;
}

void addReadyItem(QListWidget& list, const QString& text, int index)
{
    auto* const item = new QListWidgetItem(text);
    item->setData(Qt::UserRole, index);
    list.addItem(item);
}

void openDialog(benchmark::State& state)
{
    document();
    for ([[maybe_unused]] const auto iteration : state) {
        const AddElementDialog dialog(&document(), nullptr);
        benchmark::DoNotOptimize(&dialog);
    }
}

void openDialogFloor(benchmark::State& state)
{
    const std::vector<QString> texts = readyTexts();
    for ([[maybe_unused]] const auto iteration : state) {
        QListWidget list;
        for (int i = 0; i < kChannels; ++i)
            addReadyItem(list, texts[static_cast<std::size_t>(i)], i);
        benchmark::DoNotOptimize(&list);
    }
}

/// One keystroke an iteration, until the list is laid out and painted again.
void filterKeystroke(benchmark::State& state)
{
    AddElementDialog dialog(&document(), nullptr);
    dialog.show();
    auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("filterEdit"));
    std::size_t stroke = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        edit->setText(QLatin1String(kTyped.at(stroke++ % kTyped.size())));
        QCoreApplication::processEvents();
    }
}

void filterKeystrokeFloor(benchmark::State& state)
{
    const std::vector<QString> texts = readyTexts();
    std::vector<QString> haystacks;
    haystacks.reserve(texts.size());
    for (const QString& text : texts)
        haystacks.push_back(text.toLower());
    QListWidget list;
    list.setUniformItemSizes(true);
    list.resize(440, 350);
    list.show();
    std::size_t stroke = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        const QString key = QLatin1String(kTyped.at(stroke++ % kTyped.size()));
        list.clear();
        for (int i = 0; i < kChannels; ++i) {
            if (haystacks[static_cast<std::size_t>(i)].contains(key))
                addReadyItem(list, texts[static_cast<std::size_t>(i)], i);
        }
        QCoreApplication::processEvents();
    }
}

std::vector<DashPage> pagesWithImages()
{
    std::vector<DashPage> pages(kListedPages);
    for (DashPage& page : pages) {
        page.name = QStringLiteral("Page");
        page.image = QPixmap(800, 480);
        page.image.fill(Qt::darkBlue);
    }
    return pages;
}

void refillPageList(benchmark::State& state)
{
    const std::vector<DashPage> pages = pagesWithImages();
    PageListPanel panel;
    panel.setPages(pages);
    for ([[maybe_unused]] const auto iteration : state)
        panel.setPages(pages);
}

/// As when a package has just been opened: every thumbnail is made.
void fillPageList(benchmark::State& state)
{
    const std::vector<DashPage> pages = pagesWithImages();
    for ([[maybe_unused]] const auto iteration : state) {
        PageListPanel panel;
        panel.setPages(pages);
    }
}

void refillPageListFloor(benchmark::State& state)
{
    QPixmap image(120, 72);
    image.fill(Qt::darkBlue);
    const std::vector<QIcon> icons(kListedPages, QIcon(image));
    QListWidget list;
    for ([[maybe_unused]] const auto iteration : state) {
        list.clear();
        for (const QIcon& icon : icons) {
            auto* const item = new QListWidgetItem(icon, QStringLiteral("Page"));
            item->setToolTip(QStringLiteral("Page"));
            list.addItem(item);
        }
        list.setCurrentRow(0);
    }
}

BENCHMARK(openDialog)->Unit(benchmark::kMillisecond);
BENCHMARK(openDialogFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(filterKeystroke)->Unit(benchmark::kMillisecond);
BENCHMARK(filterKeystrokeFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(refillPageList)->Unit(benchmark::kMillisecond);
BENCHMARK(refillPageListFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(fillPageList)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
