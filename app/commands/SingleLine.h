#pragma once

#include <QString>

#include <algorithm>

/// A command's text with blanks for line breaks: QUndoCommand::setText would split it there.
[[nodiscard]] inline QString singleLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    const auto isBreak = [](QChar c) {
        return c == u'\n' || c == u'\r' || c == QChar::LineSeparator ||
               c == QChar::ParagraphSeparator;
    };
    std::replace_if(text.begin(), text.end(), isBreak, QChar(u' '));
    return text;
}
