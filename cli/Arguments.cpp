#include "cli/Arguments.h"

#include "cli/CliText.h"

#include <cmath>

namespace {

constexpr int kJsonVersion = 1;

} // namespace

Arguments::Arguments(const QString& command, const QString& description) : m_command(command)
{
    m_parser.setApplicationDescription(description);
    addFlag(QStringLiteral("help"), CliText::tr("Shows this help."));
    addFlag(QStringLiteral("quiet"), CliText::tr("Reports no progress."));
    m_parser.addOption({QStringLiteral("format"), CliText::tr("Answers as \"text\" or \"json\"."),
                        QStringLiteral("FORMAT"), QStringLiteral("text")});
}

void Arguments::addFile(const QString& name, const QString& description)
{
    m_parser.addPositionalArgument(name, description);
    m_fileNames.append(name);
    m_synopsis += u' ' + name;
    ++m_required;
}

void Arguments::addOptionalFile(const QString& name, const QString& description)
{
    m_parser.addPositionalArgument(name, description);
    m_fileNames.append(name);
    m_synopsis += QStringLiteral(" [") + name + u']';
}

void Arguments::addFlag(const QString& name, const QString& description)
{
    m_parser.addOption({name, description});
}

void Arguments::addOption(const QString& name, const QString& valueName, const QString& description)
{
    m_parser.addOption({name, description, valueName});
}

std::optional<ExitStatus> Arguments::parse(const QStringList& arguments, Console& console)
{
    const bool understood = m_parser.parse(QStringList{m_command} + arguments);
    if (isSet(QStringLiteral("help"))) {
        console.print(help());
        return ExitStatus::Clean;
    }
    if (!understood)
        return refuse(console, m_parser.errorText());
    m_files = m_parser.positionalArguments();
    if (const QString reason = fault(); !reason.isEmpty())
        return refuse(console, reason);
    if (isSet(QStringLiteral("quiet")))
        console.setQuiet();
    return std::nullopt;
}

QString Arguments::fault() const
{
    const QString format = value(QStringLiteral("format"));
    if (format != u"text" && format != u"json")
        return CliText::tr("Unknown format \"%1\"").arg(format);
    if (m_files.size() < m_required)
        return CliText::tr("%1 is missing").arg(m_fileNames.at(m_files.size()));
    if (m_files.size() > m_fileNames.size())
        return CliText::tr("Too many arguments: \"%1\"").arg(m_files.at(m_fileNames.size()));
    // Mostly a variable that a script did not set; as a folder it would be the working folder.
    if (const qsizetype file = m_files.indexOf(QString()); file >= 0)
        return CliText::tr("%1 is empty").arg(m_fileNames.at(file));
    for (const QString& option : m_parser.optionNames()) {
        if (values(option).contains(QString()))
            return CliText::tr("--%1 is empty").arg(option);
    }
    return {};
}

ExitStatus Arguments::refuse(Console& console, const QString& reason) const
{
    return console.fail(m_command,
                        CliText::tr("%1 (see gaugewright-cli %2 --help)").arg(reason, m_command));
}

std::optional<double> Arguments::number(const QString& option, double fallback) const
{
    if (!isSet(option))
        return fallback;
    bool isNumber = false;
    const double number = value(option).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

bool Arguments::wantsJson() const
{
    return value(QStringLiteral("format")) == u"json";
}

QJsonObject Arguments::framed(QJsonObject facts) const
{
    facts.insert(QStringLiteral("format"), QStringLiteral("gaugewright-cli"));
    facts.insert(QStringLiteral("version"), kJsonVersion);
    facts.insert(QStringLiteral("command"), m_command);
    return facts;
}

/// The parser's help, with our own first line: the parser's names the executable's path.
QString Arguments::help() const
{
    const QString whole = m_parser.helpText();
    return CliText::tr("Usage: gaugewright-cli %1 [options]%2").arg(m_command, m_synopsis) +
           whole.mid(whole.indexOf(u'\n')).trimmed().prepend(QStringLiteral("\n"));
}
