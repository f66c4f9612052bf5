#include "telemetry/TelemetrySession.h"

#include "telemetry/ChannelMatcher.h"
#include "telemetry/MatchTrace.h"
#include "telemetry/XrkLibrary.h"

#include <QFileInfo>

TelemetrySession::TelemetrySession() = default;

TelemetrySession::~TelemetrySession()
{
    clear();
}

bool TelemetrySession::load(const QString& filePath, const QString& libraryPath)
{
    clear();
    std::string loadError;
    m_library = std::make_unique<XrkLibrary>(libraryPath.toUtf8().constData(), &loadError);
    if (!m_library->isLoaded()) {
        m_error = QFileInfo::exists(libraryPath) ? tr("The reader library could not be loaded: %1")
                                                       .arg(QString::fromStdString(loadError))
                                                 : tr("The reader library was not found");
        return false;
    }
    if (m_library->open_file != nullptr)
        m_fileIndex = m_library->open_file(filePath.toUtf8().constData());
    if (!isLoaded()) {
        m_error = refusal(filePath);
        return false;
    }
    m_recording = readRecording(*m_library, m_fileIndex);
    m_names = RecordedNames(channelNames());
    return true;
}

void TelemetrySession::clear()
{
    if (isLoaded() && m_library->close_file_i != nullptr)
        m_library->close_file_i(m_fileIndex);
    m_matchCache.clear();
    m_names = {};
    m_recording = {};
    m_error.clear();
    m_fileIndex = -1;
    m_library.reset();
}

/// Why the library opened no file.
QString TelemetrySession::refusal(const QString& filePath) const
{
    if (m_library->open_file == nullptr)
        return tr("The reader library has no function \"open_file\"");
    return QFileInfo::exists(filePath) ? tr("The reader library could not open the recording")
                                       : tr("The recording was not found");
}

QStringList TelemetrySession::channelNames() const
{
    QStringList names;
    for (const auto& [key, channel] : m_recording.channels)
        names.append(channel.name);
    return names;
}

QString TelemetrySession::matchChannel(const QString& name) const
{
    return ChannelMatcher::match(name, m_names).name;
}

QString TelemetrySession::matchedName(const QString& name) const
{
    const TelemetryChannel* const channel = matched(name);
    return channel != nullptr ? channel->name : QString();
}

double TelemetrySession::value(const QString& name, double seconds) const
{
    const TelemetryChannel* const channel = matched(name);
    return channel != nullptr ? channel->valueAt(seconds) : 0.0;
}

/// Matches on the first query of a name and traces that match; afterwards it is a lookup.
const TelemetryChannel* TelemetrySession::matched(const QString& name) const
{
    if (!isLoaded() || name.isEmpty())
        return nullptr;
    const auto cached = m_matchCache.find(name);
    if (cached != m_matchCache.end())
        return cached->second;

    const QString match = matchChannel(name);
    MatchTrace::record(name, match);
    const auto found = m_recording.channels.find(match.toLower());
    // An empty match means none, even where a recorded channel has an empty name.
    const bool matches = !match.isEmpty() && found != m_recording.channels.end();
    return m_matchCache[name] = matches ? &found->second : nullptr;
}
