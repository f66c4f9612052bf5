#include "document/XmlFile.h"

#include "document/DashPage.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class XmlFileTest : public testing::Test
{
protected:
    bool load(const QByteArray& bytes)
    {
        EXPECT_TRUE(TestPackage::writeFile(m_path, bytes));
        return loadXmlFile(m_path, m_document);
    }

    /// A document that holds the text so many times.
    bool loadRepeated(const char* text, int times)
    {
        return load("<r>" + QByteArray(text).repeated(times) + "</r>");
    }

    QTemporaryDir m_folder{FolderTools::memoryTemplate()};
    QString m_path = m_folder.filePath(QString::fromUtf8("\xC3\xA9 \xE8\xB5\x9B.xml"));
    pugi::xml_document m_document;
};

} // namespace

TEST_F(XmlFileTest, ReadsAFileOfAnyName)
{
    ASSERT_TRUE(load("<r><a i=\"1\">text</a></r>"));
    EXPECT_STREQ(m_document.child("r").child("a").child_value(), "text");
}

TEST_F(XmlFileTest, RefusesWhatIsNoXml)
{
    EXPECT_FALSE(load(""));
    EXPECT_FALSE(load("text"));
    EXPECT_FALSE(load("<r>"));
    EXPECT_FALSE(loadXmlFile(m_folder.path(), m_document));
    EXPECT_FALSE(loadXmlFile(m_folder.filePath(QStringLiteral("missing")), m_document));
    EXPECT_FALSE(loadXmlFile({}, m_document));
}

TEST_F(XmlFileTest, RefusesWhatWouldFillTheMemoryOnceParsed)
{
    constexpr int kTooMany = 65'000'000;
    EXPECT_TRUE(load(QByteArray("<r/>").leftJustified(4 * kTooMany))) << "size alone is no harm";
    EXPECT_FALSE(loadRepeated("<a/>", kTooMany));
}

TEST(XmlMemory, IsThatOfNodesAttributesAndRecords)
{
    constexpr int kNode = 64;
    constexpr int kAttribute = 40;
    EXPECT_EQ(memoryOnceParsed("<a/>"), kNode);
    EXPECT_EQ(memoryOnceParsed("<e></e>"), kNode) << "an end adds nothing";
    EXPECT_EQ(memoryOnceParsed("<a b='' c=''/>"), kNode + 2 * kAttribute);
    EXPECT_GE(memoryOnceParsed("<e c='GMaskParam'/>"),
              kNode + kAttribute + qint64{sizeof(DashElement)});
    EXPECT_GE(memoryOnceParsed("<e c='GPageParam'/>"),
              kNode + kAttribute + qint64{sizeof(DashPage)});
}

TEST(XmlMemory, SufficesForAMillionElementsWithAllTheirProperties)
{
    constexpr int kMillion = 1'000'000;
    constexpr int kParts = 20; // more properties and objects than the editor itself reads
    const QByteArray element = "<e c='GMaskParam' i='value.01'>" +
                               QByteArray("<p n='KEY'>value</p>").repeated(kParts) + "</e>";
    EXPECT_LT(kMillion * memoryOnceParsed(element), kMostXmlMemory);
}
