#pragma once

#include <QString>
#include <QTextDocument>

/// A tool tip that shows text as it stands: one that looks like markup would be rendered otherwise.
[[nodiscard]] inline QString literalToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}
