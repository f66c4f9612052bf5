#include "app/commands/NewPageCommand.h"

#include "app/commands/SingleLine.h"

NewPageCommand::NewPageCommand(DashboardDocument* document, const QString& name)
    : PageCommand({document, -1}),
      m_name(name)
{
    setText(singleLine(tr("New page \"%1\"").arg(name)));
}

void NewPageCommand::undo()
{
    if (m_page.document())
        m_page.document()->removePage(m_page.index());
}

void NewPageCommand::redo()
{
    if (!m_page.document())
        return;
    const pugi::xml_node saved = m_savedXml.first_child();
    pugi::xml_node restored;
    if (saved)
        m_page.document()->insertPageCopy(m_page.index(), m_savedPage, saved, restored);
    else
        createPage();
}

void NewPageCommand::createPage()
{
    DashboardDocument* const document = m_page.document();
    m_page = {document, document->addBlankPage(m_name)};
    if (m_page.index() < 0)
        return; // a later redo tries again
    m_savedPage = *m_page.resolve();
    m_savedXml.append_copy(document->pageNode(m_page.index()));
}
