#include "cli/Arguments.h"

#include "cli/Console.h"

#include <QCoreApplication>
#include <QJsonObject>

#include <cmath>

namespace {

constexpr int kJsonVersion = 1;

QString text(const char* source)
{
    return QCoreApplication::translate("Arguments", source);
}

} // namespace

Arguments::Arguments(const QString& command, const QString& description) : m_command(command)
{
    m_parser.setApplicationDescription(description);
    addFlag(QStringLiteral("help"), text(QT_TRANSLATE_NOOP("Arguments", "Shows this help.")));
    addFlag(QStringLiteral("quiet"), text(QT_TRANSLATE_NOOP("Arguments", "Reports no progress.")));
    m_parser.addOption({QStringLiteral("format"),
                        text(QT_TRANSLATE_NOOP("Arguments", "Answers as \"text\" or \"json\".")),
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
        return text(QT_TRANSLATE_NOOP("Arguments", "Unknown format \"%1\"")).arg(format);
    if (m_files.size() < m_required)
        return text(QT_TRANSLATE_NOOP("Arguments", "%1 is missing"))
            .arg(m_fileNames.at(m_files.size()));
    if (m_files.size() > m_fileNames.size())
        return text(QT_TRANSLATE_NOOP("Arguments", "Too many arguments: \"%1\""))
            .arg(m_files.at(m_fileNames.size()));
    // Mostly a variable that a script did not set; as a folder it would be the working folder.
    if (const qsizetype file = m_files.indexOf(QString()); file >= 0)
        return text(QT_TRANSLATE_NOOP("Arguments", "%1 is empty")).arg(m_fileNames.at(file));
    for (const QString& option : m_parser.optionNames()) {
        if (values(option).contains(QString()))
            return text(QT_TRANSLATE_NOOP("Arguments", "--%1 is empty")).arg(option);
    }
    return {};
}

ExitStatus Arguments::refuse(Console& console, const QString& reason) const
{
    console.fail(m_command,
                 text(QT_TRANSLATE_NOOP("Arguments", "%1 (see gaugewright-cli %2 --help)"))
                     .arg(reason, m_command));
    return ExitStatus::Trouble;
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

QJsonObject Arguments::jsonFrame() const
{
    return {{QStringLiteral("format"), QStringLiteral("gaugewright-cli")},
            {QStringLiteral("version"), kJsonVersion},
            {QStringLiteral("command"), m_command}};
}

/// The parser's help, with our own first line: the parser's names the executable's path.
QString Arguments::help() const
{
    const QString whole = m_parser.helpText();
    return text(QT_TRANSLATE_NOOP("Arguments", "Usage: gaugewright-cli %1 [options]%2"))
               .arg(m_command, m_synopsis) +
           whole.mid(whole.indexOf(u'\n')).trimmed().prepend(QStringLiteral("\n"));
}
