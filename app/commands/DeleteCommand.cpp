#include "app/commands/DeleteCommand.h"

#include "app/commands/PageRef.h"
#include "app/commands/SingleLine.h"

DeleteCommand::DeleteCommand(DashboardDocument* document, int pageIndex, int elementIndex)
    : m_document(document),
      m_pageIndex(pageIndex),
      m_elementIndex(elementIndex)
{
    const DashElement* const element = PageRef(document, pageIndex).element(elementIndex);
    if (!element) {
        setText(tr("Delete element"));
        return;
    }
    m_saved.add(*element);
    const bool bound = !element->channelLongName.isEmpty();
    setText(singleLine(tr("Delete %1").arg(bound ? element->channelLongName : element->name)));
}

DeleteCommand::~DeleteCommand() = default;

void DeleteCommand::undo()
{
    if (m_document)
        m_saved.restore(*m_document, m_pageIndex, m_elementIndex);
}

void DeleteCommand::redo()
{
    if (m_document)
        m_document->removeElement(m_pageIndex, m_elementIndex);
}
