#include "app/commands/SavedElements.h"

#include "app/commands/PageRef.h"
#include "document/OverlaySchema.h"

#include <utility>

using OverlaySchema::isElement;

namespace {

int countOthersBefore(pugi::xml_node element)
{
    int count = 0;
    for (pugi::xml_node node = element.previous_sibling(); node && !isElement(node);
         node = node.previous_sibling())
        ++count;
    return count;
}

/// The node after which an element goes that follows the element previous (the first one of the
/// page when empty) and that many other nodes; empty when it goes to the very front of the page.
pugi::xml_node placeAfter(pugi::xml_node page, pugi::xml_node previous, int othersBefore)
{
    pugi::xml_node place = previous;
    for (int i = 0; i < othersBefore; ++i) {
        const pugi::xml_node next = place ? place.next_sibling() : page.first_child();
        if (!next || isElement(next))
            break; // never past the next element: the order of XML and records must agree
        place = next;
    }
    return place;
}

} // namespace

void SavedElements::add(const DashElement& element)
{
    Entry entry{element, m_xml.append_copy(element.node), countOthersBefore(element.node)};
    entry.record.node = {}; // the original goes away; only the copy may be used
    m_entries.push_back(std::move(entry));
}

void SavedElements::restore(DashboardDocument& document, int pageIndex, int firstPosition) const
{
    int position = firstPosition;
    for (const Entry& entry : m_entries) {
        if (entry.xml)
            restoreOne(document, pageIndex, position++, entry);
    }
}

void SavedElements::restoreOne(DashboardDocument& document, int pageIndex, int position,
                               const Entry& entry) const
{
    pugi::xml_node page = document.pageNode(pageIndex);
    // The neighbour is looked up now: a handle kept from earlier may be stale.
    const DashElement* const previous = PageRef(&document, pageIndex).element(position - 1);
    const pugi::xml_node place =
        placeAfter(page, previous ? previous->node : pugi::xml_node(), entry.othersBefore);
    // Without a neighbour the document would put it before the first element, behind what stands
    // between it and the front of the page.
    pugi::xml_node restored;
    if (document.insertElementCopy(pageIndex, position, entry.record, entry.xml, place, restored) &&
        !place)
        page.prepend_move(restored);
}
