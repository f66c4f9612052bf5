#include "telemetry/ChannelMatcher.h"

#include "telemetry/RecordedNames.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

QString match(const QString& wanted, const QStringList& recorded)
{
    return ChannelMatcher::match(wanted, RecordedNames(recorded)).name;
}

QString matchOf(const char* wanted, const QStringList& recorded)
{
    return match(QString::fromUtf8(wanted), recorded);
}

QStringList names(std::initializer_list<const char*> all)
{
    QStringList result;
    for (const char* name : all)
        result.append(QString::fromUtf8(name));
    return result;
}

const QString kNone;

/// Unlike elapsed time independent of what else the machine does.
std::clock_t processorSeconds(std::clock_t since)
{
    return (std::clock() - since) / CLOCKS_PER_SEC;
}

TEST(ChannelMatcher, MatchesNothingForAnEmptyName)
{
    EXPECT_EQ(matchOf("", names({"", "rpm"})), kNone);
    EXPECT_EQ(matchOf("", names({"_", "rpm"})), kNone); // although it compacts to nothing
}

TEST(ChannelMatcher, MatchesNothingInAnEmptyRecording)
{
    EXPECT_EQ(matchOf("RPM", {}), kNone);
}

TEST(ChannelMatcher, IgnoresCaseFirst)
{
    EXPECT_EQ(matchOf("RPM", names({"rpm"})), u"rpm"_s);
    EXPECT_EQ(matchOf("Öl-Temperatur", names({"öl-temperatur"})), u"öl-temperatur"_s);
}

TEST(ChannelMatcher, PrefersEqualButForCaseToEarlierEqualButForBlanks)
{
    EXPECT_EQ(matchOf("gear pos", names({"GEAR_POS", "Gear Pos"})), u"Gear Pos"_s);
}

TEST(ChannelMatcher, IgnoresUnderscoresAndBlanksSecond)
{
    EXPECT_EQ(matchOf("Gear_Pos", names({"GearPos"})), u"GearPos"_s);
    EXPECT_EQ(matchOf("GearPos", names({"_gear  pos_"})), u"_gear  pos_"_s);
}

TEST(ChannelMatcher, TakesTheFirstOfSeveralEqualButForBlanks)
{
    EXPECT_EQ(matchOf("gearpos", names({"gear pos", "gear_pos"})), u"gear pos"_s);
}

TEST(ChannelMatcher, PrefersEqualButForBlanksToBetterWords)
{
    EXPECT_EQ(matchOf("oil temp", names({"oil temp x", "oiltemp"})), u"oiltemp"_s);
}

TEST(ChannelMatcher, LetsAMatchWithAnEmptyNameEndTheSearch)
{
    // Both are empty once compacted. The recorded name is the answer, although it says "none".
    EXPECT_EQ(matchOf("_", names({"", "a_"})), kNone);
    EXPECT_EQ(matchOf("_", names({" ", "a_"})), u" "_s);
}

TEST(ChannelMatcher, SeparatesWordsAtBlanksAndUnderscoresOnly)
{
    EXPECT_EQ(matchOf("oil-temp", names({"temp oil x", "x"})), u"temp oil x"_s); // "oil" is in it
    EXPECT_EQ(matchOf("abc-def", names({"abc.xyz def-abc"})), kNone);
    EXPECT_EQ(matchOf("a\tb", names({"b\ta"})), kNone);
}

TEST(ChannelMatcher, PassesOverAnotherSide)
{
    const QStringList recorded = names({"Port_Engine_RPM", "Stbd_Engine_RPM"});
    EXPECT_EQ(matchOf("port rpm", recorded), u"Port_Engine_RPM"_s);
    EXPECT_EQ(matchOf("stbd rpm", recorded), u"Stbd_Engine_RPM"_s);
}

