#pragma once

#include "document/ChannelDef.h"
#include "document/DisplaySize.h"

#include <QString>

#include <vector>

/// The device that a layout is made for. A package without a usable device file leaves all of it as
/// the package before has set it.
struct TargetDevice
{
    QString type;                              ///< empty until a device file names one
    int typeCode = -1;                         ///< -1 until a device file gives one
    std::vector<ChannelDef> channels;          ///< of all packages, in the order they were opened
    int displayWidth = kDefaultDisplayWidth;   ///< in pixels
    int displayHeight = kDefaultDisplayHeight; ///< in pixels
};
