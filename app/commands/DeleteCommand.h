#pragma once

#include "app/commands/PageCommand.h"
#include "app/commands/SavedElements.h"

#include <QCoreApplication>

/// Deletes one element of a page. The document is not owned and may be null, which makes redo and
/// undo do nothing, as does a page or element that did not exist at construction.
class DeleteCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(DeleteCommand)

public:
    DeleteCommand(DashboardDocument* document, int pageIndex, int elementIndex);
    ~DeleteCommand() override;

    [[nodiscard]] int pageIndex() const override { return m_pageIndex; }
    void undo() override;
    void redo() override;

private:
    DashboardDocument* m_document;
    int m_pageIndex;
    int m_elementIndex;
    SavedElements m_saved; // empty when there was no such element
};