TEST(ChannelMatcher, SkipsAChannelWithoutSideWhenTheNameHasOne)
{
    EXPECT_EQ(matchOf("port rpm", names({"engine port rpm"})), kNone);
    EXPECT_EQ(matchOf("port rpm", names({"rpm", "zz port"})), kNone);
}

TEST(ChannelMatcher, KeepsStbdAndStarApart)
{
    EXPECT_EQ(matchOf("star rpm", names({"Stbd RPM"})), kNone);
    EXPECT_EQ(matchOf("stbd rpm", names({"Star RPM"})), kNone);
    EXPECT_EQ(matchOf("star rpm", names({"Star Engine RPM"})), u"Star Engine RPM"_s);
}

TEST(ChannelMatcher, SeesASideInTheFirstWholeWordOnly)
{
    EXPECT_EQ(matchOf("portside rpm", names({"rpm"})), u"rpm"_s);
    EXPECT_EQ(matchOf("rpm port", names({"rpm main x"})), u"rpm main x"_s);
    EXPECT_EQ(matchOf("starboard rpm", names({"engine rpm x"})), u"engine rpm x"_s);
}

TEST(ChannelMatcher, PrefersNoSideWhenTheNameHasNone)
{
    EXPECT_EQ(matchOf("rpm", names({"Engine RPM Avg", "Port RPM"})), u"Engine RPM Avg"_s);
    // 10 - 3 = 7 is above 5, and above the 5 of a part of a word.
    EXPECT_EQ(matchOf("rpm", names({"Port RPM", "xrpmx yy"})), u"Port RPM"_s);
    // 5 - 3 = 2 is not enough.
    EXPECT_EQ(matchOf("rpm", names({"Port xRPM"})), kNone);
}

TEST(ChannelMatcher, CountsPartsOfWordsInBothDirections)
{
    EXPECT_EQ(matchOf("Water Temp", names({"WaterTemp1"})), u"WaterTemp1"_s);
    EXPECT_EQ(matchOf("WaterTemp1", names({"temp xx"})), u"temp xx"_s);
}

TEST(ChannelMatcher, AcceptsFiveAndNoLess)
{
    EXPECT_EQ(matchOf("Oil", names({"Boil Count"})), u"Boil Count"_s); // one part: exactly 5
    EXPECT_EQ(matchOf("Oil", names({"Water"})), kNone);                // equal number of words: 2
}

TEST(ChannelMatcher, LetsTheFirstRelatedWordDecide)
{
    // "speed" meets "speedo" first and earns 5, so that the equal number of words (7) wins.
    EXPECT_EQ(matchOf("speed", names({"speedo speed", "xspeed"})), u"xspeed"_s);
    // With the equal word first, 10 wins against 7.
    EXPECT_EQ(matchOf("speed", names({"speed speedo", "xspeed"})), u"speed speedo"_s);
}

TEST(ChannelMatcher, AwardsEachWantedWordOnce)
{
    // "oil" 10 against "oil", and no more for the second "oil"; "pan" 10 + 2 for two words wins.
    EXPECT_EQ(matchOf("oil pan", names({"oil oil oil", "pan x"})), u"pan x"_s);
}

TEST(ChannelMatcher, ScoresARepeatedWantedWordEachTime)
{
    EXPECT_EQ(matchOf("oil oil", names({"oil", "oil temp"})), u"oil temp"_s); // 20 + 2
    EXPECT_EQ(matchOf("oil oil x", names({"oil", "yy x"})), u"oil"_s);        // 20 against 10
}

TEST(ChannelMatcher, RewardsTheSameNumberOfWords)
{
    EXPECT_EQ(matchOf("oil temp", names({"a oil temp", "oil tempx"})), u"a oil temp"_s); // 20 : 17
    EXPECT_EQ(matchOf("oil temp", names({"a temp oil", "temp oil"})), u"temp oil"_s);    // 20 : 22
}

TEST(ChannelMatcher, KeepsTheEarlierOfEqualScores)
{
    EXPECT_EQ(matchOf("oil", names({"a oil", "b oil"})), u"a oil"_s);
    EXPECT_EQ(matchOf("oil", names({"b oil", "a oil"})), u"b oil"_s);
}

