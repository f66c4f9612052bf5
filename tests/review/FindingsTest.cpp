#include "review/Findings.h"

#include "tests/review/OpenedLayout.h"

#include <QElapsedTimer>
#include <QImage>
#include <QSet>

using namespace Qt::StringLiterals;
using TestPackage::digitElement;
using TestPackage::labelElement;
using TestPackage::Object;
using TestPackage::page;
using Rule = Finding::Rule;

namespace {

const QByteArray& device()
{
    static const QByteArray xml =
        TestPackage::deviceXml("MXG", 12, {{7, "Engine RPM", "RPM", "rpm"}});
    return xml;
}

std::vector<Finding> findingsOf(const std::vector<Object>& pages,
                                const QByteArray& deviceXml = device(),
                                TestPackage::Members others = {})
{
    return findings(OpenedLayout(pages, deviceXml, std::move(others)).document());
}

/// The findings of one page of the display's size.
std::vector<Finding> findingsOn(std::vector<Object> elements)
{
    return findingsOf({page("Race", 800, 480, std::move(elements))});
}

Finding aboutElement(Rule rule, const QString& element, const QString& message)
{
    return {rule, 1, u"Race"_s, element, message};
}

using Findings = std::vector<Finding>;

} // namespace

TEST(Findings, ACleanLayoutHasNone)
{
    EXPECT_EQ(findingsOn({digitElement("a", 0, 0, 400, 480), digitElement("b", 400, 0, 400, 480)}),
              Findings());
}

TEST(Findings, ElementsBeyondTheirPage)
{
    EXPECT_EQ(findingsOn({digitElement("a", 401, 0, 400, 480), digitElement("b", -400, 0, 400, 10),
                          digitElement("c", 0, 480, 5, 5), digitElement("d", 0, -1, 5, 5)}),
              (Findings{aboutElement(Rule::OutsidePage, u"a"_s, u"reaches beyond its page"_s),
                        aboutElement(Rule::OutsidePage, u"b"_s, u"is outside its page"_s),
                        aboutElement(Rule::OutsidePage, u"c"_s, u"is outside its page"_s),
                        aboutElement(Rule::OutsidePage, u"d"_s, u"reaches beyond its page"_s)}));
}

TEST(Findings, CoordinatesNearTheLimitsDoNotOverflow)
{
    constexpr int kMax = std::numeric_limits<int>::max();
    EXPECT_EQ(findingsOn({digitElement("a", kMax, 0, kMax, 5)}),
              (Findings{aboutElement(Rule::OutsidePage, u"a"_s, u"is outside its page"_s)}));
}

TEST(Findings, ElementsWithoutArea)
{
    EXPECT_EQ(findingsOn({digitElement("a", 10, 10, 0, 5), digitElement("b", 10, 10, 5, -1)}),
              (Findings{aboutElement(Rule::NoArea, u"a"_s, u"has no area: 0 x 5"_s),
                        aboutElement(Rule::NoArea, u"b"_s, u"has no area: 5 x -1"_s)}));
}

TEST(Findings, ElementsCoveredByALaterOne)
{
    EXPECT_EQ(findingsOn({digitElement("a", 10, 10, 20, 20), digitElement("b", 10, 10, 20, 20),
                          digitElement("c", 5, 5, 25, 24), digitElement("d", 6, 6, 3, 3)}),
              (Findings{aboutElement(Rule::Covered, u"a"_s, u"is covered by element \"b\""_s)}))
        << "neither by an earlier one nor in part";
}

TEST(Findings, ElementsCoveredByAMuchLaterOne)
{
    std::vector<Object> elements{digitElement("first", 10, 10, 20, 20)};
    for (int i = 0; i < 2000; ++i) // in one place, so the last one covers them all
        elements.push_back(digitElement(QByteArray::number(i), 100, 100, 20, 20));
    elements.push_back(digitElement("last", 0, 0, 90, 90));
    const Findings found = findingsOn(elements);
    ASSERT_EQ(found.size(), 2000U);
    EXPECT_EQ(found.front(),
              aboutElement(Rule::Covered, u"first"_s, u"is covered by element \"last\""_s));
    EXPECT_EQ(found.back(),
              aboutElement(Rule::Covered, u"1998"_s, u"is covered by element \"1999\""_s));
}

TEST(Findings, NamesUsedTwiceOnAPage)
{
    const std::vector<Object> pages{
        page("Race", 800, 480,
             {digitElement("a", 0, 0, 5, 5), digitElement("a", 5, 0, 5, 5),
              digitElement("a", 10, 0, 5, 5), digitElement("", 15, 0, 5, 5),
              digitElement("", 20, 0, 5, 5), digitElement("b", 25, 0, 5, 5)}),
        page("Pit", 800, 480, {digitElement("b", 0, 0, 5, 5)})};
    EXPECT_EQ(findingsOf(pages), (Findings{aboutElement(Rule::DuplicateName, u"a"_s,
                                                        u"shares its name with another"_s)}));
}

