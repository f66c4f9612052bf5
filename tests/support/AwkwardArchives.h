#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <ostream>
#include <string>
#include <vector>

/// An archive made to break readers, with the answer it must get.
struct AwkwardArchive
{
    std::string title; ///< one word, usable in a test's name
    QByteArray bytes;
    bool accepted;
    /// Path below the unpack folder and content of every file that must be there afterwards, and of
    /// no other. Only looked at when accepted.
    std::map<QString, QByteArray> files;
};

/// Keeps a failing test's message readable.
inline std::ostream& operator<<(std::ostream& out, const AwkwardArchive& archive)
{
    return out << archive.title;
}

/// All of them, none over a few tens of kilobytes.
[[nodiscard]] std::vector<AwkwardArchive> awkwardArchives();
