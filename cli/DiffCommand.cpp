#include "cli/Arguments.h"
#include "cli/CliText.h"
#include "cli/Workspace.h"
#include "document/DashboardDocument.h"
#include "review/Differences.h"

#include <QJsonObject>

namespace {

/// The key that the subject's name goes under, null when the difference has none.
const char* subjectKey(Difference::Change change)
{
    switch (subjectOf(change)) {
    case Difference::Subject::Channel:
        return "channel";
    case Difference::Subject::Element:
        return "element";
    case Difference::Subject::File:
        return "file";
    case Difference::Subject::Layout:
    case Difference::Subject::Page:
        break;
    }
    return nullptr;
}

QJsonObject objectOf(const Difference& difference)
{
    QJsonObject object{{QStringLiteral("id"), identifier(difference.change)},
                       {QStringLiteral("message"), sentence(difference)},
                       {QStringLiteral("before"), difference.before},
                       {QStringLiteral("after"), difference.after}};
    if (difference.page > 0) {
        object.insert(QStringLiteral("page"), difference.page);
        object.insert(QStringLiteral("pageName"), difference.pageName);
    }
    if (const char* const key = subjectKey(difference.change))
        object.insert(QLatin1String(key), difference.subject);
    return object;
}

} // namespace

ExitStatus Subcommands::diff(const QStringList& arguments, Console& console)
{
    Arguments parsed(QStringLiteral("diff"),
                     CliText::tr("Tells what changed from one package to another. Ends with status "
                                 "1 when something did."));
    parsed.addFile(QStringLiteral("OLD"), CliText::tr("The former package."));
    parsed.addFile(QStringLiteral("NEW"), CliText::tr("The present package."));
    if (const auto status = parsed.parse(arguments, console))
        return *status;

    const Workspace workspace;
    DashboardDocument former;
    DashboardDocument present;
    if (!workspace.open(former, parsed.file(0), console) ||
        !workspace.open(present, parsed.file(1), console))
        return ExitStatus::Trouble;
    const std::vector<Difference> found = differences(former, present);
    parsed.print(found, sentence, objectOf, QStringLiteral("differences"),
                 {{QStringLiteral("old"), parsed.file(0)}, {QStringLiteral("new"), parsed.file(1)}},
                 console);
    return found.empty() ? ExitStatus::Clean : ExitStatus::Findings;
}
