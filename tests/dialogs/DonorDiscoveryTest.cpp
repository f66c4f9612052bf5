#include "dialogs/DonorDiscovery.h"

#include "document/DashboardDocument.h"
#include "tests/support/ElementParts.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using DonorDiscovery::findDonors;
using ElementParts::label;
using ElementParts::part;
using TestPackage::Object;

namespace {

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

TEST(FindDonors, AnEmptyDocumentHasNone)
{
    EXPECT_TRUE(findDonors(DashboardDocument()).empty());
}

TEST_F(DonorDocument, FirstOfEachKindInDocumentOrderOnAnyPage)
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
