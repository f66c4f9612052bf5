#include "document/XmlTree.h"

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <sstream>

namespace {

class XmlTreeTest : public ::testing::Test
{
protected:
    pugi::xml_node load(const char* xml)
    {
        EXPECT_TRUE(m_document.load_string(xml));
        return m_document.first_child();
    }

    [[nodiscard]] std::string text() const
    {
        std::ostringstream out;
        m_document.print(out, "", pugi::format_raw | pugi::format_no_declaration);
        return out.str();
    }

private:
    pugi::xml_document m_document;
};

} // namespace

TEST_F(XmlTreeTest, AnObjectHasExactlyItsOwnClass)
{
    const pugi::xml_node object = load(R"(<e c="Axis"/>)");
    EXPECT_TRUE(XmlTree::hasClass(object, "Axis"));
    EXPECT_FALSE(XmlTree::hasClass(object, "axis"));
    EXPECT_FALSE(XmlTree::hasClass(object, "Axi"));
    EXPECT_FALSE(XmlTree::hasClass(load(R"(<e i="Axis"/>)"), "Axis"));
    EXPECT_FALSE(XmlTree::hasClass({}, "Axis"));
}

TEST_F(XmlTreeTest, FindsTheNthObjectOfAClass)
{
    const pugi::xml_node root = load(
        R"(<r><e c="B" i="0"/><e c="A" i="1"/><x c="A"/><e i="2"/><e c="A" i="3"><e c="A" i="4"/></e></r>)");
    const auto nameOf = [&](int index) {
        return std::string(XmlTree::nthObject(root, "A", index).attribute("i").as_string());
    };
    EXPECT_EQ(nameOf(0), "1");
    EXPECT_EQ(nameOf(1), "3");
    EXPECT_EQ(nameOf(2), "");
    EXPECT_EQ(XmlTree::firstObject(root, "A"), XmlTree::nthObject(root, "A", 0));
    EXPECT_FALSE(XmlTree::firstObject(root, "a")) << "classes differ by case";
    EXPECT_FALSE(XmlTree::firstObject({}, "A"));
}

TEST_F(XmlTreeTest, ReadsNumbersAsAtoiDoes)
{
    const auto number = [&](const char* value) {
        return XmlTree::number(load(("<p>" + std::string(value) + "</p>").c_str()));
    };
    EXPECT_EQ(number("12"), 12);
    EXPECT_EQ(number("12abc"), 12);
    EXPECT_EQ(number(" 7"), 7);
    EXPECT_EQ(number("+7"), 7);
    EXPECT_EQ(number("-7"), -7);
    EXPECT_EQ(number("1.9"), 1);
    EXPECT_EQ(number("0x10"), 0);
    EXPECT_EQ(number("abc"), 0);
    EXPECT_EQ(number(""), 0);
    EXPECT_EQ(number("2147483647"), 2147483647);
    EXPECT_EQ(number("-2147483648"), -2147483647 - 1);
}

TEST_F(XmlTreeTest, ReadsTheFirstTextChild)
{
    EXPECT_EQ(XmlTree::text(load("<p>one<x/>two</p>")), QStringLiteral("one"));
    EXPECT_EQ(XmlTree::text(load("<p><x/>two</p>")), QStringLiteral("two"));
    EXPECT_EQ(XmlTree::text(load("<p><![CDATA[a<b]]></p>")), QStringLiteral("a<b"));
    EXPECT_EQ(XmlTree::text(load("<p>\xc3\xa9</p>")), QStringLiteral("\u00e9"));
    EXPECT_EQ(XmlTree::text(load("<p/>")), QString());
}

TEST_F(XmlTreeTest, SetTextReplacesEveryChildByOneTextChild)
{
    const pugi::xml_node node = load("<p n=\"K\">one<x><y/></x><![CDATA[two]]></p>");
    XmlTree::setText(node, QStringLiteral("<\u00e9>"));
    EXPECT_EQ(text(), "<p n=\"K\">&lt;\xc3\xa9&gt;</p>");
    XmlTree::setNumber(node, -7);
    EXPECT_EQ(text(), "<p n=\"K\">-7</p>");
}

TEST_F(XmlTreeTest, SetTextKeepsOneEmptyTextChild)
{
    const pugi::xml_node node = load("<p>one</p>");
    XmlTree::setText(node, QString());
    EXPECT_EQ(text(), "<p></p>");
    ASSERT_TRUE(node.first_child());
    EXPECT_EQ(node.first_child().type(), pugi::node_pcdata);
    EXPECT_FALSE(node.first_child().next_sibling());
}

TEST_F(XmlTreeTest, SetTextKeepsTheBytesOfTextThatStaysTheSame)
{
    const pugi::xml_node node = load("<p>a\xff\xfe</p>");
    XmlTree::setText(node, XmlTree::text(node));
    EXPECT_EQ(text(), "<p>a\xff\xfe</p>");
    XmlTree::setText(node, QStringLiteral("a"));
    EXPECT_EQ(text(), "<p>a</p>");

    const pugi::xml_node mixed = load("<p><![CDATA[a\xff]]><x/></p>");
    XmlTree::setText(mixed, XmlTree::text(mixed));
    EXPECT_EQ(text(), "<p>a\xff</p>") << "one text child all the same";
}

TEST_F(XmlTreeTest, FindsTheFirstAndTheLastPropertyOfAKey)
{
    const pugi::xml_node node =
        load(R"(<e><x n="K">1</x><p n="k">2</p><p n="K">3</p><p n="K">4</p><p m="K">5</p></e>)");
    EXPECT_EQ(XmlTree::number(XmlTree::firstProperty(node, "K")), 3);
    EXPECT_EQ(XmlTree::number(XmlTree::lastProperty(node, "K")), 4);
    EXPECT_FALSE(XmlTree::firstProperty(node, "missing"));
    EXPECT_FALSE(XmlTree::lastProperty(node, "missing"));
}

TEST_F(XmlTreeTest, ATextOfBlanksCountsAsEmpty)
{
    for (const char* const blank : {"", " ", "\t", "\r", "\n", " \r\n\t "})
        EXPECT_TRUE(XmlTree::decoded(blank).isEmpty()) << '"' << blank << '"';
    EXPECT_EQ(XmlTree::decoded(" a "), QStringLiteral(" a "));
    EXPECT_EQ(XmlTree::decoded("\xc2\xa0"), QStringLiteral("\u00a0")) << "no blank in XML";
}

TEST_F(XmlTreeTest, CutsLongTextsBetweenCharacters)
{
    constexpr int kMost = 10'000;
    EXPECT_EQ(XmlTree::decoded(std::string(kMost, 'x').c_str()).size(), kMost);
    EXPECT_EQ(XmlTree::decoded(std::string(kMost + 1, 'x').c_str()).size(), kMost);
    const QString wide = QStringLiteral("\u8d5b").repeated(kMost); // three bytes each
    EXPECT_EQ(XmlTree::decoded(wide.toUtf8()), wide);
    const QString pairs = u'x' + QString::fromUtf8("\xf0\x9f\x8f\x81").repeated(kMost);
    EXPECT_EQ(XmlTree::decoded(pairs.toUtf8()), pairs.left(kMost - 1));
}

TEST_F(XmlTreeTest, AppendPropertyGivesAnEmptyValueNoTextChild)
{
    const pugi::xml_node node = load("<e/>");
    XmlTree::appendProperty(node, "A", QStringLiteral("1"));
    XmlTree::appendProperty(node, "B", QString());
    EXPECT_EQ(text(), R"(<e><p n="A">1</p><p n="B"/></e>)");
}
