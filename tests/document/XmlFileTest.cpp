#include "document/XmlFile.h"

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

TEST_F(XmlFileTest, RefusesFilesOfMoreThan200Megabytes)
{
    constexpr int kMost = 200'000'000;
    EXPECT_TRUE(load(QByteArray("<r/>").leftJustified(kMost)));
    EXPECT_FALSE(load(QByteArray("<r/>").leftJustified(kMost + 1)));
}

TEST_F(XmlFileTest, RefusesWhatWouldFillTheMemoryOnceParsed)
{
    EXPECT_TRUE(loadRepeated("<a/>", 7'000'000));
    EXPECT_FALSE(loadRepeated("<a/>", 8'000'000));
    EXPECT_TRUE(loadRepeated("<e></e>", 7'000'000)) << "an end adds nothing";
    EXPECT_TRUE(loadRepeated("=", 12'000'000)) << "as many attributes";
    EXPECT_FALSE(loadRepeated("=", 13'000'000));
    EXPECT_TRUE(loadRepeated("GPageParam", 490'000));
    EXPECT_FALSE(loadRepeated("GPageParam", 510'000));
    EXPECT_TRUE(loadRepeated(R"(<e c="GMaskParam"><p n="XPOS">1</p></e>)", 1'000'000));
    EXPECT_FALSE(loadRepeated(R"(<e c="GMaskParam"/>)", 2'000'000));
}
