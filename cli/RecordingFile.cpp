#include "cli/RecordingFile.h"

#include "cli/Console.h"
#include "paths/FixedPaths.h"
#include "telemetry/TelemetrySession.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("RecordingFile", text);
}

} // namespace

bool loadRecording(TelemetrySession& session, const QString& path, Console& console)
{
    console.progress(translated(QT_TRANSLATE_NOOP("RecordingFile", "Reading %1")).arg(path));
    if (!QFileInfo::exists(path)) {
        console.fail(path, translated(QT_TRANSLATE_NOOP("RecordingFile", "There is no such file")));
        return false;
    }
    const bool loaded = session.load(path, FixedPaths::readerLibrary());
    if (!loaded)
        console.fail(path, session.errorString());
    return loaded;
}
