// The guided tour: walks through the editor, checks what it does and takes pictures.
//
//     gaugewright_tour [--samples FOLDER] [--dark] FOLDER
//
// QT_SCALE_FACTOR scales the pictures.
#include "app/ApplicationIdentity.h"
#include "samples/tour/Tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFont>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

QPalette darkPalette()
{
    QPalette palette(QColor(0x2d, 0x2d, 0x2d)); // of buttons; Qt derives most other colours
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
    palette.setColor(QPalette::Link, QColor(0x48, 0xd2, 0xff));
    palette.setColor(QPalette::PlaceholderText, Qt::gray);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Qt::darkGray);
    return palette;
}

// The pictures must not depend on the desktop.
void applyFixedLook(bool dark)
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    QFont font(u"DejaVu Sans"_s);
    font.setPointSize(9);
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the same pictures without a display
    const QApplication application(argc, argv);
    applyApplicationIdentity();
    const QCommandLineOption samples(u"samples"_s, {}, u"FOLDER"_s, QStringLiteral(SAMPLES_DIR));
    const QCommandLineOption dark(u"dark"_s);
    QCommandLineParser options;
    options.addOptions({samples, dark});
    options.process(application);
    const QString pictures = options.positionalArguments().value(0);
    if (pictures.isEmpty() || !QDir().mkpath(pictures)) {
        qCritical("Name a folder for the pictures that can be made.");
        return EXIT_FAILURE;
    }
    applyFixedLook(options.isSet(dark));
    return takeTour(QDir(options.value(samples)).absolutePath(), pictures);
}
