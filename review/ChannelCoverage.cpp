// Findings about what a recording shows on a layout.

#include "document/DashboardDocument.h"
#include "review/FactText.h"
#include "review/Findings.h"
#include "review/ReviewText.h"
#include "telemetry/ChannelMatcher.h"
#include "telemetry/RecordedNames.h"

#include <QSet>

namespace {

using ChannelMatcher::Match;
using ChannelMatcher::Rule;

QString ruleText(Rule rule)
{
    switch (rule) {
    case Rule::Case:
        return ReviewText::tr("equal but for case");
    case Rule::Spelling:
        return ReviewText::tr("equal but for case, \"_\" and blanks");
    case Rule::Words:
        return ReviewText::tr("most words in common");
    case Rule::None:
        break;
    }
    return {};
}

QString messageOf(const QString& channel, const Match& match)
{
    if (match.rule == Rule::None) {
        return ReviewText::tr("channel %1 matches nothing recorded and shows 0.00")
            .arg(FactText::quoted(channel));
    }
    return ReviewText::tr("channel %1 shows recorded %2 (%3)")
        .arg(FactText::quoted(channel), FactText::quoted(match.name), ruleText(match.rule));
}

} // namespace

std::vector<Finding> channelCoverage(const DashboardDocument& document, const QStringList& recorded)
{
    const RecordedNames names(recorded);
    std::vector<Finding> found;
    QSet<QString> seen;
    int number = 0;
    for (const DashPage& page : document.pages()) {
        ++number;
        for (const DashElement& element : page.elements) {
            const QString& channel = element.channelLongName;
            if (channel.isEmpty() || seen.contains(channel))
                continue;
            seen.insert(channel);
            const Match match = ChannelMatcher::match(channel, names);
            found.push_back(
                {match.rule == Rule::None ? Finding::Rule::NoMatch : Finding::Rule::Match, number,
                 page.name, element.name, messageOf(channel, match)});
        }
    }
    return found;
}
