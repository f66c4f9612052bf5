#pragma once

#include <QString>

/// How a live value becomes the text in an element's box: number format, font size and unit, as
/// pure functions without a widget.
namespace LiveText {

/// Decimals shown: 0 from 1000 on, 1 from 1 on, else 2. Chosen before rounding, so that 999.99 is
/// shown as "1000.0".
[[nodiscard]] int decimals(double value);
/// The value with that many decimals. A value that rounds to zero has no sign.
[[nodiscard]] QString format(double value);

/// Pixel size of the value font before it is fitted to the width.
/// @param fontSize the element's own value font size, 0 or less when it has none
/// @param elementHeight display pixels
/// @param boxHeight the element's height on the canvas, widget pixels
[[nodiscard]] int valuePixelSize(int fontSize, int elementHeight, double boxHeight);

/// Widget pixels available to the value in a box of that width.
[[nodiscard]] int availableWidth(double boxWidth);
/// The pixel size at which a text of that width at pixelSize fits; unchanged when it fits already
/// or when there is no room at all. Not below a readable minimum, so it may still be too wide.
[[nodiscard]] int fittedPixelSize(int pixelSize, int textWidth, int available);

/// Pixel sizes of the channel caption above a live value, and of the two texts of an element
/// without one, at that scale.
[[nodiscard]] int captionPixelSize(double scale);
[[nodiscard]] int placeholderPixelSize(double scale);

/// Only the channel that the recording calls "gps speed", in any case, is a speed to be converted.
[[nodiscard]] bool isSpeed(const QString& recordedName);

} // namespace LiveText
