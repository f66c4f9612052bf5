#pragma once

#include "app/commands/PageCommand.h"
#include "document/ElementGeometry.h"

#include <QCoreApplication>

/// Moves or resizes one element: sets the four geometry fields of its record and nothing else.
/// The element is found anew, by page and position, whenever the command runs.
class MoveCommand : public PageCommand
{
    Q_DECLARE_TR_FUNCTIONS(MoveCommand)

public:
    /// Both rectangles are in display pixels. Pushing the command applies `after`, wherever the
    /// element is then.
    MoveCommand(const PageRef& page, int elementIndex, const ElementGeometry& before,
                const ElementGeometry& after);

    /// Whether this is the element that the command moves.
    [[nodiscard]] bool moves(const DashPage* page, int elementIndex) const;

    void undo() override;
    void redo() override;

private:
    void apply(const ElementGeometry& geometry) const;

    int m_elementIndex;
    ElementGeometry m_before;
    ElementGeometry m_after;
};
