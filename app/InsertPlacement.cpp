#include "app/InsertPlacement.h"

#include <algorithm>

namespace {

constexpr int kUsualWidth = 200;
constexpr int kUsualHeight = 80;

} // namespace

ElementGeometry centredPlacement(int pageWidth, int pageHeight, int donorWidth, int donorHeight)
{
    const int w = std::min(pageWidth, donorWidth >= 1 ? donorWidth : kUsualWidth);
    const int h = std::min(pageHeight, donorHeight >= 1 ? donorHeight : kUsualHeight);
    return {std::max((pageWidth - w) / 2, 0), std::max((pageHeight - h) / 2, 0), w, h};
}
