#include "canvas/ElidedTexts.h"

#include <QFontMetrics>

namespace {

// No box shows more of a name.
constexpr qsizetype kLongestShownText = 1000;

// Several times what the largest pages show.
constexpr qsizetype kMostResults = 50'000;

} // namespace

ElidedTexts::ElidedTexts() : m_results(kMostResults) {}

void ElidedTexts::setBaseFont(const QFont& font)
{
    if (font == m_baseFont)
        return;
    m_baseFont = font;
    m_results.clear();
}

QString ElidedTexts::elided(const QString& text, const QFont& font, int width)
{
    const Key key{text.left(kLongestShownText), width, font.pixelSize(), font.weight()};
    if (const QString* const known = m_results.object(key))
        return *known;
    QString result = QFontMetrics(font).elidedText(key.text, Qt::ElideRight, width);
    m_results.insert(key, new QString(result));
    return result;
}