TEST(ChannelMatcher, ReturnsTheNameAsRecorded)
{
    EXPECT_EQ(matchOf("oil TEMP", names({"x", "Main_OIL Temp"})), u"Main_OIL Temp"_s);
}

TEST(ChannelMatcher, CopesWithTextThatIsNoText)
{
    const QString lone(QChar(0xD800));
    EXPECT_EQ(match(lone, {lone}), lone);
    EXPECT_EQ(match(QString(1, QChar(0)), names({"a"})), kNone);
    const QString longName(100'000, u'a');
    EXPECT_EQ(match(longName, names({"b a"})), u"b a"_s);
}

TEST(ChannelMatcher, OfAVeryLongNameOnlyTheBeginningIsComparedByWords)
{
    const QStringList recorded = names({"main oil temp"});
    const QString filler(200, u'x');
    EXPECT_EQ(match("oil temp "_L1 + filler, recorded), u"main oil temp"_s);
    EXPECT_EQ(match(filler + " oil temp"_L1, recorded), kNone);
    EXPECT_EQ(match(filler.left(191) + " oil temp"_L1, recorded), u"main oil temp"_s);
    EXPECT_EQ(match(u"oil temp"_s, {filler + " oil temp"_L1}), kNone) << "on both sides";
    const QString within = filler.left(191) + " oil temp"_L1;
    EXPECT_EQ(match(u"oil temp"_s, {within}), within);
    const QString whole = filler + u" oil temp"_s;
    EXPECT_EQ(match(whole, {whole.toUpper()}), whole.toUpper()) << "but the whole for equality";
}

TEST(ChannelMatcher, NamesTheRuleThatDecided)
{
    using ChannelMatcher::Match;
    using ChannelMatcher::Rule;
    const RecordedNames recorded(names({"gear_pos", "main oil temp", "rpm"}));
    const auto explained = [&](const QString& wanted) {
        return ChannelMatcher::match(wanted, recorded);
    };
    EXPECT_EQ(explained(u"RPM"_s), (Match{u"rpm"_s, Rule::Case}));
    EXPECT_EQ(explained(u"Gear Pos"_s), (Match{u"gear_pos"_s, Rule::Spelling}));
    EXPECT_EQ(explained(u"oil temp"_s), (Match{u"main oil temp"_s, Rule::Words}));
    EXPECT_EQ(explained(u"lambda"_s), Match());
    EXPECT_EQ(explained(QString()), Match());
    EXPECT_EQ(ChannelMatcher::match(u"_"_s, RecordedNames({QString()})), Match())
        << "an empty recorded name is none";
}

TEST(ChannelMatcher, AHostileLayoutTakesNoMinutes)
{
    QStringList recorded;
    for (int i = 0; i < 300; ++i)
        recorded.append(u"Sensor Name %1"_s.arg(i));
    const RecordedNames prepared(recorded);
    const QString filler = u"long text "_s.repeated(1'000);
    const std::clock_t start = std::clock();
    for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(ChannelMatcher::match(filler + QString::number(i), prepared),
                  ChannelMatcher::Match());
    }
    EXPECT_LT(processorSeconds(start), 10);
}

TEST(ChannelMatcher, AHostileRecordingTakesNoMinutes)
{
    QStringList recorded;
    for (int i = 0; i < 65'536; ++i)
        recorded.append(u"Sensor Name %1"_s.arg(i));
    const std::clock_t start = std::clock();
    const RecordedNames prepared(recorded);
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(ChannelMatcher::match(u"Sensor_Name_%1"_s.arg(i), prepared).name, recorded[i]);
        EXPECT_EQ(ChannelMatcher::match(u"Lambda_xyz"_s, prepared).name, kNone);
    }
    EXPECT_LT(processorSeconds(start), 10);
}

} // namespace
