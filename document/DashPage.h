#pragma once

#include "document/DashElement.h"
#include "document/DisplaySize.h"

#include <QPixmap>
#include <QString>

#include <cstdint>
#include <vector>

/// One page of a dashboard: a plain value. Sizes are in whole pixels of the target display. Its
/// pixmap, also a null one, needs an application object.
struct DashPage
{
    QString name;
    std::int32_t index = 0; ///< ordinal when read or created; never renumbered afterwards
    std::int32_t width = kDefaultDisplayWidth;
    std::int32_t height = kDefaultDisplayHeight;
    QString imagePath; ///< the resolved background image file, empty if none
    QPixmap image;     ///< null if none
    std::vector<DashElement> elements;
};
