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
    bool loadRepeated(const char* text, qsizetype times)
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
    constexpr qsizetype kTooMany = 8'000'000;
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

TEST(XmlMemory, IsAtMostAHundredTimesTheText)
{
    for (const QByteArray token : {"<", "=", "GMaskParam", "GPageParam"})
        EXPECT_LE(memoryOnceParsed(token), kMostMemoryAByte * token.size()) << token.constData();
}

TEST(XmlMemory, IsReasonableUpToTwelveTimesTheText)
{
    constexpr qint64 kMegabyte = 1'000'000;
    EXPECT_TRUE(isReasonableMemory(500 * kMegabyte, 0));
    EXPECT_FALSE(isReasonableMemory(500 * kMegabyte + 1, 0));
    EXPECT_TRUE(isReasonableMemory(1200 * kMegabyte, 100 * kMegabyte));
    EXPECT_FALSE(isReasonableMemory(1200 * kMegabyte + 1, 100 * kMegabyte));
    EXPECT_TRUE(isReasonableMemory(4000 * kMegabyte, 4000 * kMegabyte));
    EXPECT_FALSE(isReasonableMemory(4000 * kMegabyte + 1, 4000 * kMegabyte));
}

TEST(XmlMemory, SufficesForAMillionElementsWithFewOrManyProperties)
{
    constexpr int kMillion = 1'000'000;
    for (const int properties : {0, 1, 4, 20}) {
        const QByteArray element = "<e c='GMaskParam' i='e1'>" +
                                   QByteArray("<p n='WIDTH'>10</p>").repeated(properties) + "</e>";
        EXPECT_TRUE(
            isReasonableMemory(kMillion * memoryOnceParsed(element), kMillion * element.size()))
            << properties;
    }
}
