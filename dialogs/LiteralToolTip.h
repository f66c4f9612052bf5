#pragma once

#include <QString>
#include <QTextDocument>

/// A tool tip that shows text as it stands: one that looks like markup would be rendered otherwise.
/// Such a text is marked up itself, because escaped text alone does not always look like markup.
[[nodiscard]] inline QString literalToolTip(const QString& text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return u"<span>" + text.toHtmlEscaped() + u"</span>";
}
