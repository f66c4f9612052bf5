#include "cli/Arguments.h"
#include "cli/CliText.h"
#include "cli/RecordingFile.h"
#include "review/FactText.h"
#include "telemetry/TelemetrySession.h"

#include <QJsonObject>

#include <cmath>
#include <map>

namespace {

using Entry = std::map<QString, TelemetryChannel>::value_type;

double lengthOf(const TelemetryChannel& channel)
{
    return channel.times.empty() ? 0.0 : channel.times.back();
}

QString lineOf(const Entry& entry)
{
    const TelemetryChannel& channel = entry.second;
    return FactText::quoted(channel.name) + QStringLiteral(" unit ") +
           FactText::quoted(channel.units) + u' ' + QString::number(channel.times.size()) +
           QStringLiteral(" samples ") + QString::number(lengthOf(channel), 'f', 3) +
           QStringLiteral(" s");
}

/// JSON has no infinity.
QJsonValue numberOrNull(double number)
{
    return std::isfinite(number) ? QJsonValue(number) : QJsonValue();
}

QJsonObject objectOf(const Entry& entry)
{
    const TelemetryChannel& channel = entry.second;
    return {{QStringLiteral("name"), channel.name},
            {QStringLiteral("unit"), channel.units},
            {QStringLiteral("samples"), static_cast<qint64>(channel.times.size())},
            {QStringLiteral("length"), numberOrNull(lengthOf(channel))}};
}

} // namespace

ExitStatus Subcommands::channels(const QStringList& arguments, Console& console)
{
    Arguments parsed(QStringLiteral("channels"),
                     CliText::tr("Lists the channels of a recording: name, unit, number of "
                                 "samples, time of the last one."));
    parsed.addFile(QStringLiteral("FILE.xrk"), CliText::tr("The recording."));
    if (const auto status = parsed.parse(arguments, console))
        return *status;

    TelemetrySession session;
    const QString path = parsed.file(0);
    if (!loadRecording(session, path, console))
        return ExitStatus::Trouble;
    parsed.print(session.channels(), lineOf, objectOf, QStringLiteral("channels"),
                 {{QStringLiteral("recording"), path},
                  {QStringLiteral("length"), numberOrNull(session.duration())}},
                 console);
    return ExitStatus::Clean;
}
