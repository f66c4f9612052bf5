#include "document/ColorText.h"

#include <gtest/gtest.h>

namespace {

QColor parsed(const char* text)
{
    return ColorText::parse(QString::fromLatin1(text));
}

QByteArray formatted(const QColor& color)
{
    return ColorText::format(color).toLatin1();
}

} // namespace

TEST(ColorText, ReadsAlphaRedGreenBlue)
{
    EXPECT_EQ(parsed("0x12345678"), QColor(0x34, 0x56, 0x78, 0x12));
    EXPECT_EQ(parsed("0x80FF0000"), QColor(255, 0, 0, 128));
    EXPECT_EQ(parsed("0x00000000"), QColor(0, 0, 0, 0));
    EXPECT_EQ(parsed("0xaBcDeFfF"), QColor(0xcd, 0xef, 0xff, 0xab));
}

TEST(ColorText, SkipsTheFirstTwoCharactersWhateverTheyAre)
{
    EXPECT_EQ(parsed("##80FF0000"), QColor(255, 0, 0, 128));
    EXPECT_EQ(parsed("ff80FF0000"), QColor(255, 0, 0, 128));
    EXPECT_EQ(ColorText::parse(QStringLiteral("\u00e9\u6c3480FF0000")), QColor(255, 0, 0, 128));
}

TEST(ColorText, AnythingButEightDigitsIsInvalid)
{
    for (const char* const text :
         {"", "0", "0x", "red", "0x80FF000", "0x80FF00000", "0x80FF000g", "0x 80FF000",
          "0x80FF0000 ", "0x+80FF000", "0x-80FF000", "0x0x80FF00", "80FF0000"})
        EXPECT_FALSE(parsed(text).isValid()) << text;
    // Digits of other scripts are not hexadecimal digits of a file.
    EXPECT_FALSE(
        ColorText::parse(QStringLiteral("0x\u0661\u0661\u0661\u0661\u0661\u0661\u0661\u0661"))
            .isValid());
}

TEST(ColorText, WritesTwoLowerCaseDigitsForEachComponent)
{
    EXPECT_EQ(formatted(QColor(255, 128, 0)), "0xffff8000");
    EXPECT_EQ(formatted(QColor(1, 2, 0xab, 8)), "0x080102ab");
    EXPECT_EQ(formatted(QColor(0, 0, 0, 0)), "0x00000000");
}

TEST(ColorText, WritesAnInvalidColorAsOpaqueBlack)
{
    EXPECT_EQ(formatted(QColor()), "0xff000000");
}

TEST(ColorText, ReadsWhatItWrote)
{
    for (int value = 0; value < 256; ++value) {
        const QColor color(value, 255 - value, value / 2, 255 - value / 3);
        EXPECT_EQ(ColorText::parse(ColorText::format(color)), color);
    }
}
