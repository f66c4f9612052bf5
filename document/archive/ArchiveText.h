#pragma once

#include <QCoreApplication>

/// Translates the reasons why archives and files cannot be read or written.
class ArchiveText
{
    Q_DECLARE_TR_FUNCTIONS(ArchiveText)
};
