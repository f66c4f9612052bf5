#pragma once

#include "cli/Subcommands.h"

/// The program's command line: which subcommand runs, and the help that lists them.
namespace CommandLine {

/// Whether the arguments, without the program's name, name a subcommand that paints and so needs a
/// QGuiApplication. The others start faster without.
[[nodiscard]] bool needsGui(const QStringList& arguments);

/// Runs the subcommand that the arguments name.
[[nodiscard]] ExitStatus run(const QStringList& arguments, Console& console);

} // namespace CommandLine
