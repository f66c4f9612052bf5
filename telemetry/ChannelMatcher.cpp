#include "telemetry/ChannelMatcher.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kEqualWord = 10;
constexpr int kPartOfWord = 5;
constexpr int kUnwantedSide = -3; // a channel of one side, when none was asked for
constexpr int kSameWordCount = 2;
constexpr int kLowestScore = 5;

/// Far more than any channel is called. A damaged layout may hold megabytes of words, and to
/// compare each with those of every recorded channel would take minutes.
constexpr qsizetype kLongestComparedByWords = 10'000;

QString lowered(const QString& name)
{
    return name.toLower();
}

QString compacted(const QString& name)
{
    return QString(name).remove(u'_').remove(u' ').toLower();
}

QStringList wordsOf(const QString& name)
{
    return name.toLower().replace(u'_', u' ').split(u' ', Qt::SkipEmptyParts);
}

/// The side of a twin installation that the first word names, or an empty string. "stbd" and
/// "star" are different sides.
QString sideOf(const QStringList& words)
{
    if (words.isEmpty())
        return {};
    const QString& first = words.front();
    const bool named = first == u"port" || first == u"stbd" || first == u"star";
    return named ? first : QString();
}

/// The first related word decides, also where a later one would be equal.
int wordScore(const QString& wanted, const QStringList& recorded)
{
    for (const QString& word : recorded) {
        if (word == wanted)
            return kEqualWord;
        if (word.contains(wanted) || wanted.contains(word))
            return kPartOfWord;
    }
    return 0;
}

int score(const QStringList& wanted, const QStringList& recorded)
{
    const QString wantedSide = sideOf(wanted);
    const QString recordedSide = sideOf(recorded);
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

QString bestByWords(const QString& wanted, const QStringList& recorded)
{
    const QStringList wantedWords = wordsOf(wanted);
    int best = 0;
    QString bestName;
    for (const QString& name : recorded) {
        const int candidate = score(wantedWords, wordsOf(name));
        if (candidate > best) {
            best = candidate;
            bestName = name;
        }
    }
    return best >= kLowestScore ? bestName : QString();
}

} // namespace

QString ChannelMatcher::match(const QString& wanted, const QStringList& recorded)
{
    return explainedMatch(wanted, recorded).name;
}

ChannelMatcher::Match ChannelMatcher::explainedMatch(const QString& wanted,
                                                     const QStringList& recorded)
{
    if (wanted.isEmpty())
        return {};
    const auto explained = [](const QString& name, Rule rule) {
        return name.isEmpty() ? Match() : Match{name, rule};
    };
    for (const auto& [spelling, rule] :
         {std::pair(&lowered, Rule::Case), std::pair(&compacted, Rule::Spelling)}) {
        const auto same = [spelling = spelling, key = spelling(wanted)](const QString& name) {
            return spelling(name) == key;
        };
        const auto found = std::find_if(recorded.begin(), recorded.end(), same);
        if (found != recorded.end())
            return explained(*found, rule);
    }
    return explained(bestByWords(wanted.left(kLongestComparedByWords), recorded), Rule::Words);
}
