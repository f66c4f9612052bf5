#include "samples/tour/Look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace {

QPalette darkPalette()
{
    constexpr QColor kGround(0x2d, 0x2d, 0x2d);
    constexpr QColor kField(0x1e, 0x1e, 0x1e);
    constexpr QColor kText(0xf0, 0xf0, 0xf0);
    constexpr QColor kFaint(0x80, 0x80, 0x80);
    constexpr QColor kAccent(0x30, 0x8c, 0xc6);
    QPalette palette(kText, kGround, kGround.lighter(), kGround.darker(), kFaint, kText, Qt::white,
                     kField, kGround);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, kAccent.lighter());
    palette.setColor(QPalette::ToolTipBase, kGround);
    palette.setColor(QPalette::ToolTipText, kText);
    palette.setColor(QPalette::PlaceholderText, kFaint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, kFaint);
    return palette;
}

} // namespace

void applyFixedLook(bool dark)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(9);
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
    // Only Qt's own dialogs can be reached into, and look the same everywhere.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}
