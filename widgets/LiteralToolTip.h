#pragma once

#include <QString>
#include <QTextDocument>

// Names in a document are text, whatever they look like.

/// The text marked up so that it shows as it stands where mark-up is understood. A tool tip breaks
/// it into lines when it is long, as it does not with plain text.
[[nodiscard]] inline QString literalMarkup(const QString& text)
{
    return u"<span>" + text.toHtmlEscaped() + u"</span>";
}

/// A tool tip that shows text as it stands: one that looks like mark-up would be rendered
/// otherwise. Such a text is marked up itself, because escaped text alone does not always look like
/// mark-up.
[[nodiscard]] inline QString literalToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? literalMarkup(text) : text;
}
