#pragma once

#include "tests/support/ScriptedReader.h"

#include <QString>

#include <map>
#include <vector>

/// The rules of matching, loading and interpolation written down a second time, step by step and
/// without any of the program's own code, for comparison on random inputs.
namespace TelemetryReference {

struct Channel
{
    QString name;
    QString units;
    std::vector<double> times;
    std::vector<double> values;
};

struct Session
{
    std::map<QString, Channel> channels;
    double duration = 0.0;
};

Session load(const ScriptedReader& script);
QString matchChannel(const Session& session, const QString& name);
/// For ascending times only.
double value(const Session& session, const QString& name, double t);

} // namespace TelemetryReference
