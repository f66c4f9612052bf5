#pragma once

#include "canvas/PageView.h"

#include <QRect>

class QPainter;

/// Draws a page: backdrop, background image, grid, elements, handles of the selected element. Knows
/// no widget; exact colours, without antialiasing.
namespace PagePainter {

/// @param area the whole canvas in widget pixels, filled even where the page does not reach
void paint(QPainter& painter, const QRect& area, const PageView& view);

} // namespace PagePainter
