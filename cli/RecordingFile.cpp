#include "cli/RecordingFile.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "paths/FixedPaths.h"
#include "telemetry/TelemetrySession.h"

#include <QFileInfo>

bool loadRecording(TelemetrySession& session, const QString& path, Console& console)
{
    console.progress(CliText::tr("Reading %1").arg(path));
    if (!QFileInfo::exists(path)) {
        console.fail(path, CliText::tr("There is no such file"));
        return false;
    }
    const bool loaded = session.load(path, FixedPaths::readerLibrary());
    if (!loaded)
        console.fail(path, session.errorString());
    return loaded;
}
