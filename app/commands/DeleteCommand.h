#pragma once

#include "app/commands/PageCommand.h"
#include "app/commands/SavedElements.h"

#include <QCoreApplication>

/// Deletes one element of a page; does nothing when it did not exist at construction. The document
/// is not owned and may be null.
class DeleteCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(DeleteCommand)

public:
    DeleteCommand(DashboardDocument* document, int pageIndex, int elementIndex);

    void undo() override;
    void redo() override;

private:
    int m_elementIndex;
    SavedElements m_saved; // empty when there was no such element
};
