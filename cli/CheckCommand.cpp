#include "cli/Arguments.h"
#include "cli/CliText.h"
#include "cli/RecordingFile.h"
#include "cli/Workspace.h"
#include "document/DashboardDocument.h"
#include "review/FactText.h"
#include "review/Findings.h"
#include "telemetry/TelemetrySession.h"

#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace {

/// What the user wants to hear of.
struct Filter
{
    QStringList ignored; ///< identifiers of rules
    Severity least = Severity::Information;

    [[nodiscard]] bool passes(const Finding& finding) const
    {
        return severityOf(finding.rule) >= least && !ignored.contains(identifier(finding.rule));
    }
};

std::optional<Severity> severityNamed(const QString& name)
{
    for (const Severity severity : {Severity::Information, Severity::Warning, Severity::Error}) {
        if (identifier(severity) == name)
            return severity;
    }
    return std::nullopt;
}

bool isRule(const QString& name)
{
    const std::vector<Finding::Rule> rules = allRules();
    return std::any_of(rules.begin(), rules.end(),
                       [&name](Finding::Rule rule) { return identifier(rule) == name; });
}

/// Nothing, and wrong holds the reason, when the options name an unknown rule or severity.
std::optional<Filter> filterFrom(const Arguments& parsed, QString& wrong)
{
    Filter filter;
    for (const QString& value : parsed.values(QStringLiteral("ignore")))
        filter.ignored += value.split(u',');
    for (const QString& name : std::as_const(filter.ignored)) {
        if (!isRule(name)) {
            wrong = CliText::tr("Unknown finding \"%1\"").arg(name);
            return std::nullopt;
        }
    }
    if (parsed.isSet(QStringLiteral("severity"))) {
        const QString name = parsed.value(QStringLiteral("severity"));
        const std::optional<Severity> severity = severityNamed(name);
        if (!severity) {
            wrong = CliText::tr("Unknown severity \"%1\"").arg(name);
            return std::nullopt;
        }
        filter.least = *severity;
    }
    return filter;
}

QString lineOf(const Finding& finding)
{
    QString line = identifier(severityOf(finding.rule)) + u' ' + identifier(finding.rule);
    if (finding.page > 0) {
        line += CliText::tr(" page %1 %2")
                    .arg(QString::number(finding.page), FactText::quoted(finding.pageName));
    }
    if (isAboutElement(finding.rule)) {
        line += CliText::tr(", element %1").arg(FactText::quoted(finding.element));
    }
    return line + QStringLiteral(": ") + finding.message;
}

QJsonObject objectOf(const Finding& finding)
{
    QJsonObject object{{QStringLiteral("id"), identifier(finding.rule)},
                       {QStringLiteral("severity"), identifier(severityOf(finding.rule))},
                       {QStringLiteral("message"), finding.message}};
    if (finding.page > 0) {
        object.insert(QStringLiteral("page"), finding.page);
        object.insert(QStringLiteral("pageName"), finding.pageName);
    }
    if (isAboutElement(finding.rule))
        object.insert(QStringLiteral("element"), finding.element);
    return object;
}

/// The findings of package and recording; nothing after a failure, which was reported.
std::optional<std::vector<Finding>> allFindings(const Arguments& parsed, Console& console)
{
    const Workspace workspace;
    DashboardDocument document;
    if (!workspace.open(document, parsed.file(0), console))
        return std::nullopt;
    std::vector<Finding> found = findings(document);
    if (parsed.isSet(QStringLiteral("recording"))) {
        const QString path = parsed.value(QStringLiteral("recording"));
        TelemetrySession session;
        if (!loadRecording(session, path, console))
            return std::nullopt;
        const std::vector<Finding> more = channelCoverage(document, session.channelNames());
        found.insert(found.end(), more.begin(), more.end());
    }
    return found;
}

void addOptions(Arguments& parsed)
{
    parsed.addFile(QStringLiteral("PACKAGE"), CliText::tr("The package."));
    parsed.addOption(
        QStringLiteral("recording"), QStringLiteral("FILE.xrk"),
        CliText::tr("Reports which recorded channel each channel of the layout shows."));
    parsed.addOption(QStringLiteral("ignore"), QStringLiteral("ID"),
                     CliText::tr("Leaves out findings of this identifier; several with commas, or "
                                 "the option several times."));
    parsed.addOption(
        QStringLiteral("severity"), QStringLiteral("LEVEL"),
        CliText::tr(
            "Leaves out findings below this level: \"information\", \"warning\" or \"error\"."));
}

} // namespace

ExitStatus Subcommands::check(const QStringList& arguments, Console& console)
{
    Arguments parsed(QStringLiteral("check"),
                     CliText::tr("Looks for faults in a package. Ends with status 1 when it "
                                 "reports a warning or an error."));
    addOptions(parsed);
    if (const auto status = parsed.parse(arguments, console))
        return *status;
    QString wrong;
    const std::optional<Filter> filter = filterFrom(parsed, wrong);
    if (!filter)
        return parsed.refuse(console, wrong);

    std::optional<std::vector<Finding>> found = allFindings(parsed, console);
    if (!found)
        return ExitStatus::Trouble;
    std::erase_if(*found, [&](const Finding& finding) { return !filter->passes(finding); });
    QJsonObject facts{{QStringLiteral("package"), parsed.file(0)}};
    if (parsed.isSet(QStringLiteral("recording")))
        facts.insert(QStringLiteral("recording"), parsed.value(QStringLiteral("recording")));
    parsed.print(*found, lineOf, objectOf, QStringLiteral("findings"), facts, console);
    const bool clean = std::all_of(found->begin(), found->end(), [](const Finding& finding) {
        return severityOf(finding.rule) == Severity::Information;
    });
    return clean ? ExitStatus::Clean : ExitStatus::Findings;
}
