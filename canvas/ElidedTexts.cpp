#include "canvas/ElidedTexts.h"

#include <QFontMetrics>

namespace {

// No box shows as much of a name; laying out megabytes to cut them off would stall every frame.
constexpr qsizetype kLongestShownText = 1000;

// Several times what the largest pages show. Sizes that a window had on its way to another one are
// forgotten with the rest.
constexpr qsizetype kMostResults = 50'000;

} // namespace

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
    const auto known = m_results.constFind(key);
    if (known != m_results.cend())
        return *known;
    if (m_results.size() >= kMostResults)
        m_results.clear();
    return *m_results.insert(key, QFontMetrics(font).elidedText(key.text, Qt::ElideRight, width));
}
