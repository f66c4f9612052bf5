#include "samples/packages/SamplePackage.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace SamplePackage;

namespace {

// Long name, short name and unit of each channel, and its usual range where that is not 0 to 100.
// "+" makes one channel for each wheel. Some names differ from a logger's spelling on purpose.
constexpr char kChannels[] = R"(
RPM|RPM|rpm|0 9000 7600 9000; Gear_Pos|Gear|gear|0 6; port rpm|P rpm|rpm|0 9000 7600 9000
stbd rpm|S rpm|rpm|0 9000 7600 9000; Throttle|TPS|%|0 100 100 100; Throttle Request|TPSr|%
Pedal Position|Ped|%; Clutch Position|Clu|%; Water Temp|WT|°C|40 130 110 130; Water Temp Out|WTo|°C
Water Press|WP|bar; Oil Temp|OT|°C|40 150 130 150; Oil Press|OP|bar|0 8 0 1.5; Oil Level|OL|mm
Gearbox Temp|GbT|°C|0 140; Gearbox Press|GbP|bar; Diff Temp|DfT|°C; Fuel Level|Fuel|l|0 60 0 6
Fuel Press|FP|bar|0 6 0 2.5; Fuel Temp|FT|°C; Fuel Used|FUsd|l; Fuel Lap|FLap|l
Fuel Flow|FFlw|l/h|0 80; Fuel Laps Left|FLft|laps; Battery|Batt|V|10 16; Battery Current|BatI|A
Alternator|Alt|V; ECU Temp|EcuT|°C; Logger Temp|LogT|°C; Lambda 1|Lam1|λ|0.7 1.3 1.15 1.3
Lambda 2|Lam2|λ; Lambda Target|LamT|λ; Ignition Advance|Ign|°; Injector Duty|InjD|%
Injection Time|InjT|ms; Manifold Press|MAP|kPa; Barometric Press|Baro|kPa
Airbox Temp|IAT|°C|0 80 60 80; Air Flow|MAF|g/s; Boost|Bst|bar; star boost|S bst|bar|0 2
port boost|P bst|bar; Boost Target|BstT|bar; Wastegate Duty|WgD|%; Turbo Speed|TrbS|krpm
Exhaust Temp 1|EGT1|°C; Exhaust Temp 2|EGT2|°C; Exhaust Temp 3|EGT3|°C; Exhaust Temp 4|EGT4|°C
Knock Level|Knk|%; Cam Position|Cam|°; Crankcase Press|CcP|mbar; Engine Hours|Hrs|h
Engine Torque|Trq|Nm; Engine Power|Pwr|kW; Brake Press F|BPF|bar|0 100 85 100
Brake Press R|BPR|bar|0 100 85 100; Brake Bias|Bias|%; Steering Angle|Str|°|-180 180
Steering Torque|StrT|Nm; Yaw Rate|Yaw|°/s; Roll Rate|Roll|°/s; Pitch Rate|Ptch|°/s
Inline Acc|AccX|g; Lateral Acc|AccY|g; Vertical Acc|AccZ|g; GPS Speed|GSpd|km/h|0 280 280 280
GPS LatAcc|GLat|g|-2 2 2 2; GPS LonAcc|GLon|g|-2 2 2 2; GPS Altitude|GAlt|m|0 400
GPS Heading|GHdg|°|0 360; GPS Gyro|GGyr|°/s; GPS Slope|GSlp|°; GPS Latitude|GLa|°|-90 90
GPS Longitude|GLo|°|-180 180; GPS Satellites|GSat|#|0 20 0 5; GPS Accuracy|GAcc|m
Lap Time|Lap|s|0 120; Lap Number|LapN|#|0 60; Best Lap|Best|s; Last Lap|Last|s
Predicted Lap|Pred|s; Delta to Best|Dlt|s; Sector Time|Sect|s; Sector Delta|SctD|s
Stint Time|Stnt|s; Pit Time|Pit|s|0 120; Session Time|Sess|s; Odometer|Odo|km
Trip Distance|Trip|km; Vehicle Speed|VSpd|km/h; Traction Control|TC|#; Traction Slip|Slip|%
ABS Setting|ABS|#; Engine Map|Map|#; Launch Control|Lnch|#; Pit Limiter|PitL|#
Power Steering Temp|PsT|°C; Power Steering Press|PsP|bar; Cockpit Temp|CpT|°C; Ambient Temp|Amb|°C
Track Temp|Trk|°C; Humidity|Hum|%; Rain Light|Rain|#; Headlights|Head|#; Drink Level|Drnk|%
Driver Heart Rate|HR|bpm; Alarm Code|Alm|#
+Wheel Speed|Ws|km/h; +Tyre Press|Tp|bar; +Tyre Temp|Tt|°C; +Tyre Temp Inner|Ti|°C
+Tyre Temp Outer|To|°C; +Brake Temp|Bt|°C; +Damper|Dmp|mm|0 60 52 60; +Damper Speed|DmpS|mm/s
+Ride Height|Rh|mm; +Wheel Load|Wl|N; +Pad Wear|Pw|%
)";

