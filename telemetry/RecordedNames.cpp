#include "telemetry/RecordedNames.h"

#include "telemetry/NameForms.h"

RecordedNames::RecordedNames(const QStringList& names)
{
    const auto insertFirst = [this](Index& index, const QString& key) {
        if (!index.contains(key))
            index.insert(key, m_entries.size());
    };
    m_entries.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        insertFirst(m_byCase, NameForms::lowered(name));
        insertFirst(m_bySpelling, NameForms::compacted(name));
        m_entries.push_back({name, NameForms::words(name)});
    }
}

const RecordedNames::Entry* RecordedNames::equalButForCase(const QString& name) const
{
    return find(m_byCase, NameForms::lowered(name));
}

const RecordedNames::Entry* RecordedNames::equalButForSpelling(const QString& name) const
{
    return find(m_bySpelling, NameForms::compacted(name));
}

const RecordedNames::Entry* RecordedNames::find(const Index& index, const QString& key) const
{
    const auto found = index.constFind(key);
    return found != index.constEnd() ? &m_entries[*found] : nullptr;
}
