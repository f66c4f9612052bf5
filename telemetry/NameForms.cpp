#include "telemetry/NameForms.h"

QString NameForms::lowered(const QString& name)
{
    return name.toLower();
}

QString NameForms::compacted(const QString& name)
{
    return QString(name).remove(u'_').remove(u' ').toLower();
}

QStringList NameForms::words(const QString& name)
{
    QString compared = name.left(kLongestComparedByWords).toLower();
    return compared.replace(u'_', u' ').split(u' ', Qt::SkipEmptyParts);
}
