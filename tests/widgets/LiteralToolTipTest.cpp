#include "widgets/LiteralToolTip.h"

#include <QTextDocument>

#include <gtest/gtest.h>

namespace {

/// What a tool tip shows, which decides by the look of its text whether it is markup.
QString shown(const QString& toolTip)
{
    if (!Qt::mightBeRichText(toolTip))
        return toolTip;
    QTextDocument document;
    document.setHtml(toolTip);
    return document.toPlainText();
}

} // namespace

TEST(LiteralToolTip, ShowsEveryTextAsItStands)
{
    for (const char* const text : {"", "Oil Temp", "Wet & dry", "<b>bold</b>", "a < b", "<i>",
                                   "a &lt; b", "&lt;b&gt;", "&amp;", "<br/>&lt;"}) {
        const QString name = QString::fromUtf8(text);
        EXPECT_EQ(shown(literalToolTip(name)), name);
        EXPECT_EQ(shown(literalMarkup(name)), name);
    }
}

TEST(LiteralToolTip, LeavesPlainTextAlone)
{
    EXPECT_EQ(literalToolTip(QStringLiteral("Wet & dry")), QStringLiteral("Wet & dry"));
}

TEST(LiteralToolTip, MarkupIsRecognisedAsSuchWhateverItHolds)
{
    for (const char* const text : {"", "Oil Temp", "&lt;b&gt;", "\n"})
        EXPECT_TRUE(Qt::mightBeRichText(literalMarkup(QString::fromUtf8(text))));
}
