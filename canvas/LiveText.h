#pragma once

#include <QString>

/// How a live value becomes the text in an element's box: number format and font size, as pure
/// functions without a widget.
namespace LiveText {

/// Decimals shown: 0 from 1000 on, 1 from 1 on, else 2. Chosen before rounding, so that 999.99 is
/// shown as "1000.0".
[[nodiscard]] int decimals(double value);
/// The value with that many decimals. A value that rounds to zero has no sign.
[[nodiscard]] QString format(double value);

/// Pixel size of the value font before it is fitted to the width.
/// @param fontSize the element's value font size, 0 or less when it has none
/// @param elementHeight display pixels
/// @param boxHeight the element's height on the canvas, widget pixels
[[nodiscard]] int valuePixelSize(int fontSize, int elementHeight, double boxHeight);

/// Widget pixels available to the value in a box of that width.
[[nodiscard]] int availableWidth(double boxWidth);
/// The pixel size at which a text that is textWidth wide at pixelSize fits; unchanged when it fits
/// already or when there is no room. Not below a readable minimum, so it may still be too wide.
[[nodiscard]] int fittedPixelSize(int pixelSize, int textWidth, int available);

/// Pixel sizes at that scale: of the channel caption above a live value, and of the two names in an
/// element without one.
[[nodiscard]] int captionPixelSize(double scale);
[[nodiscard]] int placeholderPixelSize(double scale);

/// Whether the recorded channel is a speed to convert: "gps speed" in any case, and no other.
[[nodiscard]] bool isSpeed(const QString& recordedName);

} // namespace LiveText
