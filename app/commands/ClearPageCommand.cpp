#include "app/commands/ClearPageCommand.h"

#include "app/commands/PageRef.h"

ClearPageCommand::ClearPageCommand(DashboardDocument* document, int pageIndex)
    : m_document(document),
      m_pageIndex(pageIndex)
{
    const DashPage* const page = PageRef(document, pageIndex).resolve();
    if (!page) {
        setText(tr("Clear page"));
        return;
    }
    for (const DashElement& element : page->elements)
        m_saved.add(element);
    setText(tr("Clear page (%1 elements)").arg(m_saved.count()));
}

ClearPageCommand::~ClearPageCommand() = default;

void ClearPageCommand::undo()
{
    if (m_document)
        m_saved.restore(*m_document, m_pageIndex, 0);
}

void ClearPageCommand::redo()
{
    if (!m_document)
        return;
    const DashPage* const page = m_document->pageAt(m_pageIndex);
    // From last to first: erasing at the end moves no other record.
    while (page && !page->elements.empty()) {
        const int last = static_cast<int>(page->elements.size()) - 1;
        m_document->removeElement(m_pageIndex, last);
    }
}
