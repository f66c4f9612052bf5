#pragma once

#include <QString>

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

/// The recorded name that the wanted name means, and the rule that decided. The first rule that
/// yields a name decides: equal but for case; equal but for case, '_' and blanks; the best score of
/// at least 5 over the words of both names, for which only the first 200 characters of either
/// count. Where names tie, the earlier one wins: a session passes them sorted by their lower-case
/// form. An empty recorded name counts as no match.
[[nodiscard]] Match match(const QString& wanted, const RecordedNames& recorded);

} // namespace ChannelMatcher
