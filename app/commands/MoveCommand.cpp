#include "app/commands/MoveCommand.h"

#include "app/commands/SingleLine.h"

MoveCommand::MoveCommand(const PageRef& page, int elementIndex, const ElementGeometry& before,
                         const ElementGeometry& after)
    : PageCommand(page),
      m_elementIndex(elementIndex),
      m_before(before),
      m_after(after)
{
    const DashElement* const element = page.element(elementIndex);
    setText(singleLine(tr("Move/Resize %1").arg(element ? element->name : QString())));
}

bool MoveCommand::moves(const DashPage* page, int elementIndex) const
{
    return m_elementIndex == elementIndex && m_page.resolve() == page;
}

void MoveCommand::undo()
{
    apply(m_before);
}

void MoveCommand::redo()
{
    apply(m_after);
}

void MoveCommand::apply(const ElementGeometry& geometry) const
{
    if (DashElement* const element = m_page.element(m_elementIndex))
        setGeometry(*element, geometry);
}
