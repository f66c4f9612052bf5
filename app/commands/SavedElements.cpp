#include "app/commands/SavedElements.h"

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

void SavedElements::restore(const PageRef& page, int firstPosition) const
{
    if (!page.document())
        return;
    pugi::xml_node node = page.document()->pageNode(page.index());
    int position = firstPosition;
    for (const Entry& entry : m_entries) {
        if (!entry.xml)
            continue;
        // The neighbour is looked up now: a handle kept from earlier may be stale.
        const DashElement* const previous = page.element(position - 1);
        const pugi::xml_node place =
            placeAfter(node, previous ? previous->node : pugi::xml_node(), entry.othersBefore);
        pugi::xml_node restored;
        const bool inserted = page.document()->insertElementCopy(
            page.index(), position, entry.record, entry.xml, place, restored);
        // Without a neighbour the document inserts before the first element; other nodes may be
        // between that and the front of the page.
        if (inserted && !place)
            node.prepend_move(restored);
        ++position;
    }
}
