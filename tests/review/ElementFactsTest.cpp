#include "review/ElementFacts.h"

#include "tests/review/OpenedLayout.h"

using namespace Qt::StringLiterals;

namespace {

/// The facts of the only element.
class ElementFactsTest : public ::testing::Test
{
protected:
    void make(const TestPackage::Object& element)
    {
        m_layout.emplace(std::vector{TestPackage::page("Race", 800, 480, {element})});
    }
    [[nodiscard]] const DashElement& element() const
    {
        return m_layout->document().pages().at(0).elements.at(0);
    }

    std::optional<OpenedLayout> m_layout;
};

} // namespace

TEST_F(ElementFactsTest, NamesKindAndChannel)
{
    make(TestPackage::digitElement("mask.1", 1, 2, 3, 4, "Engine \"RPM\""));
    EXPECT_EQ(ElementFacts::kindName(element()), u"Numeric value"_s);
    EXPECT_EQ(ElementFacts::channel(element()), u"\"Engine \\\"RPM\\\"\" short \"Engi\""_s);
    EXPECT_EQ(ElementFacts::valueStyle(element()), u"\"Basic Sans SF\" 24 px 0xffffff00"_s);
    EXPECT_EQ(ElementFacts::labelStyle(element()), u"none"_s);
}

TEST_F(ElementFactsTest, AnElementOfUnknownPartsIsOther)
{
    make({"GMaskParam", "mask.1", {}, {}});
    EXPECT_EQ(ElementFacts::kindName(element()), u"Other"_s);
    EXPECT_EQ(ElementFacts::channel(element()), u"none"_s);
    EXPECT_TRUE(ElementFacts::texts(element()).isEmpty());
}

TEST_F(ElementFactsTest, ListsTextsAndFontsOfAllParts)
{
    TestPackage::Object strip = TestPackage::labelElement("mask.1", 1, 2, 3, 4, "Oil");
    strip.objects.push_back(TestPackage::styleObject("Label", "Other Font", 9, "0xffffffff"));
    strip.objects.back().properties.push_back({"TEXT", "Water"});
    strip.objects.push_back(TestPackage::styleObject("Label", "", 9, "0xffffffff"));
    strip.objects.push_back(TestPackage::styleObject("Digit", "Other Font", 9, "0xffffffff"));
    make(strip);
    EXPECT_EQ(ElementFacts::texts(element()), (QStringList{u"Oil"_s, u"Water"_s}));
    EXPECT_EQ(ElementFacts::fonts(element()), (QStringList{u"Basic Sans SF"_s, u"Other Font"_s}));
}
