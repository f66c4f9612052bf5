#pragma once

#include <QFont>
#include <QHash>
#include <QString>

/// Texts cut off at the right to a width. Laying a text out to find where to cut costs as much as
/// drawing it, and in a replay the same names are shown in every frame, so results are kept.
class ElidedTexts
{
public:
    /// The texts that follow are in this font, but for pixel size and weight.
    void setBaseFont(const QFont& font);

    /// The text, or as much of it as fits and an ellipsis. Of a very long text only the beginning
    /// is looked at.
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
    QHash<Key, QString> m_results;
};
