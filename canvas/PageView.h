#pragma once

#include "canvas/PageTransform.h"
#include "canvas/SnapGrid.h"
#include "canvas/SpeedUnit.h"
#include "document/DashPage.h"

class TelemetrySession;

/// Source of live values. Owns nothing.
struct LiveView
{
    const TelemetrySession* session = nullptr; ///< null for a layout without values
    double seconds = 0.0;                      ///< replay position
    SpeedUnit speedUnit = SpeedUnit::KilometresPerHour;
};

/// All that one painting of a page depends on. Owns nothing; valid for that painting.
struct PageView
{
    const DashPage* page = nullptr; ///< null for an empty canvas
    PageTransform transform;
    int selectedIndex = -1; ///< -1 for none
    SnapGrid grid;
    LiveView live;
};
