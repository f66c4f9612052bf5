#pragma once

#include "canvas/ElementPainter.h"
#include "canvas/PageView.h"

#include <QImage>

/// A page as the canvas paints it, but alone: without backdrop, grid and selection. Needs a
/// QGuiApplication.
namespace PagePicture {

/// The largest side of a picture, and the most pixels it may have: beyond, painting is inexact or
/// takes gigabytes.
inline constexpr int kLargestSide = ElementPainter::kFarthestPixel;
inline constexpr qint64 kMostPixels = 100'000'000;

/// The picture's size in pixels; empty when the page has no area or the picture would be too large.
/// @param scale pixels per display pixel
[[nodiscard]] QSize size(const DashPage& page, double scale);

/// A null image when size() is empty.
[[nodiscard]] QImage paint(const DashPage& page, double scale, const LiveView& live);

} // namespace PagePicture
