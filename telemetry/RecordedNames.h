#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// The channel names of one recording, prepared once for any number of matches. A value.
class RecordedNames
{
public:
    /// Names are compared word by word only up to here, in characters. Real names are far shorter.
    /// Each word of one name is searched for in all of the other, so megabytes of words in a
    /// damaged layout or recording would block the program.
    static constexpr qsizetype kLongestComparedByWords = 200;

    struct Entry
    {
        QString name;      ///< as recorded
        QStringList words; ///< see wordsOf
    };

    RecordedNames() = default;
    /// Where names tie in a match, the earlier one wins.
    explicit RecordedNames(const QStringList& names);

    /// The words within the first kLongestComparedByWords characters, in lower case. '_' and blanks
    /// separate them.
    [[nodiscard]] static QStringList wordsOf(const QString& name);

    /// In the given order.
    [[nodiscard]] const std::vector<Entry>& entries() const { return m_entries; }
    /// The first entry equal but for case; null for none.
    [[nodiscard]] const Entry* equalButForCase(const QString& name) const;
    /// The first entry equal but for case, '_' and blanks; null for none.
    [[nodiscard]] const Entry* equalButForSpelling(const QString& name) const;

private:
    using Index = QHash<QString, std::size_t>;
    [[nodiscard]] const Entry* find(const Index& index, const QString& key) const;

    std::vector<Entry> m_entries;
    Index m_byCase;
    Index m_bySpelling;
};
