#include "app/commands/ClearPageCommand.h"

ClearPageCommand::ClearPageCommand(DashboardDocument* document, int pageIndex)
    : PageCommand({document, pageIndex})
{
    const DashPage* const page = m_page.resolve();
    if (!page) {
        setText(tr("Clear page"));
        return;
    }
    for (const DashElement& element : page->elements)
        m_saved.add(element);
    setText(tr("Clear page (%1 elements)").arg(m_saved.count()));
}

void ClearPageCommand::undo()
{
    m_saved.restore(m_page, 0);
}

void ClearPageCommand::redo()
{
    const DashPage* const page = m_page.resolve();
    // From last to first: erasing at the end moves no other record.
    while (page && !page->elements.empty()) {
        const int last = static_cast<int>(page->elements.size()) - 1;
        m_page.document()->removeElement(m_page.index(), last);
    }
}
