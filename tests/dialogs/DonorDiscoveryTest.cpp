#include "dialogs/DonorDiscovery.h"

#include "document/DashboardDocument.h"
#include "tests/support/PackageBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using DonorDiscovery::classifyElement;
using DonorDiscovery::findDonors;
using DonorDiscovery::Kind;
using TestPackage::Object;

namespace {

Object part(const QByteArray& className)
{
    return {className, {}, {}, {}};
}

Object label(const QByteArray& text)
{
    return {"Label", {}, {{"TEXT", text}}, {}};
}

Object element(std::vector<Object> parts, const QByteArray& name = "mask.1")
{
    return {"GMaskParam",
            name,
            {TestPackage::number("HEIGHT", 40), TestPackage::number("WIDTH", 120)},
            std::move(parts)};
}

Object axis(const QByteArray& channel)
{
    return {"Axis", {}, {{"lnm", channel}}, {}};
}

std::optional<Kind> kindOf(std::vector<Object> parts)
{
    pugi::xml_document xml;
    const QByteArray text = TestPackage::toXml(element(std::move(parts)));
    EXPECT_TRUE(xml.load_buffer(text.constData(), static_cast<std::size_t>(text.size())));
    return classifyElement(xml.first_child());
}

class DonorDocument : public ::testing::Test
{
protected:
    void open(const std::vector<Object>& pages)
    {
        const QString path = m_folder.filePath(QStringLiteral("donors.zconf2"));
        ASSERT_TRUE(TestPackage::writePackage(path, TestPackage::overlayXml(pages)));
        ASSERT_TRUE(m_document.open(path));
    }

    const QTemporaryDir m_folder;
    DashboardDocument m_document;
};

} // namespace

TEST(ClassifyElement, GaugeWinsOverEverything)
{
    EXPECT_EQ(kindOf({part("Digit"), part("BargraphTrapezio"), part("AiM_Icona"), label("x"),
                      part("Axis"), part("Analog")}),
              Kind::AnalogGauge);
    EXPECT_EQ(kindOf({part("Analog"), part("Digit")}), Kind::AnalogGauge);
}

TEST(ClassifyElement, BarComesBeforeDigitAndIcon)
{
    EXPECT_EQ(kindOf({part("AiM_Icona"), part("Digit"), part("BargraphTrapezio")}),
              Kind::BarWithValue);
    EXPECT_EQ(kindOf({part("AiM_Icona"), part("BargraphTrapezio"), part("Axis")}),
              Kind::HorizontalBar);
}

TEST(ClassifyElement, DigitComesBeforeIcon)
{
    EXPECT_EQ(kindOf({part("AiM_Icona"), part("Digit")}), Kind::ValueWithIcon);
    EXPECT_EQ(kindOf({part("Digit"), label("x")}), Kind::NumericValue);
    EXPECT_EQ(kindOf({part("AiM_Icona"), label("x"), part("Axis")}), Kind::Icon);
}

TEST(ClassifyElement, TheIconClassThatDecidesDrawingDoesNotMakeAnIconDonor)
{
    EXPECT_EQ(kindOf({part("Icon")}), std::nullopt);
}

TEST(ClassifyElement, LabelsAloneAreACaptionOrAnInfoStrip)
{
    EXPECT_EQ(kindOf({label("a")}), Kind::StaticLabel);
    EXPECT_EQ(kindOf({label("a"), label("b")}), Kind::StaticLabel);
    EXPECT_EQ(kindOf({label("a"), label("b"), label("c")}), Kind::InfoStrip);
}

TEST(ClassifyElement, LabelsWithoutTextCountButDoNotQualify)
{
    EXPECT_EQ(kindOf({label("")}), std::nullopt);
    EXPECT_EQ(kindOf({part("Label"), part("Label"), part("Label")}), std::nullopt);
    EXPECT_EQ(kindOf({label(""), label("b"), part("Label")}), Kind::InfoStrip);
}

TEST(ClassifyElement, AnyTextPropertyOfALabelQualifies)
{
    EXPECT_EQ(kindOf({{"Label", {}, {{"TEXT", ""}, {"TEXT", "second"}}, {}}}), Kind::StaticLabel);
    EXPECT_EQ(kindOf({{"Label", {}, {{"OTHER", "text"}}, {}}}), std::nullopt);
}

TEST(ClassifyElement, LabelsBoundToAChannelAreNoDonor)
{
    EXPECT_EQ(kindOf({label("a"), part("Axis")}), std::nullopt);
    EXPECT_EQ(kindOf({label("a"), label("b"), label("c"), part("Axis")}), std::nullopt);
}

