#include "canvas/PagePicture.h"
#include "cli/Arguments.h"
#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/Interruption.h"
#include "cli/RecordingFile.h"
#include "cli/Workspace.h"
#include "document/DashboardDocument.h"
#include "document/archive/AtomicFile.h"
#include "review/FactText.h"
#include "telemetry/TelemetrySession.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QJsonArray>
#include <QJsonObject>

#include <cmath>
#include <optional>
#include <vector>

namespace {

/// What to paint and how, as the options say.
struct Task
{
    QDir folder;
    int page = 0; ///< number of the only page, 0 for all
    double scale = 1.0;
    double seconds = 0.0;
    SpeedUnit speedUnit = SpeedUnit::KilometresPerHour;
};

/// One picture to write.
struct Picture
{
    const DashPage* page;
    int number;
    QString path;
};

/// Nothing, and wrong holds the reason, when a value cannot be used.
std::optional<Task> taskFrom(const Arguments& parsed, QString& wrong)
{
    Task task{QDir(parsed.value(QStringLiteral("output")))};
    const std::optional<double> page = parsed.number(QStringLiteral("page"), 0.0);
    const std::optional<double> scale = parsed.number(QStringLiteral("scale"), 1.0);
    const std::optional<double> seconds = parsed.number(QStringLiteral("at"), 0.0);
    const qsizetype unit =
        parsed.isSet(QStringLiteral("speed-unit"))
            ? SpeedUnits::texts().indexOf(parsed.value(QStringLiteral("speed-unit")))
            : 0;
    const bool isLive = parsed.isSet(QStringLiteral("recording"));
    if (!parsed.isSet(QStringLiteral("output")))
        wrong = CliText::tr("--output FOLDER is missing");
    else if (!page || *page != std::floor(*page) || *page < 0 || *page > 1e9 ||
             (*page == 0 && parsed.isSet(QStringLiteral("page"))))
        wrong = CliText::tr("--page counts from 1");
    else if (!scale || *scale <= 0)
        wrong = CliText::tr("--scale is a number above 0");
    else if (!seconds)
        wrong = CliText::tr("--at is a number of seconds");
    else if (unit < 0)
        wrong = CliText::tr("--speed-unit is one of %1")
                    .arg(SpeedUnits::texts().join(QStringLiteral(", ")));
    else if (!isLive &&
             (parsed.isSet(QStringLiteral("at")) || parsed.isSet(QStringLiteral("speed-unit"))))
        wrong = CliText::tr("--at and --speed-unit need --recording FILE.xrk");
    if (!wrong.isEmpty())
        return std::nullopt;
    task.page = static_cast<int>(*page);
    task.scale = *scale;
    task.seconds = *seconds;
    task.speedUnit = static_cast<SpeedUnit>(unit);
    return task;
}

/// The number has as many digits as the last page's, so that names sort in the order of the pages.
QString fileName(int number, int pageCount)
{
    const auto digits = QString::number(pageCount).size();
    return QStringLiteral("page-%1.png").arg(QString::number(number).rightJustified(digits, u'0'));
}

std::vector<Picture> picturesOf(const DashboardDocument& document, const Task& task)
{
    std::vector<Picture> pictures;
    for (int i = 0; i < document.pageCount(); ++i) {
        if (task.page == 0 || task.page == i + 1) {
            pictures.push_back({document.pageAt(i), i + 1,
                                task.folder.filePath(fileName(i + 1, document.pageCount()))});
        }
    }
    return pictures;
}

/// Whether all pictures can be painted and may be written, reported where not. Nothing was written
/// so far.
bool areAllowed(const std::vector<Picture>& pictures, const Task& task, const Arguments& parsed,
                Console& console)
{
    if (pictures.empty()) {
        console.fail(parsed.file(0), CliText::tr("It has no page %1").arg(task.page));
        return false;
    }
    for (const Picture& picture : pictures) {
        if (PagePicture::size(*picture.page, task.scale).isEmpty()) {
            console.fail(parsed.file(0),
                         CliText::tr("Page %1 of %2 has no area, or too large a one for a picture")
                             .arg(QString::number(picture.number),
                                  FactText::size(picture.page->width, picture.page->height)));
            return false;
        }
        if (QFileInfo::exists(picture.path) && !parsed.isSet(QStringLiteral("force"))) {
            console.fail(picture.path, CliText::tr("It exists; --force writes over it"));
            return false;
        }
    }
    return true;
}

/// Encoded before anything is written: an encoder that cannot write complains on standard error.
Outcome encode(const QImage& image, QByteArray& png)
{
    QBuffer buffer(&png);
    QImageWriter writer(&buffer, "png");
    return writer.write(image) ? Outcome() : Outcome::failure(writer.errorString());
}

/// A full disk may take a part at first; why it takes no more is known after the next attempt.
Outcome writeTo(QIODevice& device, const QByteArray& content)
{
    for (qint64 at = 0; at < content.size();) {
        const qint64 count = device.write(content.constData() + at, content.size() - at);
        if (count <= 0)
            return Outcome::failure(device.errorString());
        at += count;
    }
    return {};
}

bool write(const QImage& image, const QString& path, Console& console)
{
    QByteArray png;
    Outcome outcome = encode(image, png);
    if (outcome) {
        const Interruption::Pause untilWritten;
        outcome = replaceFile(path, [&png](QIODevice& device) { return writeTo(device, png); });
    }
    if (!outcome)
        console.fail(path, outcome.reason());
    return static_cast<bool>(outcome);
}

QJsonObject objectOf(const Picture& picture, const QImage& image)
{
    return {{QStringLiteral("page"), picture.number},
            {QStringLiteral("pageName"), picture.page->name},
            {QStringLiteral("file"), picture.path},
            {QStringLiteral("width"), image.width()},
            {QStringLiteral("height"), image.height()}};
}

ExitStatus paintAll(const std::vector<Picture>& pictures, const Task& task, const LiveView& live,
                    const Arguments& parsed, Console& console)
{
    QJsonArray list;
    for (const Picture& picture : pictures) {
        console.progress(CliText::tr("Painting %1").arg(picture.path));
        const QImage image = PagePicture::paint(*picture.page, task.scale, live);
        if (!write(image, picture.path, console))
            return ExitStatus::Trouble;
        if (parsed.wantsJson())
            list.append(objectOf(picture, image));
        else
            console.print(FactText::oneLine(picture.path));
    }
    if (parsed.wantsJson())
        console.print(parsed.framed(
            {{QStringLiteral("package"), parsed.file(0)}, {QStringLiteral("pictures"), list}}));
    return ExitStatus::Clean;
}

ExitStatus render(const Task& task, const Arguments& parsed, Console& console)
{
    const Workspace workspace;
    DashboardDocument document;
    if (!workspace.open(document, parsed.file(0), console))
        return ExitStatus::Trouble;
    const std::vector<Picture> pictures = picturesOf(document, task);
    if (!areAllowed(pictures, task, parsed, console))
        return ExitStatus::Trouble;
    TelemetrySession session;
    if (parsed.isSet(QStringLiteral("recording")) &&
        !loadRecording(session, parsed.value(QStringLiteral("recording")), console))
        return ExitStatus::Trouble;
    if (!task.folder.mkpath(QStringLiteral(".")))
        return console.fail(task.folder.path(), CliText::tr("The folder cannot be made"));
    return paintAll(pictures, task, {&session, task.seconds, task.speedUnit}, parsed, console);
}

void addOptions(Arguments& parsed)
{
    parsed.addFile(QStringLiteral("PACKAGE"), CliText::tr("The package."));
    parsed.addOption(QStringLiteral("output"), QStringLiteral("FOLDER"),
                     CliText::tr("The folder to write to; made if missing."));
    parsed.addOption(QStringLiteral("page"), QStringLiteral("N"),
                     CliText::tr("Paints this page only, counted from 1."));
    parsed.addOption(QStringLiteral("scale"), QStringLiteral("F"),
                     CliText::tr("Pixels for every pixel of the display; 1 if not given."));
    parsed.addOption(QStringLiteral("recording"), QStringLiteral("FILE.xrk"),
                     CliText::tr("Shows the values of this recording."));
    parsed.addOption(QStringLiteral("at"), QStringLiteral("SECONDS"),
                     CliText::tr("The moment of the recording; 0 if not given."));
    parsed.addOption(QStringLiteral("speed-unit"), QStringLiteral("UNIT"),
                     CliText::tr("The unit of the GPS speed: %1.")
                         .arg(SpeedUnits::texts().join(QStringLiteral(", "))));
    parsed.addFlag(QStringLiteral("force"), CliText::tr("Writes over files."));
}

} // namespace

ExitStatus Subcommands::render(const QStringList& arguments, Console& console)
{
    Arguments parsed(
        QStringLiteral("render"),
        CliText::tr(
            "Paints the pages of a package as the editor does, each to a PNG file page-N.png."));
    addOptions(parsed);
    if (const auto status = parsed.parse(arguments, console))
        return *status;
    QString wrong;
    const std::optional<Task> task = taskFrom(parsed, wrong);
    if (!task)
        return parsed.refuse(console, wrong);
    return ::render(*task, parsed, console);
}
