#include "telemetry/TelemetrySession.h"

#include "telemetry/XrkLibrary.h"

TelemetrySession::TelemetrySession() = default;
TelemetrySession::~TelemetrySession() = default;

bool TelemetrySession::load(const QString&, const QString&)
{
    return false;
}

void TelemetrySession::clear() {}

QStringList TelemetrySession::channelNames() const
{
    return {};
}

QString TelemetrySession::matchChannel(const QString&) const
{
    return {};
}

const QString& TelemetrySession::matchedName(const QString& name) const
{
    return m_matchCache[name];
}

double TelemetrySession::value(const QString&, double) const
{
    return 0.0;
}
