#include "telemetry/ChannelMatcher.h"

#include "telemetry/RecordedNames.h"

namespace {

constexpr int kEqualWord = 10;
constexpr int kPartOfWord = 5;
constexpr int kUnwantedSide = -3; // a channel of one side, when none is wanted
constexpr int kSameWordCount = 2;
constexpr int kLowestScore = 5;

/// The side of a twin installation that the first word names, or an empty string. "stbd" and
/// "star" are different sides.
QStringView sideOf(const QStringList& words)
{
    if (words.isEmpty())
        return {};
    const QStringView first = words.front();
    const bool named = first == u"port" || first == u"stbd" || first == u"star";
    return named ? first : QStringView();
}

/// The first related word decides, also where a later one would be equal.
int wordScore(const QString& wanted, const QStringList& recorded)
{
    for (const QString& word : recorded) {
        if (word == wanted)
            return kEqualWord;
        const bool longer = word.size() > wanted.size();
        if (longer ? word.contains(wanted) : wanted.contains(word))
            return kPartOfWord;
    }
    return 0;
}

int score(const QStringList& wanted, const QStringList& recorded)
{
    const QStringView wantedSide = sideOf(wanted);
    const QStringView recordedSide = sideOf(recorded);
    if (!wantedSide.isEmpty() && recordedSide != wantedSide)
        return 0;

    int total = 0;
    for (const QString& word : wanted)
        total += wordScore(word, recorded);
    if (wantedSide.isEmpty() && !recordedSide.isEmpty())
        total += kUnwantedSide;
    if (wanted.size() == recorded.size())
        total += kSameWordCount;
    return total;
}

QString bestByWords(const QString& wanted, const RecordedNames& recorded)
{
    const QStringList wantedWords = RecordedNames::wordsOf(wanted);
    int best = kLowestScore - 1;
    QString bestName;
    for (const RecordedNames::Entry& entry : recorded.entries()) {
        const int candidate = score(wantedWords, entry.words);
        if (candidate > best) {
            best = candidate;
            bestName = entry.name;
        }
    }
    return bestName;
}

ChannelMatcher::Match explained(const QString& name, ChannelMatcher::Rule rule)
{
    return name.isEmpty() ? ChannelMatcher::Match() : ChannelMatcher::Match{name, rule};
}

} // namespace

ChannelMatcher::Match ChannelMatcher::match(const QString& wanted, const RecordedNames& recorded)
{
    if (wanted.isEmpty())
        return {};
    if (const RecordedNames::Entry* const entry = recorded.equalButForCase(wanted))
        return explained(entry->name, Rule::Case);
    if (const RecordedNames::Entry* const entry = recorded.equalButForSpelling(wanted))
        return explained(entry->name, Rule::Spelling);
    return explained(bestByWords(wanted, recorded), Rule::Words);
}
