#include "document/ColorText.h"

#include <charconv>

namespace {

constexpr int kPrefixLength = 2;
constexpr int kDigitCount = 8;

} // namespace

QColor ColorText::parse(const QString& text)
{
    const QByteArray digits = QStringView(text).mid(kPrefixLength).toLatin1();
    QRgb value = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value, 16);
    if (digits.size() != kDigitCount || end != digits.end())
        return {};
    return QColor::fromRgba(value);
}

QString ColorText::format(const QColor& color)
{
    return QStringLiteral("0x") +
           QString::number(color.rgba(), 16).rightJustified(kDigitCount, u'0');
}
