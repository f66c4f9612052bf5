#include "app/commands/InsertElementCommand.h"

InsertElementCommand::InsertElementCommand(DashboardDocument* document, int pageIndex,
                                           const ChannelDef& channel, int x, int y, int w, int h,
                                           pugi::xml_node donor)
    : m_document(document),
      m_pageIndex(pageIndex),
      m_channel(channel),
      m_geometry{x, y, w, h}
{
    m_donorXml.append_copy(donor);
    setText(tr("Insert %1").arg(channel.longName));
}

InsertElementCommand::~InsertElementCommand() = default;

void InsertElementCommand::undo()
{
    if (m_document)
        m_document->removeElement(m_pageIndex, m_insertedIndex);
}

void InsertElementCommand::redo()
{
    if (!m_document)
        return;
    if (m_inserted.isEmpty())
        insertFromDonor();
    else
        m_inserted.restore(*m_document, m_pageIndex, m_insertedIndex);
}

void InsertElementCommand::insertFromDonor()
{
    DashElement created;
    const int index = m_document->addElementFromDonor(m_pageIndex, m_donorXml.first_child(),
                                                      m_channel, m_geometry.x, m_geometry.y,
                                                      m_geometry.w, m_geometry.h, created);
    if (index < 0)
        return; // a later redo tries again
    m_insertedIndex = index;
    m_inserted.add(created);
}
