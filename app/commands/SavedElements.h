#pragma once

#include "app/commands/PageRef.h"

#include <pugixml.hpp>

#include <cstddef>
#include <vector>

/// Elements taken from a page, in page order: their records and deep copies of their XML, so that
/// they can be restored with everything that the records do not model, exactly where they were
/// among the page's other objects.
class SavedElements
{
public:
    void add(const DashElement& element);

    /// Restores the elements, the first one at that position of the page. An element that had no
    /// XML is left out. Does nothing without a document.
    void restore(const PageRef& page, int firstPosition) const;

    [[nodiscard]] bool isEmpty() const { return m_entries.empty(); }
    [[nodiscard]] std::size_t count() const { return m_entries.size(); }

private:
    struct Entry
    {
        DashElement record;
        pugi::xml_node xml; // in m_xml
        int othersBefore;   // nodes other than elements between the element before this one and it
    };

    pugi::xml_document m_xml; // one for all entries: each document of the library takes 32 KiB
    std::vector<Entry> m_entries;
};
