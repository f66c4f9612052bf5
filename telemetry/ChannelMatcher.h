#pragma once

#include <QString>
#include <QStringList>

class RecordedNames;

/// Finds the recorded channel that a layout channel means, where layout and logger spell names
/// differently. Pure functions over names, without a cache.
namespace ChannelMatcher {

/// The rule that found a match, in the order in which they are tried.
enum class Rule
{
    None,     ///< nothing matches
    Case,     ///< equal but for case
    Spelling, ///< equal but for case, '_' and blanks
    Words     ///< the best score over the words of both names
};

struct Match
{
    QString name; ///< as recorded; empty when nothing matches
    Rule rule = Rule::None;

    friend bool operator==(const Match&, const Match&) = default;
};

/// The one of the recorded names that the wanted name means, or an empty string. The first rule
/// that yields a name decides: equal but for case; equal but for case, '_' and blanks; the best
/// score of at least 5 over the words of both names, for which only the first 200 characters of
/// either count. Where names tie, the earlier one wins, so the order of recorded matters: a session
/// passes them sorted by their lower-case form. Prepares the recorded names at each call: for many
/// matches call explainedMatch.
[[nodiscard]] QString match(const QString& wanted, const QStringList& recorded);

/// The same, with the rule that decided. An empty recorded name counts as no match.
[[nodiscard]] Match explainedMatch(const QString& wanted, const RecordedNames& recorded);

} // namespace ChannelMatcher
