#include "tests/telemetry/TelemetryReference.h"

#include <algorithm>
#include <cmath>

namespace TelemetryReference {

namespace {

QString compact(const QString& s)
{
    QString result;
    for (const QChar c : s) {
        if (c != QChar(u'_') && c != QChar(u' '))
            result += c;
    }
    return result.toLower();
}

std::vector<QString> tokens(const QString& s)
{
    std::vector<QString> result;
    QString token;
    for (const QChar c : QString(s.left(200).toLower() + QChar(u' '))) { // more do not count
        if (c == QChar(u' ') || c == QChar(u'_')) {
            if (!token.isEmpty())
                result.push_back(token);
            token = QString();
        } else {
            token += c;
        }
    }
    return result;
}

QString side(const std::vector<QString>& words)
{
    for (const char* known : {"port", "stbd", "star"}) {
        if (!words.empty() && words[0] == QString::fromLatin1(known))
            return words[0];
    }
    return QString();
}

int scoreOf(const std::vector<QString>& wanted, const std::vector<QString>& candidate)
{
    int score = 0;
    for (const QString& t : wanted) {
        for (const QString& c : candidate) {
            if (c == t) {
                score += 10;
                break;
            }
            if (c.indexOf(t) >= 0 || t.indexOf(c) >= 0) {
                score += 5;
                break;
            }
        }
    }
    if (side(wanted).isEmpty() && !side(candidate).isEmpty())
        score -= 3;
    if (wanted.size() == candidate.size())
        score += 2;
    return score;
}

void readFamily(const ScriptedReader& script, ReaderHost::Family family, Session& session)
{
    const auto& all = script.channels[family];
    const int count = script.claimedChannelCounts[family].value_or(static_cast<int>(all.size()));
    for (int i = 0; i < count; ++i) {
        if (i >= static_cast<int>(all.size()))
            break; // nothing beyond has a name
        const ScriptedChannel& source = all[static_cast<std::size_t>(i)];
        const int n = source.claimedCount.value_or(static_cast<int>(source.times.size()));
        if (!source.name.has_value() || n < 1)
            continue;

        Channel channel;
        channel.name = QString::fromStdString(*source.name);
        if (source.units.has_value())
            channel.units = QString::fromStdString(*source.units);
        for (int k = 0; k < n; ++k) {
            const bool delivered = k < static_cast<int>(source.times.size());
            channel.times.push_back(delivered ? source.times[static_cast<std::size_t>(k)] : 0.0);
            channel.values.push_back(delivered ? source.values[static_cast<std::size_t>(k)] : 0.0);
        }
        const double last = channel.times[channel.times.size() - 1];
        if (family != ReaderHost::kPlain && last > session.duration * 10.0) {
            for (double& time : channel.times)
                time = time / 1000.0;
        }
        if (channel.times[channel.times.size() - 1] > session.duration)
            session.duration = channel.times[channel.times.size() - 1];
        session.channels[channel.name.toLower()] = channel;
    }
}

} // namespace

Session load(const ScriptedReader& script)
{
    Session session;
    readFamily(script, ReaderHost::kPlain, session);
    readFamily(script, ReaderHost::kGps, session);
    readFamily(script, ReaderHost::kGpsRaw, session);

    std::vector<double> ends;
    for (const auto& entry : session.channels) {
        if (entry.second.times.back() > 0.0)
            ends.push_back(entry.second.times.back());
    }
    if (!ends.empty()) {
        std::sort(ends.begin(), ends.end());
        const double median = ends[ends.size() / 2];
        session.duration = median;
        for (const double e : ends) {
            if (e <= 2 * median && e > session.duration)
                session.duration = e;
        }
    }
    return session;
}

QString matchChannel(const Session& session, const QString& name)
{
    if (name.isEmpty())
        return QString();
    if (session.channels.count(name.toLower()) == 1)
        return session.channels.at(name.toLower()).name;
    for (const auto& [key, channel] : session.channels) {
        if (compact(channel.name) == compact(name))
            return channel.name;
    }

    const auto wanted = tokens(name);
    int best = 0;
    QString bestName;
    for (const auto& [key, channel] : session.channels) {
        const auto candidate = tokens(channel.name);
        if (!side(wanted).isEmpty() && side(candidate) != side(wanted))
            continue;
        const int score = scoreOf(wanted, candidate);
        if (score > best) {
            best = score;
            bestName = channel.name;
        }
    }
    if (best >= 5)
        return bestName;
    return QString();
}

double value(const Session& session, const QString& name, double t)
{
    const QString matched = matchChannel(session, name);
    if (matched.isEmpty())
        return 0.0;
    const auto entry = session.channels.find(matched.toLower());
    if (entry == session.channels.end() || entry->second.times.empty())
        return 0.0;
    const auto& times = entry->second.times;
    const auto& values = entry->second.values;
    if (t <= times.front())
        return values.front();
    if (t >= times.back())
        return values.back();
    std::size_t i = 0;
    while (!(times[i] > t))
        ++i;
    const double ta = times[i - 1];
    const double va = values[i - 1];
    const double dt = times[i] - ta;
    if (std::fabs(dt) < 1e-12)
        return va;
    return va + (values[i] - va) * ((t - ta) / dt);
}

} // namespace TelemetryReference
