#include "document/ColorText.h"

#include <algorithm>

namespace {

constexpr int kPrefixLength = 2;
constexpr int kDigitCount = 8;

bool isHexDigit(QChar c)
{
    const char16_t u = c.toLower().unicode();
    return (u >= u'0' && u <= u'9') || (u >= u'a' && u <= u'f');
}

} // namespace

QColor ColorText::parse(const QString& text)
{
    // toUInt alone would also take blanks, signs and another prefix.
    const QString digits = text.mid(kPrefixLength);
    if (digits.size() != kDigitCount || !std::all_of(digits.begin(), digits.end(), isHexDigit))
        return {};
    return QColor::fromRgba(digits.toUInt(nullptr, 16));
}

QString ColorText::format(const QColor& color)
{
    return QStringLiteral("0x") +
           QString::number(color.rgba(), 16).rightJustified(kDigitCount, u'0');
}
