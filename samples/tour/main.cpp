// The guided tour: walks through the editor, checks what it does and takes pictures.
//
//     gaugewright_tour [--samples FOLDER] [--scale FACTOR] [--dark] FOLDER
//     gaugewright_tour --list
#include "app/ApplicationIdentity.h"
#include "samples/tour/Stage.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdlib>

namespace {

QString pictureName(std::size_t index, const Step& step)
{
    return QStringLiteral("%1-%2.png")
        .arg(index + 1, 2, 10, QLatin1Char('0'))
        .arg(QLatin1String(step.picture));
}

// Returns whether every check holds; stops after the first step with one that does not.
bool takeTour(const QString& samples, const QString& pictures)
{
    constexpr int kSmallestFile = 0; // Qt's scale of quality; PNG loses nothing
    const QTemporaryDir scratch;
    // Documents leave their unpack folders behind; those of the tour go with this folder.
    qputenv("TMPDIR", QFile::encodeName(scratch.path()));
    // A file dialog would look for a relative path in the folder that it shows.
    Stage stage(QDir(samples).absolutePath(), scratch.path());
    QTextStream out(stdout);
    const std::vector<Step> steps = tourSteps();
    for (std::size_t i = 0; i < steps.size() && stage.failures().isEmpty(); ++i) {
        const QString name = pictureName(i, steps[i]);
        steps[i].act(stage);
        stage.check(stage.takePicture().save(pictures + u'/' + name, "PNG", kSmallestFile),
                    "the picture can be written");
        out << (stage.failures().isEmpty() ? "  " : "X ") << name << Qt::endl;
        for (const QString& failure : stage.failures())
            out << "    not so: " << failure << Qt::endl;
    }
    return stage.failures().isEmpty();
}

int listPictures()
{
    const std::vector<Step> steps = tourSteps();
    for (std::size_t i = 0; i < steps.size(); ++i)
        QTextStream(stdout) << pictureName(i, steps[i]) << Qt::endl;
    return EXIT_SUCCESS;
}

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

// The pictures must not depend on the desktop.
void applyFixedLook(bool dark)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(9);
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
}

// Before the application object is made. Offscreen: the same pictures without a display.
void prepareEnvironment(const QString& scale)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", scale.toLatin1());
    static QtMessageHandler defaultHandler = nullptr;
    defaultHandler = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
            // The offscreen platform complains about every window that limits its size.
            if (!text.contains(QStringLiteral("propagateSizeHints")))
                defaultHandler(type, context, text);
        });
}

int fail(const QString& text)
{
    QTextStream(stderr) << text << Qt::endl;
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    const QCommandLineOption samples(QStringLiteral("samples"), {}, QStringLiteral("FOLDER"),
                                     QStringLiteral(SAMPLES_DIR));
    const QCommandLineOption scale(QStringLiteral("scale"), {}, QStringLiteral("FACTOR"),
                                   QStringLiteral("1"));
    const QCommandLineOption dark(QStringLiteral("dark"));
    const QCommandLineOption list(QStringLiteral("list"));
    QCommandLineParser options;
    options.addOptions({samples, scale, dark, list});
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    if (!options.parse(words))
        return fail(options.errorText());
    if (options.isSet(list))
        return listPictures();
    if (options.positionalArguments().size() != 1)
        return fail(QStringLiteral("Name one folder for the pictures."));
    const QString pictures = options.positionalArguments().constFirst();
    if (!QDir().mkpath(pictures))
        return fail(QStringLiteral("The folder for the pictures cannot be made."));

    prepareEnvironment(options.value(scale));
    const QApplication application(argc, argv);
    applyApplicationIdentity();
    applyFixedLook(options.isSet(dark));
    return takeTour(options.value(samples), pictures) ? EXIT_SUCCESS : EXIT_FAILURE;
}
