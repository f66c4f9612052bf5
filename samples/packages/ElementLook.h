#pragma once

#include "samples/packages/Layout.h"

#include <QColor>
#include <QString>

/// Names, fonts, sizes and colours of the sample elements.
namespace ElementLook {

struct TextStyle
{
    QString font;
    int size = 0; ///< pixels
    QColor color;
};

[[nodiscard]] QString namePrefix(SampleLayout::Instrument instrument);
[[nodiscard]] TextStyle valueStyle(const SampleLayout::PlacedTile& placed);
[[nodiscard]] TextStyle labelStyle(const SampleLayout::PlacedTile& placed,
                                   const SampleLayout::Sheet& sheet);

} // namespace ElementLook
