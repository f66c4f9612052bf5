#pragma once

#include "app/commands/PageCommand.h"
#include "app/commands/SavedElements.h"

#include <QCoreApplication>

/// Removes every element of a page. The document is not owned and may be null.
class ClearPageCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(ClearPageCommand)

public:
    ClearPageCommand(DashboardDocument* document, int pageIndex);

    void undo() override;
    void redo() override;

private:
    SavedElements m_saved;
};
