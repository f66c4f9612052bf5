// The guided tour: walks through the editor, checks what it does and takes pictures.
//
//     gaugewright_tour [--samples FOLDER] [--dark] [FOLDER]
//
// Pictures go to FOLDER, by default tour. QT_SCALE_FACTOR scales them.
#include "app/ApplicationIdentity.h"
#include "samples/tour/Tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFont>
#include <QPalette>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

QPalette darkPalette()
{
    QPalette palette(QColor(0x2d, 0x2d, 0x2d)); // of buttons; Qt derives most other colours
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
    palette.setColor(QPalette::Link, QColor(0x48, 0xd2, 0xff));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Qt::darkGray);
    return palette;
}

// The pictures must not depend on the desktop.
void applyFixedLook(bool dark)
{
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    QApplication::setFont(QFont(u"DejaVu Sans"_s, 9));
    QApplication::setCursorFlashTime(0);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the same pictures without a display
    const QApplication application(argc, argv);
    applyApplicationIdentity();
    QCommandLineParser options;
    options.addOptions({{u"samples"_s, {}, u"FOLDER"_s, QStringLiteral(SAMPLES_DIR)},
                        QCommandLineOption(u"dark"_s)});
    options.process(application);
    const QString pictures = options.positionalArguments().value(0, u"tour"_s);
    QDir().mkpath(pictures);
    applyFixedLook(options.isSet(u"dark"_s));
    return takeTour(QDir(options.value(u"samples"_s)).absolutePath(), pictures);
}
