#include "cli/CommandLine.h"

#include "app/Version.h"
#include "cli/CliText.h"
#include "cli/Console.h"

#include <algorithm>
#include <array>

namespace {

struct Subcommand
{
    const char* name;
    ExitStatus (*run)(const QStringList&, Console&);
    const char* description;
    bool paints;
};

constexpr std::array kSubcommands{
    Subcommand{"show", Subcommands::show,
               QT_TRANSLATE_NOOP("CliText", "lists what is in a package"), false},
    Subcommand{"diff", Subcommands::diff,
               QT_TRANSLATE_NOOP("CliText", "tells what changed between two packages"), false},
    Subcommand{"check", Subcommands::check,
               QT_TRANSLATE_NOOP("CliText", "looks for faults in a package"), false},
    Subcommand{"render", Subcommands::render,
               QT_TRANSLATE_NOOP("CliText", "paints the pages of a package"), true},
    Subcommand{"channels", Subcommands::channels,
               QT_TRANSLATE_NOOP("CliText", "lists the channels of a recording"), false},
    Subcommand{"recover", Subcommands::recover,
               QT_TRANSLATE_NOOP("CliText", "makes a package of what a crash left behind"), false},
};

const Subcommand* find(const QStringList& arguments)
{
    const auto* const found = std::find_if(
        kSubcommands.begin(), kSubcommands.end(), [&arguments](const Subcommand& subcommand) {
            return arguments.value(0) == QLatin1String(subcommand.name);
        });
    return found == kSubcommands.end() ? nullptr : found;
}

void printHelp(Console& console)
{
    constexpr int kNameWidth = 10;
    console.print(CliText::tr("Usage: gaugewright-cli SUBCOMMAND [options] ..."));
    console.print(QString());
    for (const Subcommand& subcommand : kSubcommands) {
        console.print(QStringLiteral("  ") +
                      QString::fromLatin1(subcommand.name).leftJustified(kNameWidth) +
                      CliText::tr(subcommand.description));
    }
    console.print(QString());
    console.print(CliText::tr("gaugewright-cli SUBCOMMAND --help says more. Exit status: 0 clean, "
                              "1 findings or differences, 2 trouble."));
}

} // namespace

bool CommandLine::needsGui(const QStringList& arguments)
{
    const Subcommand* const subcommand = find(arguments);
    return subcommand && subcommand->paints;
}

ExitStatus CommandLine::run(const QStringList& arguments, Console& console)
{
    if (const Subcommand* const subcommand = find(arguments))
        return subcommand->run(arguments.mid(1), console);
    if (arguments.value(0) == u"--help") {
        printHelp(console);
        return ExitStatus::Clean;
    }
    if (arguments.value(0) == u"--version") {
        console.print(QStringLiteral("gaugewright-cli ") +
                      QString::fromLatin1(kGaugewrightVersion));
        return ExitStatus::Clean;
    }
    return console.fail(arguments.isEmpty() ? CliText::tr("the subcommand is missing")
                                            : arguments.at(0),
                        CliText::tr("See gaugewright-cli --help for the subcommands"));
}
