#pragma once

#include <QString>

#include <array>

/// Names of files that programs often stumble over.
namespace AwkwardNames {

/// One a script, with combining marks, and characters beyond the basic plane.
inline constexpr std::array kEveryScript = {"plain",
                                            "with blanks & signs !#$%'()+,;=@[]{}~",
                                            "Gr\u00F6\u00DFe \u00E6\u0142\u0151",
                                            "\u0395\u03BB\u03BB\u03AC\u03B4\u03B1",
                                            "\u041C\u043E\u0441\u043A\u0432\u0430",
                                            "\u05E2\u05D1\u05E8\u05D9\u05EA",
                                            "\u0645\u0631\u062D\u0628\u0627",
                                            "\u0939\u093F\u0928\u094D\u0926\u0940",
                                            "\u0E44\u0E17\u0E22",
                                            "\u65E5\u672C\u8A9E",
                                            "\uD55C\uAD6D\uC5B4",
                                            "e\u0301 combined",
                                            "\U0001F3C1 \U00020BB7"};

/// A folder below root whose path is longer than the 260 characters that programs for Windows may
/// use unless they ask for more.
[[nodiscard]] inline QString longFolder(const QString& root)
{
    constexpr qsizetype kShortPathLimit = 260;
    QString folder = root;
    while (folder.size() <= kShortPathLimit)
        folder += u'/' + QString(50, u'f');
    return folder;
}

} // namespace AwkwardNames