// A page is a line "page NAME COLOUR", with "bare" for no background, and lines of tiles:
// INSTRUMENT COLUMN ROW COLUMNS ROWS TITLE/CHANNEL/TONE/RANGE. The tone is Plain and the range is
// the channel's unless given. "*" labels the element.
constexpr auto kAnalog = R"(<e c="Analog"><p n="START_ANGLE">225</p><p n="SWEEP">270</p>)"_L1;
constexpr auto kBargraph = R"(<e c="BargraphTrapezio">)"_L1;
constexpr auto kIcon = R"(<e c="Icon">)"_L1;
constexpr Instrument kInstruments[] = {
    {"Dial"_L1, "gauge"_L1, kAnalog, false, 0.14, true, paintDial},
    {"Bar"_L1, "bar"_L1, kBargraph, false, 0, true, paintBar},
    {"BarReadout"_L1, "bar"_L1, kBargraph, false, 0.4, true, paintBar},
    {"Readout"_L1, "value"_L1, {}, false, 0.55, true},
    {"IconReadout"_L1, "value"_L1, {}, true, 0.55, true},
    {"Lamp"_L1, "lamp"_L1, kIcon, true, 0, false, paintLamp},
    {"Caption"_L1, "text"_L1},
    {"Strip"_L1, "text"_L1, {}, false, 0, false, paintStrip},
    {"TrackMap"_L1, {}, {}, false, 0, false, paintTrackMap},
    {"CarPlan"_L1, {}, {}, false, 0, false, paintCarPlan},
};

constexpr Tone kTones[] = {
    {"Plain"_L1, kWideFont, "0xffffffff"_L1},   {"Good"_L1, kWideFont, "0xff4cd964"_L1},
    {"Caution"_L1, kWideFont, "0xffffc233"_L1}, {"Alert"_L1, kWideFont, "0xffff5a4d"_L1},
    {"Info"_L1, kPlainFont, "0xff5ac8fa"_L1},   {"Dimmed"_L1, kPlainFont, "0xb4c8d2dc"_L1},
};

constexpr char kWideHeader[] =
    "Caption 5 0 2 1 CAR 12; Strip 7 0 5 1 LAP|POS|GAP; Lamp 12 0 1 1 OIL/Oil Press/Alert; "
    "Lamp 13 0 1 1 WTR/Water Temp/Alert*; Lamp 14 0 1 1 FUEL/Fuel Level/Caution; "
    "Lamp 15 0 1 1 BATT/Battery/Caution";
constexpr char kNarrowHeader[] = "Caption 5 0 5 1 CAR 12; Lamp 10 0 3 1 OIL/Oil Press/Alert; "
                                 "Lamp 13 0 3 1 FUEL/Fuel Level/Caution";

