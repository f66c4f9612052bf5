#pragma once

#include <QCoreApplication>

/// Translates the reasons why a document cannot be read or written.
class DocumentText
{
    Q_DECLARE_TR_FUNCTIONS(DocumentText)
};
