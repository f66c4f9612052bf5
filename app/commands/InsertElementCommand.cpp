#include "app/commands/InsertElementCommand.h"

#include "app/commands/SingleLine.h"
#include "document/ElementFields.h"

namespace {

/// The record of an element node; nothing when the document has none for it.
std::optional<DashElement> recordOf(const DashboardDocument* document, pugi::xml_node node)
{
    if (!document || !node)
        return std::nullopt;
    for (const DashPage& page : document->pages()) {
        for (const DashElement& element : page.elements) {
            if (element.node == node)
                return element;
        }
    }
    return std::nullopt;
}

} // namespace

InsertElementCommand::InsertElementCommand(DashboardDocument* document, int pageIndex,
                                           const ChannelDef& channel, int x, int y, int w, int h,
                                           pugi::xml_node donor)
    : PageCommand({document, pageIndex}),
      m_channel(channel),
      m_geometry{x, y, w, h},
      m_donor(recordOf(document, donor))
{
    m_donorXml.append_copy(donor);
    setText(singleLine(tr("Insert %1").arg(channel.longName)));
}

void InsertElementCommand::undo()
{
    if (m_page.document())
        m_page.document()->removeElement(m_page.index(), m_insertedIndex);
}

void InsertElementCommand::redo()
{
    if (m_inserted.isEmpty())
        insertFromDonor();
    else
        m_inserted.restore(m_page, m_insertedIndex);
}

void InsertElementCommand::insertFromDonor()
{
    if (!m_page.document())
        return;
    DashElement created;
    const int index = m_page.document()->addElementFromDonor(
        m_page.index(), m_donorXml.first_child(), m_channel, m_geometry.x, m_geometry.y,
        m_geometry.w, m_geometry.h, created);
    if (index < 0)
        return; // a later redo tries again
    if (m_donor) {
        DashElement& element = *m_page.element(index);
        ElementFields::copy(ElementFields::valueStyle(), *m_donor, element);
        ElementFields::copy(ElementFields::labelStyle(), *m_donor, element);
        created = element;
    }
    m_insertedIndex = index;
    m_inserted.add(created);
}
