#include "review/Findings.h"
#include "tests/review/OpenedLayout.h"

using namespace Qt::StringLiterals;
using TestPackage::digitElement;
using TestPackage::page;

TEST(ChannelCoverage, SaysWhatEachChannelShowsAndByWhichRule)
{
    const OpenedLayout layout(std::vector{
        page("One", 800, 480,
             {digitElement("m1", 0, 0, 9, 9, "RPM"), digitElement("m2", 0, 0, 9, 9, "Gear Pos"),
              digitElement("m3", 0, 0, 9, 9, "RPM"), digitElement("m4", 0, 0, 9, 9, "")}),
        page("Two", 800, 480,
             {digitElement("m5", 0, 0, 9, 9, "oil temp"),
              digitElement("m6", 0, 0, 9, 9, "Lambda")})});
    const std::vector<Finding> found =
        channelCoverage(layout.document(), {u"gear_pos"_s, u"main oil temp"_s, u"rpm"_s});
    using Rule = Finding::Rule;
    const std::vector<Finding> expected{
        {Rule::Match, 1, u"One"_s, u"m1"_s,
         u"channel \"RPM\" shows recorded \"rpm\" (equal but for case)"_s},
        {Rule::Match, 1, u"One"_s, u"m2"_s,
         u"channel \"Gear Pos\" shows recorded \"gear_pos\" (equal but for case, \"_\" and blanks)"_s},
        {Rule::Match, 2, u"Two"_s, u"m5"_s,
         u"channel \"oil temp\" shows recorded \"main oil temp\" (most words in common)"_s},
        {Rule::NoMatch, 2, u"Two"_s, u"m6"_s,
         u"channel \"Lambda\" matches nothing recorded and shows 0.00"_s}};
    EXPECT_EQ(found, expected);
}
