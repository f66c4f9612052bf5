#include "dialogs/ChannelFilter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

ChannelDef channel(const QString& longName, const QString& shortName, const QString& unit)
{
    return {7, longName, shortName, QStringLiteral("label"), unit};
}

class ChannelFilterTest : public ::testing::Test
{
protected:
    const ChannelFilter m_filter{{
        channel(QStringLiteral("Engine Speed"), QStringLiteral("rpm"), QStringLiteral("1/min")),
        channel(QStringLiteral("Water Temp"), QStringLiteral("WT"), QStringLiteral("C")),
        channel(QStringLiteral("ÄÖ Öl"), QStringLiteral("Oil"), QStringLiteral("bar")),
    }};
};

} // namespace

TEST_F(ChannelFilterTest, AnEmptyOrBlankFilterKeepsEveryChannel)
{
    EXPECT_THAT(m_filter.matching(QString()), ElementsAre(0, 1, 2));
    EXPECT_THAT(m_filter.matching(QStringLiteral(" \t ")), ElementsAre(0, 1, 2));
}

TEST_F(ChannelFilterTest, TheFilterIsTrimmedAndCaseDoesNotMatter)
{
    EXPECT_THAT(m_filter.matching(QStringLiteral("  RPM ")), ElementsAre(0));
    EXPECT_THAT(m_filter.matching(QStringLiteral("äö ÖL")), ElementsAre(2));
}

TEST_F(ChannelFilterTest, LongNameShortNameAndUnitAreSearched)
{
    EXPECT_THAT(m_filter.matching(QStringLiteral("water")), ElementsAre(1));
    EXPECT_THAT(m_filter.matching(QStringLiteral("oil")), ElementsAre(2));
    EXPECT_THAT(m_filter.matching(QStringLiteral("bar")), ElementsAre(2));
    EXPECT_THAT(m_filter.matching(QStringLiteral("label")), IsEmpty());
}

TEST_F(ChannelFilterTest, AMatchMayReachAcrossTheSingleSpaceJoints)
{
    EXPECT_THAT(m_filter.matching(QStringLiteral("temp wt c")), ElementsAre(1));
    EXPECT_THAT(m_filter.matching(QStringLiteral("temp  wt")), IsEmpty());
}

TEST_F(ChannelFilterTest, KeepsTheOrderOfTheChannels)
{
    EXPECT_THAT(m_filter.matching(QStringLiteral("e")), ElementsAre(0, 1));
}

TEST_F(ChannelFilterTest, TheFilterIsPlainText)
{
    EXPECT_THAT(m_filter.matching(QStringLiteral(".*")), IsEmpty());
}
