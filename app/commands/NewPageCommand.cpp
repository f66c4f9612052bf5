#include "app/commands/NewPageCommand.h"

#include "app/commands/SingleLine.h"

NewPageCommand::NewPageCommand(DashboardDocument* document, const QString& name)
    : m_document(document),
      m_name(name)
{
    setText(singleLine(tr("New page \"%1\"").arg(name)));
}

NewPageCommand::~NewPageCommand() = default;

void NewPageCommand::undo()
{
    if (m_document)
        m_document->removePage(m_pageIndex);
}

void NewPageCommand::redo()
{
    if (!m_document)
        return;
    const pugi::xml_node saved = m_savedXml.first_child();
    pugi::xml_node restored;
    if (saved)
        m_document->insertPageCopy(m_pageIndex, m_savedPage, saved, restored);
    else
        createPage();
}

void NewPageCommand::createPage()
{
    const int index = m_document->addBlankPage(m_name);
    if (index < 0)
        return; // a later redo tries again
    m_pageIndex = index;
    m_savedPage = *m_document->pageAt(index);
    m_savedXml.append_copy(m_document->pageNode(index));
}
