#include "app/ApplicationIdentity.h"
#include "samples/tour/Stage.h"
#include "samples/tour/Steps.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdlib>

namespace {

constexpr char kUsage[] = "usage: gaugewright_tour [--samples FOLDER] FOLDER\n"
                          "       gaugewright_tour --list\n"
                          "Drives the editor through its whole work and writes a picture of every "
                          "step into FOLDER.\n";

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

// Style, font and colours are fixed, so that the pictures change only when the program does.
void applyFixedLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(9);
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
    // Only Qt's own dialogs can be reached into, and look the same everywhere.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
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
    Stage stage(samples, scratch.path());
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

int fail(const char* text)
{
    QTextStream(stderr) << text << Qt::endl;
    return EXIT_FAILURE;
}

} // namespace

/// The guided tour: a walk through the editor that checks what it does and takes pictures.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the same pictures with and without a display
    qputenv("QT_SCALE_FACTOR", "1");
    defaultMessageHandler() = qInstallMessageHandler(dropPlatformComplaint);
    const QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments().mid(1);
    if (arguments == QStringList{QStringLiteral("--list")})
        return listPictures();
    QString samples = QStringLiteral(SAMPLES_DIR);
    if (arguments.size() == 3 && arguments.first() == QStringLiteral("--samples")) {
        samples = arguments.at(1);
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.size() != 1)
        return fail(kUsage);
    if (!QDir().mkpath(arguments.first()))
        return fail("The folder for the pictures cannot be made.");
    applyApplicationIdentity();
    applyFixedLook();
    return takeTour(samples, arguments.first()) ? EXIT_SUCCESS : EXIT_FAILURE;
}
