#include "telemetry/RecordedNames.h"

namespace {

/// Lower case, without '_' and blanks.
QString compacted(const QString& name)
{
    return QString(name).remove(u'_').remove(u' ').toLower();
}

} // namespace

RecordedNames::RecordedNames(const QStringList& names)
{
    const auto insertFirst = [this](Index& index, const QString& key) {
        if (!index.contains(key))
            index.insert(key, m_entries.size());
    };
    m_entries.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        insertFirst(m_byCase, name.toLower());
        insertFirst(m_bySpelling, compacted(name));
        m_entries.push_back({name, wordsOf(name)});
    }
}

QStringList RecordedNames::wordsOf(const QString& name)
{
    QString compared = name.left(kLongestComparedByWords).toLower();
    return compared.replace(u'_', u' ').split(u' ', Qt::SkipEmptyParts);
}

const RecordedNames::Entry* RecordedNames::equalButForCase(const QString& name) const
{
    return find(m_byCase, name.toLower());
}

const RecordedNames::Entry* RecordedNames::equalButForSpelling(const QString& name) const
{
    return find(m_bySpelling, compacted(name));
}

const RecordedNames::Entry* RecordedNames::find(const Index& index, const QString& key) const
{
    const auto found = index.constFind(key);
    return found != index.constEnd() ? &m_entries[*found] : nullptr;
}
