#include "canvas/ElidedTexts.h"

#include <QApplication>
#include <QFontMetrics>

#include <gtest/gtest.h>

namespace {

QFont font(int pixelSize, QFont::Weight weight = QFont::Normal)
{
    QFont result = QApplication::font();
    result.setPixelSize(pixelSize);
    result.setWeight(weight);
    return result;
}

QString cutOff(const QString& text, const QFont& in, int width)
{
    return QFontMetrics(in).elidedText(text, Qt::ElideRight, width);
}

const QString kName = QStringLiteral("Engine oil temperature");

} // namespace

TEST(ElidedTexts, ATextThatFitsIsShownWhole)
{
    ElidedTexts texts;
    EXPECT_EQ(texts.elided(kName, font(10), 1000), kName);
}

TEST(ElidedTexts, ATextThatIsTooLongIsCutOffAtTheRight)
{
    ElidedTexts texts;
    const QString shown = texts.elided(kName, font(10), 60);
    EXPECT_EQ(shown, cutOff(kName, font(10), 60));
    EXPECT_TRUE(shown.endsWith(QChar(0x2026)));
    EXPECT_LT(shown.size(), kName.size());
}

TEST(ElidedTexts, EverythingThatMattersIsTakenIntoAccount)
{
    ElidedTexts texts;
    for (int round = 0; round < 2; ++round) { // the second from what was kept
        for (const int size : {8, 10, 30}) {
            for (const QFont::Weight weight : {QFont::Normal, QFont::Bold}) {
                for (const int width : {-4, 0, 30, 60, 90, 400}) {
                    for (const QString& text : {kName, QString(kName + u'!'), QString()}) {
                        EXPECT_EQ(texts.elided(text, font(size, weight), width),
                                  cutOff(text, font(size, weight), width))
                            << size << ' ' << weight << ' ' << width;
                    }
                }
            }
        }
    }
}

TEST(ElidedTexts, AnotherBaseFontEmptiesTheCache)
{
    ElidedTexts texts;
    texts.setBaseFont(font(10));
    const QString normal = texts.elided(kName, font(10), 60);
    QFont wide = font(10);
    wide.setStretch(QFont::UltraExpanded);
    texts.setBaseFont(wide);
    EXPECT_EQ(texts.elided(kName, wide, 60), cutOff(kName, wide, 60));
    EXPECT_NE(texts.elided(kName, wide, 60), normal);
}

TEST(ElidedTexts, OnlyTheBeginningOfAVeryLongTextCounts)
{
    ElidedTexts texts;
    const QString huge(10'000'000, u'x');
    EXPECT_EQ(texts.elided(huge, font(10), 60), cutOff(huge.left(500), font(10), 60));
}

TEST(ElidedTexts, StaysCorrectWhenTheCacheIsFull)
{
    ElidedTexts texts;
    for (int i = 0; i < 120'000; ++i) {
        const QString text = QString::number(i);
        ASSERT_EQ(texts.elided(text, font(10), 1000), text);
    }
}
