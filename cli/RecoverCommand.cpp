#include "cli/Arguments.h"
#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/Interruption.h"
#include "review/FactText.h"
#include "review/UnpackFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

QString lineOf(const UnpackFolder& folder)
{
    QStringList pages;
    for (const QString& page : folder.pages)
        pages.append(FactText::quoted(page));
    return folder.changed.toString(Qt::ISODate) + u' ' + FactText::oneLine(folder.path) +
           QStringLiteral(" pages ") + pages.join(QStringLiteral(", "));
}

QJsonObject objectOf(const UnpackFolder& folder)
{
    return {{QStringLiteral("folder"), folder.path},
            {QStringLiteral("changed"), folder.changed.toUTC().toString(Qt::ISODate)},
            {QStringLiteral("pages"), QJsonArray::fromStringList(folder.pages)}};
}

ExitStatus list(const Arguments& parsed, Console& console)
{
    parsed.print(unpackFolders(QDir::tempPath()), lineOf, objectOf, QStringLiteral("folders"), {},
                 console);
    return ExitStatus::Clean;
}

ExitStatus recover(const Arguments& parsed, Console& console)
{
    const QString folder = parsed.file(0);
    const QString package = parsed.value(QStringLiteral("output"));
    if (QFileInfo::exists(package) && !parsed.isSet(QStringLiteral("force")))
        return console.fail(package, CliText::tr("It exists; --force writes over it"));
    const Interruption::Pause untilWritten;
    if (const Outcome outcome = recoverPackage(folder, package); !outcome)
        return console.fail(folder, outcome.reason());
    if (parsed.wantsJson())
        console.print(parsed.framed(
            {{QStringLiteral("folder"), folder}, {QStringLiteral("package"), package}}));
    else
        console.print(FactText::oneLine(package));
    return ExitStatus::Clean;
}

} // namespace

ExitStatus Subcommands::recover(const QStringList& arguments, Console& console)
{
    Arguments parsed(
        QStringLiteral("recover"),
        CliText::tr("Makes a package of a folder that the editor unpacked one to. Without FOLDER "
                    "lists those in the folder for temporary files, the newest first."));
    parsed.addOptionalFile(QStringLiteral("FOLDER"), CliText::tr("The folder."));
    parsed.addOption(QStringLiteral("output"), QStringLiteral("PACKAGE"),
                     CliText::tr("The package to write."));
    parsed.addFlag(QStringLiteral("force"), CliText::tr("Writes over a file."));
    if (const auto status = parsed.parse(arguments, console))
        return *status;
    if (parsed.file(0).isEmpty() != !parsed.isSet(QStringLiteral("output"))) {
        return parsed.refuse(console, CliText::tr("FOLDER and --output PACKAGE belong together"));
    }
    return parsed.file(0).isEmpty() ? list(parsed, console) : ::recover(parsed, console);
}
