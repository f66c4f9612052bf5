#pragma once

#include <QUndoCommand>

/// A step of the undo history that changes one page of a document.
class PageCommand : public QUndoCommand
{
public:
    /// The page that the step changes, adds or removes; -1 when it is no page of a document.
    [[nodiscard]] virtual int pageIndex() const = 0;
};
