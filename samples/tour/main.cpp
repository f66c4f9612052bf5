// The guided tour: walks through the editor, checks what it does and takes pictures.
//
//     gaugewright_tour [--samples FOLDER] [--dark] FOLDER
//     gaugewright_tour --list
//
// QT_SCALE_FACTOR scales the pictures.
#include "app/ApplicationIdentity.h"
#include "samples/tour/Tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QPalette darkPalette()
{
    constexpr QColor kGround(0x2d, 0x2d, 0x2d);
    constexpr QColor kText(0xf0, 0xf0, 0xf0);
    constexpr QColor kFaint(0x80, 0x80, 0x80);
    constexpr QColor kAccent(0x30, 0x8c, 0xc6);
    QPalette palette(kText, kGround, kGround.lighter(), kGround.darker(), kFaint, kText, Qt::white,
                     QColor(0x1e, 0x1e, 0x1e), kGround);
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

// Before the application object is made. Offscreen: the same pictures without a display.
void prepareEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QtMessageHandler defaultHandler = nullptr;
    defaultHandler = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
            // The offscreen platform complains about every window that limits its size.
            if (!text.contains(u"propagateSizeHints"_s))
                defaultHandler(type, context, text);
        });
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

// The steps in order, each with the picture of its result.
constexpr std::pair<const char*, void (Tour::*)()> kSteps[] = {
    {"01-start.png", &Tour::start},
    {"02-opened.png", &Tour::open},
    {"03-pages.png", &Tour::walkPages},
    {"04-selected.png", &Tour::select},
    {"05-moved.png", &Tour::move},
    {"06-resized-on-grid.png", &Tour::resizeOnGrid},
    {"07-restyled.png", &Tour::restyle},
    {"08-new-page.png", &Tour::addPage},
    {"09-insert-element.png", &Tour::insertGauge},
    {"10-page-filled.png", &Tour::fillPage},
    {"11-element-deleted.png", &Tour::removeElement},
    {"12-clear-page.png", &Tour::clearPage},
    {"13-all-undone.png", &Tour::undoAll},
    {"14-all-redone.png", &Tour::redoAll},
    {"15-saved-as.png", &Tour::saveAs},
    {"16-reopened.png", &Tour::reopen},
    {"17-recording-loaded.png", &Tour::loadRecording},
    {"18-playing-1x.png", &Tour::play1x},
    {"19-playing-2x.png", &Tour::play2x},
    {"20-playing-4x.png", &Tour::play4x},
    {"21-speed-in-mph.png", &Tour::changeUnit},
    {"22-about.png", &Tour::about},
};

// Returns whether every check holds; stops after the first step with one that does not.
bool takeTour(const QString& samples, const QString& pictures)
{
    constexpr int kSmallestFile = 0; // Qt's scale of quality; PNG loses nothing
    const QTemporaryDir scratch;
    // Documents leave their unpack folders behind; those of the tour go with this folder.
    qputenv("TMPDIR", QFile::encodeName(scratch.path()));
    // A file dialog would look for a relative path in the folder that it shows.
    Tour tour(QDir(samples).absolutePath(), scratch.path());
    QTextStream out(stdout);
    for (const auto& [picture, act] : kSteps) {
        (tour.*act)();
        const QString path = pictures + u'/' + QLatin1String(picture);
        tour.check(tour.takePicture().save(path, "PNG", kSmallestFile),
                   "the picture can be written");
        out << (tour.failures().isEmpty() ? "  " : "X ") << picture << Qt::endl;
        for (const QString& failure : tour.failures())
            out << "    not so: " << failure << Qt::endl;
        if (!tour.failures().isEmpty())
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    prepareEnvironment();
    const QApplication application(argc, argv);
    applyApplicationIdentity();
    const QCommandLineOption samples(u"samples"_s, {}, u"FOLDER"_s, QStringLiteral(SAMPLES_DIR));
    const QCommandLineOption dark(u"dark"_s);
    const QCommandLineOption list(u"list"_s);
    QCommandLineParser options;
    options.addOptions({samples, dark, list});
    options.process(application);
    if (options.isSet(list)) {
        for (const auto& [picture, act] : kSteps)
            QTextStream(stdout) << picture << Qt::endl;
        return EXIT_SUCCESS;
    }
    const QString pictures = options.positionalArguments().value(0);
    if (pictures.isEmpty() || !QDir().mkpath(pictures)) {
        qCritical("Name a folder for the pictures that can be made.");
        return EXIT_FAILURE;
    }
    applyFixedLook(options.isSet(dark));
    return takeTour(options.value(samples), pictures) ? EXIT_SUCCESS : EXIT_FAILURE;
}
