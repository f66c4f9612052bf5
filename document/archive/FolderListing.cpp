#include "document/archive/FolderListing.h"

#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// "none" when the entry cannot be looked at. A link to nothing, or to itself, is "not_found".
fs::file_type typeOf(const fs::directory_entry& entry)
{
    std::error_code error;
    if (entry.is_directory(error)) // mostly known from the listing, without a system call
        return fs::file_type::directory;
    const fs::file_type type = entry.status(error).type();
    if (error == std::errc::too_many_symbolic_link_levels)
        return fs::file_type::not_found;
    // A file that is listed but not found has a path of more than 260 characters on Windows.
    return type == fs::file_type::not_found && !entry.is_symlink(error) ? fs::file_type::none
                                                                        : type;
}

} // namespace

// Not with QDirIterator, which ends silently at an error.
std::optional<QStringList> filesBelow(const QString& folder, HiddenFiles hidden)
{
    QStringList paths;
    std::error_code error;
    fs::recursive_directory_iterator entry(QFileInfo(folder).filesystemFilePath(), error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        const QFileInfo info(entry->path());
        if (hidden == HiddenFiles::LeftOut && info.isHidden()) {
            entry.disable_recursion_pending();
            continue;
        }
        const fs::file_type type = typeOf(*entry);
        if (type == fs::file_type::none)
            return std::nullopt;
        if (type == fs::file_type::regular)
            paths.append(info.filePath());
    }
    if (error)
        return std::nullopt;
    return paths;
}
