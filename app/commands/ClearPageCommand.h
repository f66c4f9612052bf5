#pragma once

#include "app/commands/PageCommand.h"
#include "app/commands/SavedElements.h"

#include <QCoreApplication>

/// Removes every element of a page. The document is not owned and may be null, which makes redo and
/// undo do nothing.
class ClearPageCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(ClearPageCommand)

public:
    ClearPageCommand(DashboardDocument* document, int pageIndex);
    ~ClearPageCommand() override;

    [[nodiscard]] int pageIndex() const override { return m_pageIndex; }
    void undo() override;
    void redo() override;

private:
    DashboardDocument* m_document;
    int m_pageIndex;
    SavedElements m_saved;
};
