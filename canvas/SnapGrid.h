#pragma once

#include <QtGlobal>

/// The grid that gestures snap to and that is drawn while they do. A plain value.
struct SnapGrid
{
    bool enabled = false;
    int pitch = 10; ///< display pixels

    /// A pitch below 2 leaves nothing to snap to and nothing to draw.
    [[nodiscard]] bool isActive() const { return enabled && pitch >= 2; }

    /// The nearest multiple of the pitch, halves upward; negative values go toward zero after the
    /// shift by half a pitch. The value itself while inactive. Display pixels.
    [[nodiscard]] qint64 snap(qint64 value) const
    {
        if (!isActive())
            return value;
        const qint64 shifted = value + pitch / 2;
        return shifted - shifted % pitch;
    }
};
