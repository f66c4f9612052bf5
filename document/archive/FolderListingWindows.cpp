#include "document/archive/FolderListing.h"

#include <QDir>

#include <memory>
#include <windows.h>

namespace {

struct Closer
{
    using pointer = HANDLE;
    void operator()(HANDLE search) const { FindClose(search); }
};

/// Everything in the folder, in the form that lifts the limit of 260 characters.
std::wstring searchPattern(const QString& folder)
{
    const QString path = QDir::toNativeSeparators(QDir::cleanPath(QDir(folder).absolutePath()));
    const QString prefix = path.startsWith(QStringLiteral("\\\\"))
                               ? QStringLiteral("\\\\?\\UNC") + path.mid(1)
                               : QStringLiteral("\\\\?\\") + path;
    return QString(prefix + QStringLiteral("\\*")).toStdWString();
}

bool isDots(const QString& name)
{
    return name == QStringLiteral(".") || name == QStringLiteral("..");
}

/// Appends the files below the folder; false when a folder cannot be listed to its end.
bool appendFiles(const QString& folder, HiddenFiles hidden, QStringList& paths)
{
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(searchPattern(folder).c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    const std::unique_ptr<HANDLE, Closer> closer(search);
    do {
        const QString name = QString::fromWCharArray(entry.cFileName);
        const DWORD attributes = entry.dwFileAttributes;
        const bool isLeftOut =
            hidden == HiddenFiles::LeftOut && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
        if (isDots(name) || isLeftOut)
            continue;
        const QString path =
            folder + (folder.endsWith(u'/') ? QString() : QStringLiteral("/")) + name;
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            paths.append(path);
        else if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 &&
                 !appendFiles(path, hidden, paths))
            return false;
    } while (FindNextFileW(search, &entry) != 0);
    return GetLastError() == ERROR_NO_MORE_FILES;
}

} // namespace

// Neither with QDirIterator, which ends silently at an error, nor with std::filesystem, whose
// listing ends at 260 characters.
std::optional<QStringList> filesBelow(const QString& folder, HiddenFiles hidden)
{
    QStringList paths;
    if (folder.isEmpty() || !appendFiles(folder, hidden, paths))
        return std::nullopt;
    return paths;
}
