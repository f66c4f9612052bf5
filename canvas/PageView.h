#pragma once

#include "canvas/PageTransform.h"
#include "canvas/SnapGrid.h"
#include "canvas/SpeedUnit.h"
#include "document/DashPage.h"

class TelemetrySession;

/// Where live values come from. Owns nothing.
struct LiveView
{
    const TelemetrySession* session = nullptr; ///< null for a layout without values
    double seconds = 0.0;                      ///< replay position
    SpeedUnit speedUnit = SpeedUnit::KilometresPerHour;
};

/// Everything that one picture of a page depends on. Owns nothing; valid for one painting.
struct PageView
{
    const DashPage* page = nullptr; ///< null for an empty canvas
    PageTransform transform;
    int selectedIndex = -1; ///< -1 for none
    SnapGrid grid;
    LiveView live;
};
