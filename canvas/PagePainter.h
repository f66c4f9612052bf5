#pragma once

#include "canvas/ElidedTexts.h"
#include "canvas/PageView.h"

#include <QRect>

class QPainter;

/// Draws a page: backdrop, background image, grid, elements, handles of the selected element.
/// Without a widget; exact colours, no antialiasing.
namespace PagePainter {

/// @param area the whole canvas in widget pixels, filled also around the page
/// @param texts a cache that the caller keeps between paintings
void paint(QPainter& painter, const QRect& area, const PageView& view, ElidedTexts& texts);

} // namespace PagePainter
