#pragma once

#include <QString>

/// As much of a text as a widget gets to show: the whole of any that a person has written. A file
/// may hold megabytes; laying them out takes minutes, and as a window's title they can cost the
/// program its connection to the display.
[[nodiscard]] inline QString shownText(const QString& text)
{
    constexpr qsizetype kLongest = 10'000;
    return text.left(kLongest);
}