TEST(Findings, ChannelsThatTheDeviceLacks)
{
    EXPECT_EQ(
        findingsOn(
            {digitElement("a", 0, 0, 5, 5, "engine rpm"), digitElement("b", 5, 0, 5, 5, "")}),
        (Findings{aboutElement(Rule::UnknownChannel, u"a"_s,
                               u"is bound to \"engine rpm\", which the device does not have"_s)}));
}

TEST(Findings, FontsThatTheDisplayLacks)
{
    Object element = labelElement("a", 0, 0, 5, 5, "Oil");
    element.objects.push_back(TestPackage::styleObject("Label", "Comic", 9, "0xffffffff"));
    element.objects.push_back(TestPackage::styleObject("Label", "", 9, "0xffffffff"));
    EXPECT_EQ(findingsOn({element}),
              (Findings{aboutElement(Rule::UnknownFont, u"a"_s,
                                     u"uses font \"Comic\", which the display does not have"_s)}));
}

TEST(Findings, PagesOfAnotherSizeThanTheDisplay)
{
    EXPECT_EQ(
        findingsOf({page("Race", 800, 481)}),
        (Findings{{Rule::PageSize, 1, u"Race"_s, {}, u"is 800 x 481, the display 800 x 480"_s}}));
}

TEST(Findings, PagesWithoutTheImageThatTheyName)
{
    Object race = page("Race", 800, 480);
    race.properties.push_back({"PATH_IMAGE", "race.png"});
    const Findings expected{{Rule::MissingImage,
                             1,
                             u"Race"_s,
                             {},
                             u"has no background image, although it names \"race.png\""_s}};
    EXPECT_EQ(findingsOf({race}), expected);
    EXPECT_EQ(findingsOf({race}, device(), {{u"0.png"_s, "no picture"}}), expected);

    const QTemporaryDir folder;
    ASSERT_TRUE(QImage(2, 2, QImage::Format_RGB32).save(folder.filePath(u"0.png"_s)));
    const QByteArray picture = TestPackage::readFile(folder.filePath(u"0.png"_s));
    EXPECT_EQ(findingsOf({race}, device(), {{u"0.png"_s, picture}}), Findings());
    EXPECT_EQ(findingsOf({race}, device(), {{u"1.png"_s, picture}}), expected);
}

TEST(Findings, WithoutADeviceNeitherChannelsNorSizesAreChecked)
{
    const Findings found =
        findingsOf({page("Race", 320, 240, {digitElement("a", 0, 0, 5, 5, "Any")})}, {});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].rule, Rule::NoDevice);
    EXPECT_EQ(found[0].page, 0);
}

TEST(Findings, ADeviceOfWhichOnlyTheTypeOrTheChannelsAreKnownIsADevice)
{
    const Object race = page("Race", 800, 480);
    EXPECT_EQ(findingsOf({race}, TestPackage::deviceXml("MXG", 12, {})), Findings());
    EXPECT_EQ(findingsOf({race}, TestPackage::deviceXml({}, -1, {{7, "RPM", "RPM", "rpm"}})),
              Findings());
}

TEST(Findings, APageOfManyElementsIsCheckedInAMoment)
{
    std::vector<Object> elements;
    for (int i = 0; i < 20'000; ++i)
        elements.push_back(digitElement(QByteArray::number(i), i % 800, i % 480, 800 + i, 1));
    const OpenedLayout layout({page("Race", 800, 480, elements)}, device());
    QElapsedTimer timer;
    timer.start();
    EXPECT_GE(findings(layout.document()).size(), 20'000U);
    EXPECT_LT(timer.elapsed(), 10'000);
}

TEST(Findings, EveryRuleHasAnIdentifierOfItsOwn)
{
    QSet<QString> ids;
    for (const Rule rule : allRules())
        ids.insert(identifier(rule));
    EXPECT_EQ(ids.size(), 11);
    EXPECT_EQ(identifier(Rule::UnknownChannel), u"unknown-channel"_s);
    EXPECT_EQ(severityOf(Rule::UnknownChannel), Severity::Error);
    EXPECT_EQ(severityOf(Rule::NoMatch), Severity::Warning);
    EXPECT_EQ(severityOf(Rule::Match), Severity::Information);
    EXPECT_EQ(identifier(Severity::Information), u"information"_s);
    EXPECT_TRUE(isAboutElement(Rule::Covered));
    EXPECT_FALSE(isAboutElement(Rule::PageSize));
}
