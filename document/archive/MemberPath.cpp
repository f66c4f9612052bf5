#include "document/archive/MemberPath.h"

#include <QDir>
#include <QStringList>

#include <algorithm>
#include <array>

namespace {

/// Which devices of a kind there are: Windows counts superscript digits too.
constexpr QStringView kDeviceNumbers = u"123456789\u00B9\u00B2\u00B3";

/// Whether Windows takes the name for a device, in any folder and with any extension.
bool isDeviceName(const QString& name)
{
    constexpr std::array kDevices{u"CON", u"PRN", u"AUX", u"NUL", u"CONIN$", u"CONOUT$"};
    constexpr std::array kNumberedDevices{u"COM", u"LPT"};
    const QString base = name.section(u'.', 0, 0).trimmed();
    const auto is = [&base](const char16_t* device) {
        return base.compare(QStringView(device), Qt::CaseInsensitive) == 0;
    };
    const auto isNumbered = [&base](const char16_t* device) {
        return base.size() == 4 && base.startsWith(QStringView(device), Qt::CaseInsensitive) &&
               kDeviceNumbers.contains(base.back());
    };
    return std::any_of(kDevices.begin(), kDevices.end(), is) ||
           std::any_of(kNumberedDevices.begin(), kNumberedDevices.end(), isNumbered);
}

/// Whether Windows makes a file of this very name: it drops blanks and dots at the end of one.
bool isKeptOnWindows(const QString& name)
{
    return name == QStringLiteral(".") ||
           (!name.endsWith(u'.') && !name.endsWith(u' ') && !isDeviceName(name));
}

} // namespace

std::optional<QString> memberPath(const QString& name, PathRules rules)
{
    if (name.startsWith(u'/'))
        return std::nullopt;
    if (rules == PathRules::Windows && (name.contains(u'\\') || name.contains(u':')))
        return std::nullopt;
    const QString path = QDir::cleanPath(name);
    if (path == QStringLiteral("..") || path.startsWith(QStringLiteral("../")))
        return std::nullopt;
    const QStringList parts = path.split(u'/');
    if (rules == PathRules::Windows && !std::all_of(parts.begin(), parts.end(), isKeptOnWindows))
        return std::nullopt;
    return path;
}

QString folderOf(const QString& path)
{
    return path.left(std::max<qsizetype>(path.lastIndexOf(u'/'), 0));
}

void addFolders(QString folder, QSet<QString>& known)
{
    for (; !folder.isEmpty() && !known.contains(folder); folder = folderOf(folder))
        known.insert(folder);
}
