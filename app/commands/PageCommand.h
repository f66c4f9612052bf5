#pragma once

#include "app/commands/PageRef.h"

#include <QUndoCommand>

/// A step of the undo history that changes one page. Redo and undo do nothing when the page is of
/// a document that is null.
class PageCommand : public QUndoCommand
{
public:
    /// The page that the step changes, adds or removes.
    [[nodiscard]] const PageRef& page() const { return m_page; }

protected:
    explicit PageCommand(const PageRef& page) : m_page(page) {}

    PageRef m_page;
};
