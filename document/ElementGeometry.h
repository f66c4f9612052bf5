#pragma once

#include "document/DashElement.h"

/// Position and size of an element in whole pixels of the target display. Any 32-bit value may
/// stand in a file, so no arithmetic on these may assume that sums fit into an int.
struct ElementGeometry
{
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;

    friend bool operator==(const ElementGeometry&, const ElementGeometry&) = default;
};

[[nodiscard]] inline ElementGeometry geometryOf(const DashElement& element)
{
    return {element.x, element.y, element.w, element.h};
}

inline void setGeometry(DashElement& element, const ElementGeometry& geometry)
{
    element.x = geometry.x;
    element.y = geometry.y;
    element.w = geometry.w;
    element.h = geometry.h;
}
