#include "telemetry/MatchTrace.h"

#include "paths/FixedPaths.h"

#include <QFile>
#include <QSet>

QString MatchTrace::line(const QString& channel, const QString& recorded)
{
    return u"OVERLAY: \"" + channel + u"\"  ->  XRK: \"" +
           (recorded.isEmpty() ? QStringLiteral("NO MATCH") : recorded) + u"\"\n";
}

void MatchTrace::record(const QString& channel, const QString& recorded)
{
    static QSet<QString> traced;
    if (traced.contains(channel))
        return;
    traced.insert(channel);

    QFile file(FixedPaths::channelTraceFile());
    if (file.open(QIODevice::Append | QIODevice::Text))
        file.write(line(channel, recorded).toUtf8());
}