// Eight different pages with every kind of element.
constexpr char kClubRacing[] = R"(
page Race #ff9800
Readout 0 0 4 2 GEAR/Gear_Pos/Caution; Dial 4 0 4 4 ENGINE/RPM*; Readout 8 0 4 2 SPEED/GPS Speed*
Bar 0 2 4 1 THROTTLE/Throttle/Good; Bar 0 3 4 1 BRAKE/Brake Press F/Alert*
Readout 8 2 4 1 LAP TIME/Lap Time/Good; BarReadout 8 3 4 1 LATERAL/GPS LatAcc/Info
IconReadout 0 4 3 1 WATER/Water Temp*; IconReadout 3 4 3 1 OIL/Oil Temp*
IconReadout 6 4 3 1 OIL PRESSURE/Oil Press; BarReadout 9 4 3 1 FUEL/Fuel Level/Caution
Readout 0 5 3 1 BATTERY/Battery/Dimmed*; Readout 3 5 3 1 LAMBDA/Lambda 1/Dimmed
Readout 6 5 3 1 BOOST/star boost/Dimmed; Caption 9 5 3 1 PUSH 10 LAPS
page Qualifying #ab47bc
Readout 0 0 8 2 LAP TIME/Lap Time/Good*; Readout 8 0 4 1 GEAR/Gear_Pos/Caution
Readout 8 1 4 1 SPEED/GPS Speed*; BarReadout 0 2 12 1 ENGINE SPEED/RPM*
Bar 0 3 6 1 LATERAL/GPS LatAcc/Info; Bar 6 3 6 1 THROTTLE/Throttle/Good
Readout 0 4 3 2 BRAKE/Brake Press F/Alert; IconReadout 3 4 3 1 WATER/Water Temp*
IconReadout 3 5 3 1 OIL/Oil Temp*; Readout 6 4 3 1 LAMBDA/Lambda 1/Dimmed
Readout 6 5 3 1 BATTERY/Battery/Dimmed; Caption 9 4 3 1 TARGET 1:24.8; Strip 9 5 3 1 S1|S2|S3
page Warm-up #ffb74d bare
Caption 0 0 4 1 WATER; Caption 4 0 4 1 OIL; Caption 8 0 4 1 ENGINE
IconReadout 0 1 4 2 WATER/Water Temp/Caution*; IconReadout 4 1 4 2 OIL/Oil Temp/Caution*
Readout 8 1 4 2 ENGINE/RPM; Bar 0 3 4 1 WATER/Water Temp/Info; Bar 4 3 4 1 OIL/Oil Temp/Info
BarReadout 8 3 4 1 OIL PRESSURE/Oil Press/Good; Readout 0 4 3 1 BATTERY/Battery*
Readout 3 4 3 1 LAMBDA/Lambda 1; Readout 6 4 3 1 FUEL/Fuel Level*
Readout 9 4 3 1 THROTTLE/Throttle; Caption 0 5 6 1 NO MORE THAN 4000 BEFORE 70 °C
Strip 6 5 6 1 TYRES|BLANKETS|BRAKES
page Chassis #fdd835
CarPlan 4 0 4 6; Bar 0 2 4 1 FRONT BRAKES/Brake Press F/Alert*
Readout 8 2 4 1 STEERING/Steering Angle/Info*; Bar 0 5 4 1 REAR BRAKES/Brake Press R/Alert*
BarReadout 8 5 4 1 LATERAL/GPS LatAcc/Info; Readout 0 0 4 1 WHEEL SPEED/Wheel Speed FL
BarReadout 0 1 4 1 TRAVEL/Damper FL/Caution; Readout 8 0 4 1 WHEEL SPEED/Wheel Speed FR
BarReadout 8 1 4 1 TRAVEL/Damper FR/Caution; Readout 0 3 4 1 WHEEL SPEED/Wheel Speed RL
BarReadout 0 4 4 1 TRAVEL/Damper RL/Caution; Readout 8 3 4 1 WHEEL SPEED/Wheel Speed RR
BarReadout 8 4 4 1 TRAVEL/Damper RR/Caution
page Engine #00acc1
Dial 0 0 5 4 ENGINE/RPM*; Dial 5 0 3 2 WATER/Water Temp/Info*; Dial 5 2 3 2 OIL/Oil Temp/Caution*
Dial 8 0 4 3 OIL PRESSURE/Oil Press/Good; BarReadout 8 3 4 1 LAMBDA/Lambda 1/Info
BarReadout 0 4 4 1 PORT ENGINE/port rpm; BarReadout 4 4 4 1 STARBOARD ENGINE/stbd rpm
Readout 8 4 2 1 BATTERY/Battery/Good*; Readout 10 4 2 1 BOOST/star boost
Bar 0 5 4 1 THROTTLE/Throttle/Good*; Readout 4 5 2 1 GEARBOX/Gearbox Temp/Dimmed
Readout 6 5 2 1 AIRBOX/Airbox Temp/Dimmed; Caption 8 5 2 1 MAP 3
IconReadout 10 5 2 1 FUEL/Fuel Press
page Fuel #43a047
Dial 0 0 5 4 TANK/Fuel Level/Good*; Readout 5 0 4 2 FLOW/Fuel Flow/Caution*
Readout 9 0 3 1 LAP/Lap Number; Readout 9 1 3 1 SPEED/GPS Speed
BarReadout 5 2 7 1 ENGINE SPEED/RPM/Info*; Bar 5 3 7 1 PRESSURE/Fuel Press/Good
IconReadout 0 4 4 1 INTAKE AIR/Airbox Temp*; Readout 4 4 4 1 LAMBDA/Lambda 1/Dimmed
Readout 8 4 4 1 LAP TIME/Lap Time; Strip 0 5 8 1 RESERVE 4 l|STOP LAP 14|ADD 32 l
Caption 8 5 4 1 LIFT AND COAST
page GPS #1e88e5
TrackMap 0 0 6 5; Readout 6 0 6 2 SPEED/GPS Speed*; BarReadout 6 2 6 1 LATERAL/GPS LatAcc/Info*
BarReadout 6 3 6 1 LONGITUDINAL/GPS LonAcc/Info; Readout 6 4 3 1 ALTITUDE/GPS Altitude/Good*
Readout 9 4 3 1 HEADING/GPS Heading; Readout 0 5 3 1 LATITUDE/GPS Latitude/Dimmed
Readout 3 5 3 1 LONGITUDE/GPS Longitude/Dimmed; IconReadout 6 5 3 1 SATELLITES/GPS Satellites/Good
Readout 9 5 3 1 LAP TIME/Lap Time
page Pit #ec407a bare
Readout 0 0 6 3 PIT SPEED/GPS Speed/Alert*; Dial 6 0 6 3 ENGINE/RPM/Plain/0 9000 4000 9000*
Readout 0 3 4 1 PIT TIME/Pit Time/Caution; BarReadout 4 3 4 1 FUEL/Fuel Level/Good*
Readout 8 3 4 1 LAP/Lap Number; IconReadout 0 4 3 1 WATER/Water Temp
IconReadout 3 4 3 1 OIL/Oil Temp; Readout 6 4 3 1 THROTTLE/Throttle/Dimmed
Readout 9 4 3 1 BATTERY/Battery/Dimmed*; Caption 0 5 4 1 BOX 12
Strip 4 5 8 1 TYRES: SOFT|FUEL: 32 l|DRIVER: B
)";

