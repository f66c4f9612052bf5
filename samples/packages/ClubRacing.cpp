#include "samples/packages/SamplePackages.h"

using SampleLayout::Package;
using SampleLayout::Page;
using SampleLayout::Sheet;
using enum SampleLayout::Instrument;
using enum SampleLayout::Tone;

namespace {

Page race()
{
    Page page{"Race", QColor(0xff, 0x98, 0x00)};
    page.tiles = {
        {Readout, {0, 0, 4, 2}, "GEAR", "Gear_Pos", {0, 6}, Caution},
        {Dial, {4, 0, 4, 4}, "ENGINE", "RPM", {0, 9000, 7600, 9000}, Plain, true},
        {Readout, {8, 0, 4, 2}, "SPEED", "GPS Speed", {0, 280}, Plain, true},
        {Bar, {0, 2, 4, 1}, "THROTTLE", "Throttle", {0, 100, 100, 100}, Good},
        {Bar, {0, 3, 4, 1}, "BRAKE", "Brake Press F", {0, 100, 85, 100}, Alert, true},
        {Readout, {8, 2, 4, 1}, "LAP TIME", "Lap Time", {0, 120}, Good},
        {BarReadout, {8, 3, 4, 1}, "LATERAL", "GPS LatAcc", {-2, 2, 2, 2}, Info},
        {IconReadout, {0, 4, 3, 1}, "WATER", "Water Temp", {40, 130, 110, 130}, Plain, true},
        {IconReadout, {3, 4, 3, 1}, "OIL", "Oil Temp", {40, 150, 130, 150}, Plain, true},
        {IconReadout, {6, 4, 3, 1}, "OIL PRESSURE", "Oil Press", {0, 8, 0, 1.5}},
        {BarReadout, {9, 4, 3, 1}, "FUEL", "Fuel Level", {0, 60, 0, 6}, Caution},
        {Readout, {0, 5, 3, 1}, "BATTERY", "Battery", {10, 16, 10, 11.5}, Dimmed, true},
        {Readout, {3, 5, 3, 1}, "LAMBDA", "Lambda 1", {0.7, 1.3}, Dimmed},
        {Readout, {6, 5, 3, 1}, "BOOST", "star boost", {0, 2}, Dimmed},
        {Caption, {9, 5, 3, 1}, "PUSH 10 LAPS"},
    };
    return page;
}

Page qualifying()
{
    Page page{"Qualifying", QColor(0xab, 0x47, 0xbc)};
    page.tiles = {
        {Readout, {0, 0, 8, 2}, "LAP TIME", "Lap Time", {0, 120}, Good, true},
        {Readout, {8, 0, 4, 1}, "GEAR", "Gear_Pos", {0, 6}, Caution},
        {Readout, {8, 1, 4, 1}, "SPEED", "GPS Speed", {0, 280}, Plain, true},
        {BarReadout, {0, 2, 12, 1}, "ENGINE SPEED", "RPM", {0, 9000, 7600, 9000}, Plain, true},
        {Bar, {0, 3, 6, 1}, "LATERAL", "GPS LatAcc", {-2, 2, 2, 2}, Info},
        {Bar, {6, 3, 6, 1}, "THROTTLE", "Throttle", {0, 100, 100, 100}, Good},
        {Readout, {0, 4, 3, 2}, "BRAKE", "Brake Press F", {0, 100}, Alert},
        {IconReadout, {3, 4, 3, 1}, "WATER", "Water Temp", {40, 130, 110, 130}, Plain, true},
        {IconReadout, {3, 5, 3, 1}, "OIL", "Oil Temp", {40, 150, 130, 150}, Plain, true},
        {Readout, {6, 4, 3, 1}, "LAMBDA", "Lambda 1", {0.7, 1.3}, Dimmed},
        {Readout, {6, 5, 3, 1}, "BATTERY", "Battery", {10, 16}, Dimmed},
        {Caption, {9, 4, 3, 1}, "TARGET 1:24.8"},
        {Strip, {9, 5, 3, 1}, "S1|S2|S3"},
    };
    return page;
}

Page warmUp()
{
    Page page{"Warm-up", QColor(0xff, 0xb7, 0x4d)};
    page.hasBackground = false;
    page.tiles = {
        {Caption, {0, 0, 4, 1}, "WATER"},
        {Caption, {4, 0, 4, 1}, "OIL"},
        {Caption, {8, 0, 4, 1}, "ENGINE"},
        {IconReadout, {0, 1, 4, 2}, "WATER", "Water Temp", {40, 130, 110, 130}, Caution, true},
        {IconReadout, {4, 1, 4, 2}, "OIL", "Oil Temp", {40, 150, 130, 150}, Caution, true},
        {Readout, {8, 1, 4, 2}, "ENGINE", "RPM", {0, 9000}, Plain},
        {Bar, {0, 3, 4, 1}, "WATER", "Water Temp", {40, 130, 110, 130}, Info},
        {Bar, {4, 3, 4, 1}, "OIL", "Oil Temp", {40, 150, 130, 150}, Info},
        {BarReadout, {8, 3, 4, 1}, "OIL PRESSURE", "Oil Press", {0, 8, 0, 1.5}, Good},
        {Readout, {0, 4, 3, 1}, "BATTERY", "Battery", {10, 16}, Plain, true},
        {Readout, {3, 4, 3, 1}, "LAMBDA", "Lambda 1", {0.7, 1.3}},
        {Readout, {6, 4, 3, 1}, "FUEL", "Fuel Level", {0, 60}, Plain, true},
        {Readout, {9, 4, 3, 1}, "THROTTLE", "Throttle", {0, 100}},
        {Caption, {0, 5, 6, 1}, "NO MORE THAN 4000 BEFORE 70 °C"},
        {Strip, {6, 5, 6, 1}, "TYRES|BLANKETS|BRAKES"},
    };
    return page;
}

Page chassis()
{
    Page page{"Chassis", QColor(0xfd, 0xd8, 0x35)};
    page.tiles = {
        {CarPlan, {4, 0, 4, 6}},
        {Bar, {0, 2, 4, 1}, "FRONT BRAKES", "Brake Press F", {0, 100, 85, 100}, Alert, true},
        {Readout, {8, 2, 4, 1}, "STEERING", "Steering Angle", {-180, 180}, Info, true},
        {Bar, {0, 5, 4, 1}, "REAR BRAKES", "Brake Press R", {0, 100, 85, 100}, Alert, true},
        {BarReadout, {8, 5, 4, 1}, "LATERAL", "GPS LatAcc", {-2, 2, 2, 2}, Info},
    };
    const struct
    {
        int column;
        int row;
        std::string name;
    } corners[] = {{0, 0, " FL"}, {8, 0, " FR"}, {0, 3, " RL"}, {8, 3, " RR"}};
    for (const auto& [x, y, name] : corners) {
        page.tiles.push_back({Readout, {x, y, 4, 1}, "WHEEL SPEED", "Wheel Speed" + name});
        page.tiles.push_back(
            {BarReadout, {x, y + 1, 4, 1}, "TRAVEL", "Damper" + name, {0, 60, 52, 60}, Caution});
    }
    return page;
}

Page engine()
{
    Page page{"Engine", QColor(0x00, 0xac, 0xc1)};
    page.tiles = {
        {Dial, {0, 0, 5, 4}, "ENGINE", "RPM", {0, 9000, 7600, 9000}, Plain, true},
        {Dial, {5, 0, 3, 2}, "WATER", "Water Temp", {40, 130, 110, 130}, Info, true},
        {Dial, {5, 2, 3, 2}, "OIL", "Oil Temp", {40, 150, 130, 150}, Caution, true},
        {Dial, {8, 0, 4, 3}, "OIL PRESSURE", "Oil Press", {0, 8, 0, 1.5}, Good},
        {BarReadout, {8, 3, 4, 1}, "LAMBDA", "Lambda 1", {0.7, 1.3, 1.15, 1.3}, Info},
        {BarReadout, {0, 4, 4, 1}, "PORT ENGINE", "port rpm", {0, 9000, 7600, 9000}, Plain},
        {BarReadout, {4, 4, 4, 1}, "STARBOARD ENGINE", "stbd rpm", {0, 9000, 7600, 9000}, Plain},
        {Readout, {8, 4, 2, 1}, "BATTERY", "Battery", {10, 16}, Good, true},
        {Readout, {10, 4, 2, 1}, "BOOST", "star boost", {0, 2}},
        {Bar, {0, 5, 4, 1}, "THROTTLE", "Throttle", {0, 100, 100, 100}, Good, true},
        {Readout, {4, 5, 2, 1}, "GEARBOX", "Gearbox Temp", {0, 140}, Dimmed},
        {Readout, {6, 5, 2, 1}, "AIRBOX", "Airbox Temp", {0, 80}, Dimmed},
        {Caption, {8, 5, 2, 1}, "MAP 3"},
        {IconReadout, {10, 5, 2, 1}, "FUEL", "Fuel Press", {0, 6, 0, 2.5}},
    };
    return page;
}

Page fuel()
{
    Page page{"Fuel", QColor(0x43, 0xa0, 0x47)};
    page.tiles = {
        {Dial, {0, 0, 5, 4}, "TANK", "Fuel Level", {0, 60, 0, 6}, Good, true},
        {Readout, {5, 0, 4, 2}, "FLOW", "Fuel Flow", {0, 80}, Caution, true},
        {Readout, {9, 0, 3, 1}, "LAP", "Lap Number", {0, 60}},
        {Readout, {9, 1, 3, 1}, "SPEED", "GPS Speed", {0, 280}},
        {BarReadout, {5, 2, 7, 1}, "ENGINE SPEED", "RPM", {0, 9000, 7600, 9000}, Info, true},
        {Bar, {5, 3, 7, 1}, "PRESSURE", "Fuel Press", {0, 6, 0, 2.5}, Good},
        {IconReadout, {0, 4, 4, 1}, "INTAKE AIR", "Airbox Temp", {0, 80, 60, 80}, Plain, true},
        {Readout, {4, 4, 4, 1}, "LAMBDA", "Lambda 1", {0.7, 1.3}, Dimmed},
        {Readout, {8, 4, 4, 1}, "LAP TIME", "Lap Time", {0, 120}, Plain},
        {Strip, {0, 5, 8, 1}, "RESERVE 4 l|STOP LAP 14|ADD 32 l"},
        {Caption, {8, 5, 4, 1}, "LIFT AND COAST"},
    };
    return page;
}

Page gps()
{
    Page page{"GPS", QColor(0x1e, 0x88, 0xe5)};
    page.tiles = {
        {TrackMap, {0, 0, 6, 5}},
        {Readout, {6, 0, 6, 2}, "SPEED", "GPS Speed", {0, 280}, Plain, true},
        {BarReadout, {6, 2, 6, 1}, "LATERAL", "GPS LatAcc", {-2, 2, 2, 2}, Info, true},
        {BarReadout, {6, 3, 6, 1}, "LONGITUDINAL", "GPS LonAcc", {-2, 2, 2, 2}, Info},
        {Readout, {6, 4, 3, 1}, "ALTITUDE", "GPS Altitude", {0, 400}, Good, true},
        {Readout, {9, 4, 3, 1}, "HEADING", "GPS Heading", {0, 360}},
        {Readout, {0, 5, 3, 1}, "LATITUDE", "GPS Latitude", {-90, 90}, Dimmed},
        {Readout, {3, 5, 3, 1}, "LONGITUDE", "GPS Longitude", {-180, 180}, Dimmed},
        {IconReadout, {6, 5, 3, 1}, "SATELLITES", "GPS Satellites", {0, 20, 0, 5}, Good},
        {Readout, {9, 5, 3, 1}, "LAP TIME", "Lap Time", {0, 120}},
    };
    return page;
}

Page pit()
{
    Page page{"Pit", QColor(0xec, 0x40, 0x7a)};
    page.hasBackground = false;
    page.tiles = {
        {Readout, {0, 0, 6, 3}, "PIT SPEED", "GPS Speed", {0, 280}, Alert, true},
        {Dial, {6, 0, 6, 3}, "ENGINE", "RPM", {0, 9000, 4000, 9000}, Plain, true},
        {Readout, {0, 3, 4, 1}, "PIT TIME", "Pit Time", {0, 120}, Caution},
        {BarReadout, {4, 3, 4, 1}, "FUEL", "Fuel Level", {0, 60, 0, 6}, Good, true},
        {Readout, {8, 3, 4, 1}, "LAP", "Lap Number", {0, 60}},
        {IconReadout, {0, 4, 3, 1}, "WATER", "Water Temp", {40, 130, 110, 130}},
        {IconReadout, {3, 4, 3, 1}, "OIL", "Oil Temp", {40, 150, 130, 150}},
        {Readout, {6, 4, 3, 1}, "THROTTLE", "Throttle", {0, 100}, Dimmed},
        {Readout, {9, 4, 3, 1}, "BATTERY", "Battery", {10, 16}, Dimmed, true},
        {Caption, {0, 5, 4, 1}, "BOX 12"},
        {Strip, {4, 5, 8, 1}, "TYRES: SOFT|FUEL: 32 l|DRIVER: B"},
    };
    return page;
}

} // namespace

Package SamplePackages::clubRacing()
{
    const Sheet sheet{{800, 480}, 44, 6, 16};
    return {"club-racing.zconf2",
            "Club racing",
            "MXS",
            1201,
            "layout",
            sheet,
            {race(), qualifying(), warmUp(), chassis(), engine(), fuel(), gps(), pit()}};
}
