#pragma once

#include "canvas/ElidedTexts.h"
#include "canvas/PageView.h"

#include <QRect>

class QPainter;

/// Draws a page: backdrop, background image, grid, elements, handles of the selected element. Knows
/// no widget; exact colours, without antialiasing.
namespace PagePainter {

/// @param area the whole canvas in widget pixels, filled even where the page does not reach
/// @param texts kept by the caller from one painting to the next, to save work
void paint(QPainter& painter, const QRect& area, const PageView& view, ElidedTexts& texts);

} // namespace PagePainter
