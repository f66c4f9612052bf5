#pragma once

#include "document/DashboardDocument.h"

#include <pugixml.hpp>

/// A deleted or deletable element: its record and a deep copy of its XML, so that it can be put back
/// with everything that the record does not model.
class SavedElement {
public:
    explicit SavedElement(const DashElement& element);

    /// Puts the element back at that position of the page. Does nothing when it had no XML.
    void restore(DashboardDocument& document, int pageIndex, int position) const;

private:
    DashElement m_record;
    pugi::xml_document m_xml;
};
