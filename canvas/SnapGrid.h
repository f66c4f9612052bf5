#pragma once

#include <QtGlobal>

/// The grid that drags snap to; drawn while enabled. A plain value.
struct SnapGrid
{
    bool enabled = false;
    int pitch = 10; ///< display pixels

    /// A pitch below 2 neither snaps nor draws.
    [[nodiscard]] bool isActive() const { return enabled && pitch >= 2; }

    /// The nearest multiple of the pitch, halves upward; negative values round toward zero after
    /// the shift by half a pitch. While inactive, the value unchanged. Display pixels.
    [[nodiscard]] qint64 snap(qint64 value) const
    {
        if (!isActive())
            return value;
        const qint64 shifted = value + pitch / 2;
        return shifted - shifted % pitch;
    }
};
