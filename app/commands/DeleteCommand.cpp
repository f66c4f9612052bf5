#include "app/commands/DeleteCommand.h"

#include "app/commands/SingleLine.h"

DeleteCommand::DeleteCommand(DashboardDocument* document, int pageIndex, int elementIndex)
    : PageCommand({document, pageIndex}),
      m_elementIndex(elementIndex)
{
    const DashElement* const element = m_page.element(elementIndex);
    if (!element) {
        setText(tr("Delete element"));
        return;
    }
    m_saved.add(*element);
    const bool bound = !element->channelLongName.isEmpty();
    setText(singleLine(tr("Delete %1").arg(bound ? element->channelLongName : element->name)));
}

void DeleteCommand::undo()
{
    m_saved.restore(m_page, m_elementIndex);
}

void DeleteCommand::redo()
{
    if (m_page.document())
        m_page.document()->removeElement(m_page.index(), m_elementIndex);
}
