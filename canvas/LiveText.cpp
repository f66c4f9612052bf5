#include "canvas/LiveText.h"

#include "canvas/Saturate.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kNominalShare = 0.4; // of the element's height, when it names no font size
constexpr double kLargestShare = 0.6; // of the box's height
constexpr int kSmallestValue = 10;    // pixel sizes
constexpr int kSmallestFittedValue = 8;
constexpr int kSmallestCaption = 7;
constexpr int kSmallestPlaceholder = 8;
constexpr double kCaptionSize = 8.0; // display pixels
constexpr double kPlaceholderSize = 10.0;
constexpr int kSidePadding = 6; // of the value, both sides together

// Outlining glyphs larger than any screen costs seconds and gigabytes.
constexpr int kLargestPixelSize = 8192;

int pixelSize(double size, int smallest)
{
    return std::clamp(Saturate::truncate(size), smallest, kLargestPixelSize);
}

} // namespace

int LiveText::decimals(double value)
{
    const double magnitude = std::abs(value);
    if (magnitude >= 1000.0)
        return 0;
    return magnitude >= 1.0 ? 1 : 2;
}

QString LiveText::format(double value)
{
    const QString text = QString::number(value, 'f', decimals(value));
    return text == u"-0.00" ? text.mid(1) : text;
}

int LiveText::valuePixelSize(int fontSize, int elementHeight, double boxHeight)
{
    const int nominal = fontSize > 0 ? fontSize : Saturate::truncate(elementHeight * kNominalShare);
    const double ratio =
        std::min(static_cast<double>(nominal) / std::max(elementHeight, 1), kLargestShare);
    return pixelSize(boxHeight * ratio, kSmallestValue);
}

int LiveText::availableWidth(double boxWidth)
{
    return Saturate::toInt(qint64{Saturate::truncate(boxWidth)} - kSidePadding);
}

int LiveText::fittedPixelSize(int size, int textWidth, int available)
{
    if (textWidth <= available || available <= 0)
        return size;
    return pixelSize(static_cast<double>(available) / textWidth * size, kSmallestFittedValue);
}

int LiveText::captionPixelSize(double scale)
{
    return pixelSize(scale * kCaptionSize, kSmallestCaption);
}

int LiveText::placeholderPixelSize(double scale)
{
    return pixelSize(scale * kPlaceholderSize, kSmallestPlaceholder);
}

bool LiveText::isSpeed(const QString& recordedName)
{
    constexpr QStringView kName = u"gps speed";
    return recordedName.size() == kName.size() && recordedName.toLower() == kName;
}