TEST(ClassifyElement, NothingKnownIsNoDonor)
{
    EXPECT_EQ(kindOf({}), std::nullopt);
    EXPECT_EQ(kindOf({part("Axis")}), std::nullopt);
    EXPECT_EQ(kindOf({part("digit"), part("Something")}), std::nullopt);
    EXPECT_EQ(classifyElement({}), std::nullopt);
}

TEST(ClassifyElement, OnlyDirectChildObjectsCount)
{
    EXPECT_EQ(kindOf({{"Group", {}, {}, {part("Analog")}}}), std::nullopt);
    EXPECT_EQ(kindOf({{"Label", {}, {}, {label("inner")}}}), std::nullopt);
}

TEST(KindName, EveryKindHasItsOwn)
{
    EXPECT_EQ(DonorDiscovery::kindName(Kind::AnalogGauge), QStringLiteral("Analog gauge"));
    EXPECT_EQ(DonorDiscovery::kindName(Kind::BarWithValue), QStringLiteral("Bar + value"));
    EXPECT_EQ(DonorDiscovery::kindName(Kind::HorizontalBar), QStringLiteral("Horizontal bar"));
    EXPECT_EQ(DonorDiscovery::kindName(Kind::ValueWithIcon),
              QStringLiteral("Numeric value + icon"));
    EXPECT_EQ(DonorDiscovery::kindName(Kind::NumericValue), QStringLiteral("Numeric value"));
    EXPECT_EQ(DonorDiscovery::kindName(Kind::Icon), QStringLiteral("Icon"));
    EXPECT_EQ(DonorDiscovery::kindName(Kind::StaticLabel), QStringLiteral("Static label"));
    EXPECT_EQ(DonorDiscovery::kindName(Kind::InfoStrip),
              QStringLiteral("Info strip (multi-label)"));
}

TEST(FindDonors, AnEmptyDocumentHasNone)
{
    EXPECT_TRUE(findDonors(DashboardDocument()).empty());
}

TEST_F(DonorDocument, FirstOfEachKindInDocumentOrderOnWhateverPage)
{
    open({TestPackage::page("One", 800, 480,
                            {element({axis("RPM"), part("BargraphTrapezio"), part("Digit")})}),
          TestPackage::page("Two", 800, 480),
          TestPackage::page("Three", 800, 480,
                            {element({part("BargraphTrapezio"), part("Digit")}, "again"),
                             element({part("BargraphTrapezio")}, "bar.7")})});
    const std::vector<Donor> donors = findDonors(m_document);
    ASSERT_EQ(donors.size(), 2U);
    EXPECT_EQ(donors[0].type, QStringLiteral("Bar + value"));
    EXPECT_EQ(donors[0].hint, QStringLiteral("e.g. RPM (120x40)"));
    EXPECT_EQ(donors[0].node, m_document.pages()[0].elements[0].node);
    EXPECT_EQ(donors[1].type, QStringLiteral("Horizontal bar"));
    EXPECT_EQ(donors[1].hint, QStringLiteral("e.g. bar.7 (120x40)"));
    EXPECT_EQ(donors[1].node, m_document.pages()[2].elements[1].node);
}

TEST_F(DonorDocument, TheSecondOfAKindOnAPageIsIgnored)
{
    open({TestPackage::page("One", 800, 480,
                            {element({label("x"), axis("Speed")}, "no donor"),
                             element({axis("RPM"), part("Digit")}, "first"),
                             element({axis("Gear"), part("Digit")}, "second")})});
    const std::vector<Donor> donors = findDonors(m_document);
    ASSERT_EQ(donors.size(), 1U);
    EXPECT_EQ(donors[0].hint, QStringLiteral("e.g. RPM (120x40)"));
    EXPECT_EQ(donors[0].width, 120);
    EXPECT_EQ(donors[0].height, 40);
}

TEST_F(DonorDocument, PlaceholdersInNamesStayAsTheyAre)
{
    open({TestPackage::page("One", 800, 480, {element({axis("%2 %1"), part("Digit")})})});
    const std::vector<Donor> donors = findDonors(m_document);
    ASSERT_EQ(donors.size(), 1U);
    EXPECT_EQ(donors[0].hint, QStringLiteral("e.g. %2 %1 (120x40)"));
}

TEST_F(DonorDocument, SizeIsThatOfTheRecordAlsoWhenItWasMovedSinceReading)
{
    open({TestPackage::page("One", 800, 480, {element({part("AiM_Icona")}, "icon.1")})});
    m_document.pageAt(0)->elements[0].w = -5;
    const std::vector<Donor> donors = findDonors(m_document);
    ASSERT_EQ(donors.size(), 1U);
    EXPECT_EQ(donors[0].width, -5);
    EXPECT_EQ(donors[0].hint, QStringLiteral("e.g. icon.1 (-5x40)"));
}
