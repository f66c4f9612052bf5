#include "app/ApplicationIdentity.h"
#include "samples/tour/Look.h"
#include "samples/tour/Stage.h"
#include "samples/tour/Steps.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdlib>

namespace {

constexpr int kSmallestFile = 0; // Qt's scale of quality; PNG loses nothing

std::vector<Step> allSteps()
{
    std::vector<Step> steps;
    for (const auto& chapter : {editingSteps(), savingSteps(), replaySteps()})
        steps.insert(steps.end(), chapter.begin(), chapter.end());
    return steps;
}

QString pictureName(std::size_t index, const Step& step)
{
    return QStringLiteral("%1-%2.png")
        .arg(index + 1, 2, 10, QLatin1Char('0'))
        .arg(QLatin1String(step.picture));
}

QtMessageHandler& defaultMessageHandler()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

// The offscreen platform complains about every window that limits its size.
void dropPlatformComplaint(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.contains(QStringLiteral("propagateSizeHints")))
        defaultMessageHandler()(type, context, text);
}

/// Returns whether every step went as it should; stops at the first that did not.
bool takeTour(const QString& samples, const QString& pictures)
{
    QTextStream out(stdout);
    const QTemporaryDir scratch;
    // Documents leave their unpack folders behind on purpose; those of the tour go with it.
    qputenv("TMPDIR", QFile::encodeName(scratch.path()));
    // A file dialog would look for a relative one in the folder that it shows.
    Stage stage(QDir(samples).absolutePath(), scratch.path());
    const std::vector<Step> steps = allSteps();
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const QString name = pictureName(i, steps[i]);
        steps[i].act(stage);
        stage.check(stage.takePicture().save(pictures + u'/' + name, "PNG", kSmallestFile),
                    QStringLiteral("the picture can be written"));
        out << (stage.failures().isEmpty() ? "  " : "X ") << name << Qt::endl;
        for (const QString& failure : stage.failures())
            out << "    not so: " << failure << Qt::endl;
        if (!stage.failures().isEmpty())
            return false;
    }
    return true;
}

int listPictures()
{
    const std::vector<Step> steps = allSteps();
    for (std::size_t i = 0; i < steps.size(); ++i)
        QTextStream(stdout) << pictureName(i, steps[i]) << Qt::endl;
    return EXIT_SUCCESS;
}

int fail(const QString& text)
{
    QTextStream(stderr) << text << Qt::endl;
    return EXIT_FAILURE;
}

struct Wishes
{
    QString samples;
    QString scale;
    bool dark = false;
    bool listOnly = false;
    QStringList folders;
    QString misunderstood; ///< why the command line makes no sense; empty when it does
};

Wishes readCommandLine(int argc, char** argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    const QCommandLineOption samples(QStringLiteral("samples"), {}, QStringLiteral("FOLDER"),
                                     QStringLiteral(SAMPLES_DIR));
    const QCommandLineOption scale(QStringLiteral("scale"), {}, QStringLiteral("FACTOR"),
                                   QStringLiteral("1"));
    const QCommandLineOption dark(QStringLiteral("dark"));
    const QCommandLineOption list(QStringLiteral("list"));
    QCommandLineParser parser;
    parser.addOptions({samples, scale, dark, list});
    const bool understood = parser.parse(words);
    return {parser.value(samples),        parser.value(scale),
            parser.isSet(dark),           parser.isSet(list),
            parser.positionalArguments(), understood ? QString() : parser.errorText()};
}

} // namespace

/// The guided tour: a walk through the editor that checks what it does and takes pictures.
///
///     gaugewright_tour [--samples FOLDER] [--scale FACTOR] [--dark] FOLDER
///     gaugewright_tour --list
int main(int argc, char** argv)
{
    const Wishes wishes = readCommandLine(argc, argv);
    if (!wishes.misunderstood.isEmpty())
        return fail(wishes.misunderstood);
    if (wishes.listOnly)
        return listPictures();
    if (wishes.folders.size() != 1)
        return fail(QStringLiteral("Name one folder for the pictures."));
    const QString& pictures = wishes.folders.first();
    if (!QDir().mkpath(pictures))
        return fail(QStringLiteral("The folder for the pictures cannot be made."));

    qputenv("QT_QPA_PLATFORM", "offscreen"); // the same pictures with and without a display
    qputenv("QT_SCALE_FACTOR", wishes.scale.toLatin1());
    defaultMessageHandler() = qInstallMessageHandler(dropPlatformComplaint);
    const QApplication application(argc, argv);
    applyApplicationIdentity();
    applyFixedLook(wishes.dark);
    return takeTour(wishes.samples, pictures) ? EXIT_SUCCESS : EXIT_FAILURE;
}
