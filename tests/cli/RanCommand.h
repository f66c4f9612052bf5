#pragma once

#include "cli/Subcommands.h"

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

/// A command line that ran in this process.
struct RanCommand
{
    ExitStatus status;
    QByteArray answer;
    QByteArray errors;

    /// The answer as JSON; empty when it is none.
    [[nodiscard]] QJsonObject json() const;
};

/// @param arguments without the program's name
[[nodiscard]] RanCommand runCommand(const QStringList& arguments);