constexpr char kCompact[] = R"(
page Drive #ff7043
Dial 0 0 3 3 ENGINE/RPM*; Readout 3 0 3 2 SPEED/GPS Speed*; Readout 3 2 3 1 GEAR/Gear_Pos/Caution
IconReadout 0 3 2 1 WATER/Water Temp; IconReadout 2 3 2 1 OIL/Oil Temp
BarReadout 4 3 2 1 FUEL/Fuel Level/Good
page Laps #7e57c2
Readout 0 0 6 2 LAP TIME/Lap Time/Good*; Bar 0 2 3 1 THROTTLE/Throttle/Good
Bar 3 2 3 1 BRAKE/Brake Press F/Alert; Readout 0 3 3 1 SPEED/GPS Speed
BarReadout 3 3 3 1 LATERAL/GPS LatAcc/Info
page Health #26a69a
Dial 0 0 3 2 WATER/Water Temp/Info; Dial 3 0 3 2 OIL/Oil Temp/Caution
BarReadout 0 2 3 1 OIL PRESSURE/Oil Press/Good; Readout 3 2 3 1 BATTERY/Battery*
Readout 0 3 3 1 LAMBDA/Lambda 1/Dimmed; Caption 3 3 3 1 SERVICE 20 h
page Grid #78909c bare
Readout 0 0 6 2 ENGINE/RPM/Alert*; Readout 0 2 3 1 THROTTLE/Throttle/Info
Readout 3 2 3 1 GEAR/Gear_Pos/Caution*; Strip 0 3 6 1 LAUNCH|4800|READY
)";

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
    QString text = QString::fromUtf8(kChannels).trimmed().replace(u'\n', "; "_L1);
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

QRect SamplePackage::nameBand(const Package& package)
{
    return cellRect(package, true, {0, 0, 5, 1});
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
    addPages(packages[0], QString::fromUtf8(kClubRacing));
    addPages(packages[1], QString::fromUtf8(kCompact));
    addPages(packages[2], enduranceText(packages[2].grid));
    return packages;
}
