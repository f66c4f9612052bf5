#include "document/archive/MemberPath.h"

#include <QDir>

std::optional<QString> memberPath(const QString& name, PathRules rules)
{
    if (name.startsWith(u'/'))
        return std::nullopt;
    if (rules == PathRules::Windows && (name.contains(u'\\') || name.contains(u':')))
        return std::nullopt;
    const QString path = QDir::cleanPath(name);
    if (path == QStringLiteral("..") || path.startsWith(QStringLiteral("../")))
        return std::nullopt;
    return path;
}
