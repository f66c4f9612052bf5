#include "samples/packages/SamplePackages.h"

using SampleLayout::Package;
using SampleLayout::Page;
using SampleLayout::Sheet;
using enum SampleLayout::Instrument;
using enum SampleLayout::Tone;

namespace {

constexpr int kColumns = 6;
constexpr int kRows = 4;

Page drive()
{
    Page page{"Drive", QColor(0xff, 0x70, 0x43), true, kColumns, kRows};
    page.tiles = {
        {Dial, {0, 0, 3, 3}, "ENGINE", "RPM", {0, 9000, 7600, 9000}, Plain, true},
        {Readout, {3, 0, 3, 2}, "SPEED", "GPS Speed", {0, 280}, Plain, true},
        {Readout, {3, 2, 3, 1}, "GEAR", "Gear_Pos", {0, 6}, Caution},
        {IconReadout, {0, 3, 2, 1}, "WATER", "Water Temp", {40, 130, 110, 130}},
        {IconReadout, {2, 3, 2, 1}, "OIL", "Oil Temp", {40, 150, 130, 150}},
        {BarReadout, {4, 3, 2, 1}, "FUEL", "Fuel Level", {0, 60, 0, 6}, Good},
    };
    return page;
}

Page laps()
{
    Page page{"Laps", QColor(0x7e, 0x57, 0xc2), true, kColumns, kRows};
    page.tiles = {
        {Readout, {0, 0, 6, 2}, "LAP TIME", "Lap Time", {0, 120}, Good, true},
        {Bar, {0, 2, 3, 1}, "THROTTLE", "Throttle", {0, 100, 100, 100}, Good},
        {Bar, {3, 2, 3, 1}, "BRAKE", "Brake Press F", {0, 100, 85, 100}, Alert},
        {Readout, {0, 3, 3, 1}, "SPEED", "GPS Speed", {0, 280}},
        {BarReadout, {3, 3, 3, 1}, "LATERAL", "GPS LatAcc", {-2, 2, 2, 2}, Info},
    };
    return page;
}

Page health()
{
    Page page{"Health", QColor(0x26, 0xa6, 0x9a), true, kColumns, kRows};
    page.tiles = {
        {Dial, {0, 0, 3, 2}, "WATER", "Water Temp", {40, 130, 110, 130}, Info},
        {Dial, {3, 0, 3, 2}, "OIL", "Oil Temp", {40, 150, 130, 150}, Caution},
        {BarReadout, {0, 2, 3, 1}, "OIL PRESSURE", "Oil Press", {0, 8, 0, 1.5}, Good},
        {Readout, {3, 2, 3, 1}, "BATTERY", "Battery", {10, 16}, Plain, true},
        {Readout, {0, 3, 3, 1}, "LAMBDA", "Lambda 1", {0.7, 1.3}, Dimmed},
        {Caption, {3, 3, 3, 1}, "SERVICE 20 h"},
    };
    return page;
}

Page grid()
{
    Page page{"Grid", QColor(0x78, 0x90, 0x9c), false, kColumns, kRows};
    page.tiles = {
        {Readout, {0, 0, 6, 2}, "ENGINE", "RPM", {0, 9000}, Alert, true},
        {Readout, {0, 2, 3, 1}, "THROTTLE", "Throttle", {0, 100}, Info},
        {Readout, {3, 2, 3, 1}, "GEAR", "Gear_Pos", {0, 6}, Caution, true},
        {Strip, {0, 3, 6, 1}, "LAUNCH|4800|READY"},
    };
    return page;
}

} // namespace

Package SamplePackages::compact()
{
    const Sheet sheet{{320, 240}, 26, 3, 12};
    return {
        "compact.zconf2", "Compact", "LIG", 310, "", sheet, {drive(), laps(), health(), grid()}};
}
