#include "review/Pairing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

int neverAlike(std::size_t, std::size_t)
{
    return 0;
}

} // namespace

TEST(Pairing, PairsNamesWhereverTheyAre)
{
    const Pairing pairing = pairUp({u"a"_s, u"b"_s, u"c"_s}, {u"c"_s, u"d"_s, u"a"_s}, neverAlike);
    EXPECT_THAT(pairing.pairs, ElementsAre(Pair(2U, 0U), Pair(0U, 2U)));
    EXPECT_THAT(pairing.removed, ElementsAre(1U));
    EXPECT_THAT(pairing.added, ElementsAre(1U));
}

TEST(Pairing, NamesComeBeforeLikeness)
{
    const auto crossed = [](std::size_t f, std::size_t p) { return f == p ? 0 : 100; };
    const Pairing pairing = pairUp({u"a"_s, u"b"_s}, {u"a"_s, u"b"_s}, crossed);
    EXPECT_THAT(pairing.pairs, ElementsAre(Pair(0U, 0U), Pair(1U, 1U)));
}

TEST(Pairing, OfEqualNamesTheMostAlikeArePaired)
{
    const auto crossed = [](std::size_t f, std::size_t p) { return f == p ? 10 : 20; };
    const Pairing pairing = pairUp({u"a"_s, u"a"_s}, {u"a"_s, u"a"_s}, crossed);
    EXPECT_THAT(pairing.pairs, ElementsAre(Pair(1U, 0U), Pair(0U, 1U)));
}

TEST(Pairing, OfEqualNamesAsManyAsPossibleArePaired)
{
    const Pairing pairing = pairUp({u"a"_s, u"a"_s, u"a"_s}, {u"a"_s, u"a"_s}, neverAlike);
    EXPECT_THAT(pairing.pairs, ElementsAre(Pair(0U, 0U), Pair(1U, 1U)));
    EXPECT_THAT(pairing.removed, ElementsAre(2U));
}

TEST(Pairing, TheRestIsPairedByLikenessFromALeastOn)
{
    const auto alike = [](std::size_t f, std::size_t p) {
        return f == 0 && p == 1 ? kAlike : kAlike - 1;
    };
    const Pairing pairing = pairUp({u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}, alike);
    EXPECT_THAT(pairing.pairs, ElementsAre(Pair(0U, 1U)));
    EXPECT_THAT(pairing.removed, ElementsAre(1U));
    EXPECT_THAT(pairing.added, ElementsAre(0U));
}

TEST(Pairing, EmptyNamesAreNoNames)
{
    EXPECT_THAT(pairUp({QString()}, {QString()}, neverAlike).pairs, IsEmpty());
}

TEST(Pairing, AMillionItemsTakeAMoment)
{
    QStringList former;
    QStringList present;
    for (int i = 0; i < 500'000; ++i) {
        former.append(u"same"_s);
        present.append(u"same"_s);
        former.append(u"former %1"_s.arg(i));
        present.append(u"present %1"_s.arg(i));
    }
    const Pairing pairing = pairUp(former, present, neverAlike);
    EXPECT_EQ(pairing.pairs.size(), 500'000U);
    EXPECT_EQ(pairing.removed.size(), 500'000U);
    EXPECT_THAT(pairing.reordered(), IsEmpty());
}

TEST(Pairing, NothingIsReorderedByInsertionsAndRemovals)
{
    const Pairing pairing =
        pairUp({u"a"_s, u"x"_s, u"b"_s, u"c"_s}, {u"new"_s, u"a"_s, u"b"_s, u"c"_s}, neverAlike);
    EXPECT_THAT(pairing.reordered(), IsEmpty());
}

TEST(Pairing, AsFewAsExplainTheOrderAreReordered)
{
    const QStringList former{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s};
    EXPECT_THAT(pairUp(former, {u"e"_s, u"a"_s, u"b"_s, u"c"_s, u"d"_s}, neverAlike).reordered(),
                ElementsAre(0U));
    EXPECT_THAT(pairUp(former, {u"b"_s, u"c"_s, u"d"_s, u"a"_s, u"e"_s}, neverAlike).reordered(),
                ElementsAre(3U));
    EXPECT_EQ(
        pairUp(former, {u"e"_s, u"d"_s, u"c"_s, u"b"_s, u"a"_s}, neverAlike).reordered().size(),
        4U);
}
