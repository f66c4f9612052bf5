#include "samples/packages/ChannelTable.h"

#include <QtGlobal>

#include <algorithm>
#include <array>

namespace {

constexpr int kFirstFid = 101;

struct Row
{
    const char* longName;
    const char* shortName;
    const char* unit;
};

// Some names are deliberately not spelled as a logger spells them in a recording: the preview has
// to find its way from one to the other.
constexpr std::array kRows{
    Row{"RPM", "RPM", "rpm"},
    Row{"Gear_Pos", "Gear", "gear"},
    Row{"port rpm", "P rpm", "rpm"},
    Row{"stbd rpm", "S rpm", "rpm"},
    Row{"Throttle", "TPS", "%"},
    Row{"Throttle Request", "TPSr", "%"},
    Row{"Pedal Position", "Ped", "%"},
    Row{"Clutch Position", "Clu", "%"},
    Row{"Water Temp", "WT", "°C"},
    Row{"Water Temp Out", "WTo", "°C"},
    Row{"Water Press", "WP", "bar"},
    Row{"Oil Temp", "OT", "°C"},
    Row{"Oil Press", "OP", "bar"},
    Row{"Oil Level", "OL", "mm"},
    Row{"Gearbox Temp", "GbT", "°C"},
    Row{"Gearbox Press", "GbP", "bar"},
    Row{"Diff Temp", "DfT", "°C"},
    Row{"Fuel Level", "Fuel", "l"},
    Row{"Fuel Press", "FP", "bar"},
    Row{"Fuel Temp", "FT", "°C"},
    Row{"Fuel Used", "FUsd", "l"},
    Row{"Fuel Lap", "FLap", "l"},
    Row{"Fuel Flow", "FFlw", "l/h"},
    Row{"Fuel Laps Left", "FLft", "laps"},
    Row{"Battery", "Batt", "V"},
    Row{"Battery Current", "BatI", "A"},
    Row{"Alternator", "Alt", "V"},
    Row{"ECU Temp", "EcuT", "°C"},
    Row{"Logger Temp", "LogT", "°C"},
    Row{"Lambda 1", "Lam1", "λ"},
    Row{"Lambda 2", "Lam2", "λ"},
    Row{"Lambda Target", "LamT", "λ"},
    Row{"Ignition Advance", "Ign", "°"},
    Row{"Injector Duty", "InjD", "%"},
    Row{"Injection Time", "InjT", "ms"},
    Row{"Manifold Press", "MAP", "kPa"},
    Row{"Barometric Press", "Baro", "kPa"},
    Row{"Airbox Temp", "IAT", "°C"},
    Row{"Air Flow", "MAF", "g/s"},
    Row{"Boost", "Bst", "bar"},
    Row{"star boost", "S bst", "bar"},
    Row{"port boost", "P bst", "bar"},
    Row{"Boost Target", "BstT", "bar"},
    Row{"Wastegate Duty", "WgD", "%"},
    Row{"Turbo Speed", "TrbS", "krpm"},
    Row{"Exhaust Temp 1", "EGT1", "°C"},
    Row{"Exhaust Temp 2", "EGT2", "°C"},
    Row{"Exhaust Temp 3", "EGT3", "°C"},
    Row{"Exhaust Temp 4", "EGT4", "°C"},
    Row{"Knock Level", "Knk", "%"},
    Row{"Cam Position", "Cam", "°"},
    Row{"Crankcase Press", "CcP", "mbar"},
    Row{"Engine Hours", "Hrs", "h"},
    Row{"Engine Torque", "Trq", "Nm"},
    Row{"Engine Power", "Pwr", "kW"},
    Row{"Brake Press F", "BPF", "bar"},
    Row{"Brake Press R", "BPR", "bar"},
    Row{"Brake Bias", "Bias", "%"},
    Row{"Steering Angle", "Str", "°"},
    Row{"Steering Torque", "StrT", "Nm"},
    Row{"Yaw Rate", "Yaw", "°/s"},
    Row{"Roll Rate", "Roll", "°/s"},
    Row{"Pitch Rate", "Ptch", "°/s"},
    Row{"Inline Acc", "AccX", "g"},
    Row{"Lateral Acc", "AccY", "g"},
    Row{"Vertical Acc", "AccZ", "g"},
    Row{"GPS Speed", "GSpd", "km/h"},
    Row{"GPS LatAcc", "GLat", "g"},
    Row{"GPS LonAcc", "GLon", "g"},
    Row{"GPS Altitude", "GAlt", "m"},
    Row{"GPS Heading", "GHdg", "°"},
    Row{"GPS Gyro", "GGyr", "°/s"},
    Row{"GPS Slope", "GSlp", "°"},
    Row{"GPS Latitude", "GLa", "°"},
    Row{"GPS Longitude", "GLo", "°"},
    Row{"GPS Satellites", "GSat", "#"},
    Row{"GPS Accuracy", "GAcc", "m"},
    Row{"Lap Time", "Lap", "s"},
    Row{"Lap Number", "LapN", "#"},
    Row{"Best Lap", "Best", "s"},
    Row{"Last Lap", "Last", "s"},
    Row{"Predicted Lap", "Pred", "s"},
    Row{"Delta to Best", "Dlt", "s"},
    Row{"Sector Time", "Sect", "s"},
    Row{"Sector Delta", "SctD", "s"},
    Row{"Stint Time", "Stnt", "s"},
    Row{"Pit Time", "Pit", "s"},
    Row{"Session Time", "Sess", "s"},
    Row{"Odometer", "Odo", "km"},
    Row{"Trip Distance", "Trip", "km"},
    Row{"Vehicle Speed", "VSpd", "km/h"},
    Row{"Traction Control", "TC", "#"},
    Row{"Traction Slip", "Slip", "%"},
    Row{"ABS Setting", "ABS", "#"},
    Row{"Engine Map", "Map", "#"},
    Row{"Launch Control", "Lnch", "#"},
    Row{"Pit Limiter", "PitL", "#"},
    Row{"Power Steering Temp", "PsT", "°C"},
    Row{"Power Steering Press", "PsP", "bar"},
    Row{"Cockpit Temp", "CpT", "°C"},
    Row{"Ambient Temp", "Amb", "°C"},
    Row{"Track Temp", "Trk", "°C"},
    Row{"Humidity", "Hum", "%"},
    Row{"Rain Light", "Rain", "#"},
    Row{"Headlights", "Head", "#"},
    Row{"Drink Level", "Drnk", "%"},
    Row{"Driver Heart Rate", "HR", "bpm"},
    Row{"Alarm Code", "Alm", "#"},
};

// One channel for each wheel; the corner is appended to both names.
constexpr std::array kCornerRows{
    Row{"Wheel Speed", "Ws", "km/h"},   Row{"Tyre Press", "Tp", "bar"},
    Row{"Tyre Temp", "Tt", "°C"},       Row{"Tyre Temp Inner", "Ti", "°C"},
    Row{"Tyre Temp Outer", "To", "°C"}, Row{"Brake Temp", "Bt", "°C"},
    Row{"Damper", "Dmp", "mm"},         Row{"Damper Speed", "DmpS", "mm/s"},
    Row{"Ride Height", "Rh", "mm"},     Row{"Wheel Load", "Wl", "N"},
    Row{"Pad Wear", "Pw", "%"},
};
constexpr std::array kCorners{"FL", "FR", "RL", "RR"};

void append(std::vector<ChannelDef>& channels, const Row& row, const QString& suffix)
{
    ChannelDef channel;
    channel.fid = kFirstFid + static_cast<int>(channels.size());
    channel.longName = QString::fromUtf8(row.longName) + suffix;
    channel.shortName = QString::fromUtf8(row.shortName) + suffix.trimmed();
    channel.labelLongName = channel.longName;
    channel.uiv = QString::fromUtf8(row.unit);
    channels.push_back(channel);
}

std::vector<ChannelDef> buildChannels()
{
    std::vector<ChannelDef> channels;
    for (const Row& row : kRows)
        append(channels, row, QString());
    for (const Row& row : kCornerRows) {
        for (const char* corner : kCorners)
            append(channels, row, u' ' + QString::fromLatin1(corner));
    }
    return channels;
}

} // namespace

const std::vector<ChannelDef>& ChannelTable::channels()
{
    static const std::vector<ChannelDef> all = buildChannels();
    return all;
}

const ChannelDef& ChannelTable::channel(const std::string& longName)
{
    const QString name = QString::fromStdString(longName);
    const auto found = std::find_if(channels().begin(), channels().end(),
                                    [&](const ChannelDef& row) { return row.longName == name; });
    if (found == channels().end())
        qFatal("no such channel: %s", longName.c_str());
    return *found;
}
