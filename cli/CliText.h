#pragma once

#include <QCoreApplication>

/// Translates what the command line says.
class CliText
{
    Q_DECLARE_TR_FUNCTIONS(CliText)
};
