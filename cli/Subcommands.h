#pragma once

#include <QStringList>

class Console;

/// What the program ends with.
enum class ExitStatus
{
    Clean = 0,
    Findings = 1, ///< findings or differences
    Trouble = 2   ///< something could not be done; standard error says what
};

/// The subcommands. Each parses the arguments after its name, prints its answer and ends with a
/// status.
namespace Subcommands {

[[nodiscard]] ExitStatus show(const QStringList& arguments, Console& console);
[[nodiscard]] ExitStatus diff(const QStringList& arguments, Console& console);
[[nodiscard]] ExitStatus check(const QStringList& arguments, Console& console);
/// Needs a QGuiApplication.
[[nodiscard]] ExitStatus render(const QStringList& arguments, Console& console);
[[nodiscard]] ExitStatus channels(const QStringList& arguments, Console& console);
[[nodiscard]] ExitStatus recover(const QStringList& arguments, Console& console);

} // namespace Subcommands
