#include "review/FactText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FactText, KeepsTextsOnOneLine)
{
    EXPECT_EQ(FactText::oneLine(u"Öl 90 °C"_s), u"Öl 90 °C"_s);
    EXPECT_EQ(FactText::oneLine(u"a\nb\r\t"_s), u"a\\u000ab\\u000d\\u0009"_s);
    EXPECT_EQ(FactText::oneLine(u"\x1b[31m\x9b"_s), u"\\u001b[31m\\u009b"_s);
    EXPECT_EQ(FactText::oneLine(u"a\u2028b\u2029c"_s), u"a\\u2028b\\u2029c"_s);
    EXPECT_EQ(FactText::oneLine(u"\u202eevil"_s), u"\\u202eevil"_s);
    EXPECT_EQ(FactText::oneLine(u"\\u000a"_s), u"\\\\u000a"_s);
}

TEST(FactText, QuotesTextsUnambiguously)
{
    EXPECT_EQ(FactText::quoted(QString()), u"\"\""_s);
    EXPECT_EQ(FactText::quoted(u"a \"b\" \\"_s), u"\"a \\\"b\\\" \\\\\""_s);
}

TEST(FactText, WritesNumbers)
{
    EXPECT_EQ(FactText::size(800, -480), u"800 x -480"_s);
    EXPECT_EQ(FactText::position(-1, 2), u"-1, 2"_s);
    EXPECT_EQ(FactText::crc(0xc0ffee), u"0x00c0ffee"_s);
}

TEST(FactText, WritesStyles)
{
    EXPECT_EQ(FactText::style(u"Basic Sans SF"_s, 24, QColor(255, 255, 0)),
              u"\"Basic Sans SF\" 24 px 0xffffff00"_s);
    EXPECT_EQ(FactText::style(u"Basic Sans SF"_s, 24, {}), u"\"Basic Sans SF\" 24 px"_s);
    EXPECT_EQ(FactText::style({}, 24, Qt::red), u"none"_s);
}
