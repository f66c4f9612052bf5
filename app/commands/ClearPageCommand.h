#pragma once

#include "app/commands/SavedElement.h"

#include <QUndoCommand>

#include <list>

/// Removes every element of a page. The document is not owned and may be null, which makes redo and
/// undo do nothing.
class ClearPageCommand : public QUndoCommand {
public:
    ClearPageCommand(DashboardDocument* document, int pageIndex);
    ~ClearPageCommand() override;

    void undo() override;
    void redo() override;

private:
    DashboardDocument* m_document;
    int m_pageIndex;
    std::list<SavedElement> m_saved; // in page order; saved elements cannot be moved
};
