#include "widgets/ElidedComboBox.h"

#include <QComboBox>
#include <QPixmap>

#include <gtest/gtest.h>

namespace {

const QString kLongText = QStringLiteral("Huge Basic Sans Heavy SF");
constexpr int kNarrow = 120;

template <typename Box>
QImage picture(const QString& text, int width)
{
    Box box;
    box.addItem(text);
    box.resize(width, box.sizeHint().height());
    return box.grab().toImage();
}

// The longest beginning that a plain box of this width shows whole, as one marked as cut off.
QImage closestPlainPicture(const QImage& wanted, int width)
{
    QImage found;
    for (qsizetype kept = kLongText.size() - 1; kept > 0 && found != wanted; --kept)
        found = picture<QComboBox>(kLongText.left(kept) + QChar(0x2026), width);
    return found;
}

} // namespace

TEST(ElidedComboBox, CutsOffWithAMarkWhatDoesNotFit)
{
    const QImage shown = picture<ElidedComboBox>(kLongText, kNarrow);
    EXPECT_NE(shown, picture<QComboBox>(kLongText, kNarrow));
    EXPECT_EQ(shown, closestPlainPicture(shown, kNarrow));
}

TEST(ElidedComboBox, ShowsWhatFitsLikeAnyOtherBox)
{
    constexpr int kWide = 400;
    EXPECT_EQ(picture<ElidedComboBox>(kLongText, kWide), picture<QComboBox>(kLongText, kWide));
}

TEST(ElidedComboBox, TellsTheWholeTextInItsToolTip)
{
    ElidedComboBox box;
    box.addItems({QStringLiteral("first"), kLongText});
    box.setCurrentIndex(1);
    EXPECT_EQ(box.toolTip(), kLongText);
}
