#include "samples/packages/SamplePackage.h"

#include <QRegularExpression>
#include <QResource>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace SamplePackage;

namespace {

// The XML of the words that the layouts use.
constexpr auto kAnalog = R"(<e c="Analog"><p n="START_ANGLE">225</p><p n="SWEEP">270</p>)"_L1;
constexpr auto kBargraph = R"(<e c="BargraphTrapezio">)"_L1;
constexpr auto kIcon = R"(<e c="Icon">)"_L1;
constexpr Instrument kInstruments[] = {
    {"Dial"_L1, "gauge"_L1, kAnalog, 0.14, paintDial, true},
    {"Bar"_L1, "bar"_L1, kBargraph, 0, paintBar, true},
    {"BarReadout"_L1, "bar"_L1, kBargraph, 0.4, paintBar, true},
    {"Readout"_L1, "value"_L1, {}, 0.55, nullptr, true},
    {"IconReadout"_L1, "value"_L1, {}, 0.55, nullptr, true, true},
    {"Lamp"_L1, "lamp"_L1, kIcon, 0, paintLamp, false, true},
    {"Caption"_L1, "text"_L1},
    {"Strip"_L1, "text"_L1, {}, 0, paintStrip},
    {"TrackMap"_L1, {}, {}, 0, paintTrackMap},
    {"CarPlan"_L1, {}, {}, 0, paintCarPlan},
};

constexpr Tone kTones[] = {
    {"Plain"_L1, kWideFont, "0xffffffff"_L1},   {"Good"_L1, kWideFont, "0xff4cd964"_L1},
    {"Caution"_L1, kWideFont, "0xffffc233"_L1}, {"Alert"_L1, kWideFont, "0xffff5a4d"_L1},
    {"Info"_L1, kPlainFont, "0xff5ac8fa"_L1},   {"Dimmed"_L1, kPlainFont, "0xb4c8d2dc"_L1},
};

// Tiles of the header of every page, written as in the layouts.
constexpr char kWideHeader[] =
    "Caption 5 0 2 1 CAR 12; Strip 7 0 5 1 LAP|POS|GAP; Lamp 12 0 1 1 OIL/Oil Press/Alert; "
    "Lamp 13 0 1 1 WTR/Water Temp/Alert*; Lamp 14 0 1 1 FUEL/Fuel Level/Caution; "
    "Lamp 15 0 1 1 BATT/Battery/Caution";
constexpr char kNarrowHeader[] = "Caption 5 0 5 1 CAR 12; Lamp 10 0 3 1 OIL/Oil Press/Alert; "
                                 "Lamp 13 0 3 1 FUEL/Fuel Level/Caution";

// A data file of this folder, without its comments.
QString readData(const QString& name)
{
    static const QRegularExpression comment(u"^#.*\n"_s, QRegularExpression::MultilineOption);
    QString text = QString::fromUtf8(QResource(u":/"_s + name).uncompressedData());
    return text.remove(comment).trimmed();
}

// Where a cell is: its column, row, columns and rows, in the header or in the grid of the page.
QRect cellRect(const Package& package, bool inHeader, const QList<int>& cell)
{
    const int gap = package.gap;
    const int top = inHeader ? 0 : package.header;
    const int bottom = inHeader ? package.header : package.size.height();
    const QSize grid = inHeader ? QSize(16, 1) : package.grid;
    const auto x = [&](int column) {
        return gap + column * (package.size.width() - gap) / grid.width();
    };
    const auto y = [&](int row) { return top + gap + row * (bottom - top - gap) / grid.height(); };
    const QPoint corner(x(cell[0]), y(cell[1]));
    return {corner, QPoint(x(cell[0] + cell[2]) - gap - 1, y(cell[1] + cell[3]) - gap - 1)};
}

// "MINIMUM MAXIMUM", and the zone if it is drawn.
Range parseRange(const QString& text)
{
    const QStringList numbers = QString(text + u" 100 100"_s).split(u' ');
    return {numbers[0].toDouble(), numbers[1].toDouble(), numbers[2].toDouble(),
            numbers[3].toDouble()};
}

std::vector<Channel> parseChannels()
{
    static const QRegularExpression wheels(uR"(\+([^|]*)\|([^|]*)\|([^;]*))"_s);
    QString text = readData(u"channels.txt"_s).replace(u'\n', "; "_L1);
    text.replace(wheels, uR"(\1 FL|\2FL|\3; \1 FR|\2FR|\3; \1 RL|\2RL|\3; \1 RR|\2RR|\3)"_s);
    std::vector<Channel> channels;
    for (const QString& entry : text.split("; "_L1)) {
        constexpr int kFirstFid = 101;
        const QStringList fields = entry.split(u'|');
        const int fid = kFirstFid + static_cast<int>(channels.size());
        channels.push_back({{fid, fields[0], fields[1], fields[0], fields[2]},
                            parseRange(fields.value(3, u"0 100"_s))});
    }
    return channels;
}

// The row of a table with that name, which is in the given member.
template <typename Table, typename Member>
auto* find(const Table& table, Member name, const QString& wanted)
{
    const auto row = std::find_if(std::begin(table), std::end(table),
                                  [&](const auto& each) { return each.*name == wanted; });
    if (row == std::end(table))
        qFatal("no such word in a layout: %s", qPrintable(wanted));
    return &*row;
}

Tile parseTile(const Package& package, const QString& text, bool inHeader)
{
    const bool starred = text.endsWith(u'*');
    const QStringList fields = text.chopped(starred ? 1 : 0).split(u'/');
    const QStringList words = fields[0].split(u' ');
    Tile tile;
    tile.accent = package.pages.back().accent;
    tile.instrument = find(kInstruments, &Instrument::name, words[0]);
    tile.title = words.mid(5).join(u' ');
    tile.tone = find(kTones, &Tone::name, fields.value(2, u"Plain"_s));
    if (fields.size() > 1)
        tile.channel = find(channels(), &Channel::longName, fields[1]);
    tile.labelled = starred || !tile.channel;
    if (fields.size() > 3)
        tile.range = parseRange(fields[3]);
    else if (tile.instrument->hasTitleBand)
        tile.range = tile.channel->range;
    tile.bezel = cellRect(package, inHeader,
                          {words[1].toInt(), words[2].toInt(), words[3].toInt(), words[4].toInt()});
    const int inset = tile.instrument->element.isEmpty() ? 4 : package.gap / 2;
    tile.field = tile.bezel.adjusted(inset, inset, -inset, -inset);
    if (tile.instrument->hasTitleBand)
        tile.field.setTop(tile.bezel.top() + package.titleBand);
    return tile;
}

// Adds the pages, each with the tiles of the header first.
void addPages(Package& package, const QString& text)
{
    package.nameBand = cellRect(package, true, {0, 0, 5, 1});
    const QString header =
        QString::fromUtf8(package.size.width() < 480 ? kNarrowHeader : kWideHeader);
    for (const QString& line : text.trimmed().split(u'\n')) {
        const bool newPage = line.startsWith("page "_L1);
        if (newPage) {
            const QStringList words = line.split(u'#');
            const QColor accent(u'#' + words[1].left(6));
            package.pages.push_back({words[0].mid(5).trimmed(), accent, !line.endsWith("bare"_L1)});
        }
        for (const QString& tile : (newPage ? header : line).split("; "_L1))
            package.pages.back().tiles.push_back(parseTile(package, tile, newPage));
    }
}

// Crowded pages: two dials each, and small tiles for all channels in turn.
QString enduranceText(const QSize& grid)
{
    const QStringList names =
        u"Start|Stint 1|Stint 2|Stint 3|Night|Rain|Safety car|Traffic|Engine|Cooling|"
        "Gearbox|Fuel|Electric|Brakes|Tyres|Dampers|Body|Driver|Timing|Box"_s.split(u'|');
    const QStringList instruments =
        u"Readout Readout Bar BarReadout Readout IconReadout Caption"_s.split(u' ');
    const QStringList tones = u"Plain Good Plain Info Dimmed Caution"_s.split(u' ');
    const auto count = static_cast<int>(channels().size());
    QString text;
    int serial = 0;
    for (int page = 0; page < 20; ++page) {
        text += u"page %1 %2\nDial 0 0 2 2 ENGINE/RPM*; Dial 8 0 2 2 SPEED/GPS Speed*\n"_s.arg(
            names[page], QColor::fromHsv(18 * page, 190, 220).name());
        for (int cell = 0; cell < grid.width() * grid.height(); ++cell) {
            const int row = cell / grid.width();
            const int column = cell % grid.width();
            if (row < 2 && (column < 2 || column >= 8))
                continue; // a dial is there
            const Channel& channel = channels()[static_cast<std::size_t>(serial % count)];
            const QString& instrument = instruments[serial % instruments.size()];
            text += u"%1 %2 %3 1 1 "_s.arg(instrument).arg(column).arg(row) + channel.shortName;
            if (instrument != "Caption"_L1)
                text += u"/%1/%2/0 100 85 100"_s.arg(channel.longName, tones[serial % 6]) +
                        (serial % 3 == 0 ? "*"_L1 : ""_L1);
            text += u'\n';
            ++serial;
        }
    }
    return text;
}

} // namespace

const std::vector<Channel>& SamplePackage::channels()
{
    static const std::vector<Channel> all = parseChannels();
    return all;
}

std::vector<Package> SamplePackage::all()
{
    std::vector<Package> packages = {
        {"club-racing.zconf2"_L1, "Club racing"_L1, "MXS"_L1, 1201, "layout"_L1, QSize(800, 480),
         44, 6, 16, QSize(12, 6)},
        {"compact.zconf2"_L1, "Compact"_L1, "LIG"_L1, 310, ""_L1, QSize(320, 240), 26, 3, 12,
         QSize(6, 4)},
        {"endurance-large.zconf2"_L1, "Endurance"_L1, "MXG"_L1, 1010, "layout"_L1, QSize(1024, 600),
         48, 6, 16, QSize(10, 6)},
    };
    addPages(packages[0], readData(u"club-racing.txt"_s));
    addPages(packages[1], readData(u"compact.txt"_s));
    addPages(packages[2], enduranceText(packages[2].grid));
    return packages;
}
