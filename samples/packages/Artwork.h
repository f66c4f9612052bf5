#pragma once

#include "samples/packages/Layout.h"

#include <QColor>
#include <QString>

class QPainter;

/// The painted parts of a dashboard background. Every function leaves the painter as it found it,
/// except setType. Rectangles are pixels of the image.
namespace Artwork {

inline constexpr QColor kInk{0xd7, 0xde, 0xe6};
inline constexpr QColor kDimInk{0x86, 0x92, 0x9f};
inline constexpr QColor kZone{0xe5, 0x39, 0x35};

/// Numbers of a scale, evenly spaced.
struct Scale
{
    double first = 0;
    double step = 1;
    int count = 0;
    double divisor = 1; ///< what a number is divided by before it is written: 7000 reads 7
};

/// A scale over the range with round numbers and no more than maxSteps intervals.
[[nodiscard]] Scale scaleOf(const SampleLayout::Range& range, int maxSteps);

/// Where a value lies on the range, 0 to 1.
[[nodiscard]] double fraction(const SampleLayout::Range& range, double value);

/// Sets bold type of a pixel size, spaced for capitals, and the pen that writes it.
void setType(QPainter& painter, int pixelSize, const QColor& color);

void backdrop(QPainter& painter, const QRect& page);
void header(QPainter& painter, const QRect& band, const QColor& accent);
/// The name of the page behind a flag of three stripes.
void pageName(QPainter& painter, const QRect& band, const QString& name, const QColor& accent);

/// The raised frame round a tile.
void bezel(QPainter& painter, const QRect& rect);
/// The title at the left of the band, the unit at its right when there is room for it.
void title(QPainter& painter, const QRect& band, const QString& text, const QString& unit,
           const QColor& accent);
/// The sunken field that an element lies in.
void well(QPainter& painter, const QRect& rect);

void dial(QPainter& painter, const QRect& rect, const SampleLayout::Range& range,
          const QColor& accent);
void bar(QPainter& painter, const QRect& rect, const SampleLayout::Range& range,
         const QColor& accent);
void lamp(QPainter& painter, const QRect& rect, const QColor& color);
/// Thin lines between fields side by side.
void columns(QPainter& painter, const QRect& rect, int count);

void trackMap(QPainter& painter, const QRect& rect, const QColor& accent);
void carPlan(QPainter& painter, const QRect& rect, const QColor& accent);

} // namespace Artwork
