#pragma once

#include <QCache>
#include <QFont>
#include <QString>

/// Cache of texts elided at the right. Eliding costs as much as drawing, and a replay shows the
/// same names in every frame.
class ElidedTexts
{
public:
    ElidedTexts();

    /// The font of all texts, except for pixel size and weight. A new one empties the cache.
    void setBaseFont(const QFont& font);

    /// The text, or as much of it as fits and an ellipsis. Only the first 1,000 characters count.
    /// @param font the base font with any pixel size and weight
    /// @param width pixels
    [[nodiscard]] QString elided(const QString& text, const QFont& font, int width);

private:
    struct Key
    {
        QString text;
        int width;
        int pixelSize;
        int weight;

        friend bool operator==(const Key&, const Key&) = default;
        friend std::size_t qHash(const Key& key, std::size_t seed) noexcept
        {
            return qHashMulti(seed, key.text, key.width, key.pixelSize, key.weight);
        }
    };

    QFont m_baseFont;
    QCache<Key, QString> m_results;
};
