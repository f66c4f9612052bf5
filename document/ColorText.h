#pragma once

#include <QColor>
#include <QString>

/// Colours as the overlay file spells them: "0x" and eight hexadecimal digits, alpha first.
namespace ColorText {

/// The first two characters are skipped whatever they are; exactly eight hexadecimal digits must
/// follow. Anything else gives an invalid colour.
[[nodiscard]] QColor parse(const QString& text);

/// Lower-case digits; an invalid colour is written as its components, opaque black.
[[nodiscard]] QString format(const QColor& color);

} // namespace ColorText
