#pragma once

#include "app/commands/SavedElements.h"

#include <QCoreApplication>
#include <QUndoCommand>

/// Removes every element of a page. The document is not owned and may be null, which makes redo and
/// undo do nothing.
class ClearPageCommand : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(ClearPageCommand)

public:
    ClearPageCommand(DashboardDocument* document, int pageIndex);
    ~ClearPageCommand() override;

    void undo() override;
    void redo() override;

private:
    DashboardDocument* m_document;
    int m_pageIndex;
    SavedElements m_saved;
};
