#include "document/XmlFile.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

namespace {

class XmlFileTest : public testing::Test
{
protected:
    Outcome load(const QByteArray& bytes)
    {
        EXPECT_TRUE(TestPackage::writeFile(m_path, bytes));
        return loadXmlFile(m_path, m_document);
    }

    /// The file that saving the document gives, without the declaration.
    [[nodiscard]] QByteArray saved() const
    {
        EXPECT_TRUE(saveXmlFile(m_document, m_path));
        return TestPackage::readFile(m_path).mid(qstrlen("<?xml version=\"1.0\"?>\n"));
    }

    /// A document of an element with that content, loaded, saved and loaded again.
    QByteArray savedTwice(const QByteArray& content)
    {
        EXPECT_TRUE(load("<r>" + content + "</r>"));
        const QByteArray once = saved();
        EXPECT_TRUE(load(once));
        EXPECT_EQ(saved(), once);
        return once;
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
    const QString reason =
        QString::fromUtf8("\"\xC3\xA9 \xE8\xB5\x9B.xml\" is not well-formed XML");
    EXPECT_EQ(load("").reason(), reason);
    EXPECT_EQ(load("text").reason(), reason);
    EXPECT_EQ(load("<r>").reason(), reason);
}

TEST_F(XmlFileTest, SaysWhyAFileCannotBeRead)
{
    const QString missing = m_folder.filePath(QStringLiteral("missing"));
    EXPECT_EQ(loadXmlFile(missing, m_document).reason(),
              QStringLiteral("\"missing\" cannot be read: ") + qt_error_string(ENOENT));
    EXPECT_FALSE(loadXmlFile(m_folder.path(), m_document)) << "a folder";
    EXPECT_FALSE(loadXmlFile({}, m_document));
}

TEST_F(XmlFileTest, RefusesAFileOfMoreThan64Megabytes)
{
    const QByteArray largest = QByteArray("<r/>").leftJustified(64'000'000);
    EXPECT_TRUE(load(largest));
    EXPECT_TRUE(load(largest + ' ').reason().endsWith(QStringLiteral(" is larger than 64 MB")));
}

TEST_F(XmlFileTest, RefusesMoreThanAHundredLevels)
{
    const auto nested = [](int levels, const QByteArray& innermost) -> QByteArray {
        return QByteArray("<e>").repeated(levels) + innermost + QByteArray("</e>").repeated(levels);
    };
    EXPECT_TRUE(load(nested(100, "text"))) << "texts do not count";
    EXPECT_TRUE(load(nested(101, {})).reason().endsWith(QStringLiteral(" is nested too deeply")));
    EXPECT_FALSE(load("<r/>" + nested(101, {}))) << "wherever they are";
}

TEST_F(XmlFileTest, AValueOfBlanksSurvivesASave)
{
    EXPECT_EQ(savedTwice("<p> </p><p>\n\t</p><p/>"),
              "<r>\n  <p> </p>\n  <p>\n\t</p>\n  <p />\n</r>\n");
}

TEST_F(XmlFileTest, BlanksBetweenElementsBecomeIndentation)
{
    EXPECT_EQ(savedTwice(" \n <p>1</p>   <p>2</p>\t"), "<r>\n  <p>1</p>\n  <p>2</p>\n</r>\n");
}

TEST_F(XmlFileTest, ACarriageReturnSurvivesASave)
{
    EXPECT_EQ(savedTwice("<p>a&#13;b&#13;&#10;c</p><p i=\"&#13;\"/><p>&#13;</p>"),
              "<r>\n  <p>a&#13;b&#13;\nc</p>\n  <p i=\"&#13;\" />\n  <p>&#13;</p>\n</r>\n");
    EXPECT_EQ(savedTwice("<p>a\r\nb</p>"), "<r>\n  <p>a\nb</p>\n</r>\n") << "as XML has it";
}

TEST_F(XmlFileTest, AValueInPiecesIsSavedAsItReads)
{
    EXPECT_EQ(savedTwice("<p>1<!-- -->2<?x?>3</p>"), "<r>\n  <p>1</p>\n</r>\n");
    EXPECT_EQ(savedTwice("<p><x/>1<!-- -->2</p>"), "<r>\n  <p>\n    <x />1</p>\n</r>\n");
    EXPECT_EQ(savedTwice("<p><![CDATA[1]]>2</p>"), "<r>\n  <p><![CDATA[1]]>2</p>\n</r>\n");
    EXPECT_EQ(savedTwice("<p>1<![CDATA[2]]>3</p>"), "<r>\n  <p>1<![CDATA[2]]>3</p>\n</r>\n");
    EXPECT_EQ(savedTwice("a<!-- -->b"), "<r>ab</r>\n") << "no value";
}

TEST_F(XmlFileTest, AFailedSaveSaysWhy)
{
    ASSERT_TRUE(load("<r/>"));
    EXPECT_EQ(saveXmlFile(m_document, m_folder.path()).reason(),
              QStringLiteral("The destination is not an ordinary file"));
}

TEST_F(XmlFileTest, LeavesOutIndentationThatTheLimitHasNoRoomFor)
{
    constexpr int kLevels = 99;
    const QByteArray content = QByteArray("<p/>").repeated(330'000);
    ASSERT_TRUE(
        load(QByteArray("<e>").repeated(kLevels) + content + QByteArray("</e>").repeated(kLevels)));
    ASSERT_TRUE(saveXmlFile(m_document, m_path));
    const QByteArray once = TestPackage::readFile(m_path);
    EXPECT_TRUE(once.startsWith("<?xml version=\"1.0\"?><e><e>"));
    ASSERT_TRUE(loadXmlFile(m_path, m_document));
    ASSERT_TRUE(saveXmlFile(m_document, m_path));
    EXPECT_TRUE(TestPackage::readFile(m_path) == once);
}

TEST_F(XmlFileTest, SavesNothingThatItCouldNotReadAgain)
{
    constexpr int kMost = 16'000'000 - 10; // each ">" is written as "&gt;"
    const QByteArray content(kMost + 5, '>');
    ASSERT_TRUE(load("<r>" + content.left(kMost) + "</r>"));
    EXPECT_TRUE(load(saved()));
    ASSERT_TRUE(load("<r>" + content + "</r>"));
    const QString reason = saveXmlFile(m_document, m_path).reason();
    EXPECT_TRUE(reason.endsWith(QStringLiteral(" would be larger than 64 MB")));
    EXPECT_EQ(TestPackage::readFile(m_path).size(), kMost + 12) << "the old file";
    EXPECT_EQ(FolderTools::names(m_folder.path()).size(), 1);
}
