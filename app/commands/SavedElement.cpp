#include "app/commands/SavedElement.h"

#include "app/commands/PageRef.h"

SavedElement::SavedElement(const DashElement& element) : m_record(element)
{
    m_record.node = {}; // the original goes away; only the copy below may be used
    m_xml.append_copy(element.node);
}

void SavedElement::restore(DashboardDocument& document, int pageIndex, int position) const
{
    const pugi::xml_node source = m_xml.first_child();
    if (!source)
        return;
    // The neighbour is looked up now: a handle kept from earlier may be stale.
    const DashElement* const previous = PageRef(&document, pageIndex).element(position - 1);
    pugi::xml_node restored;
    document.insertElementCopy(pageIndex, position, m_record, source,
                               previous ? previous->node : pugi::xml_node(), restored);
}
