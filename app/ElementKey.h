#pragma once

#include "document/DashPage.h"

#include <QString>

#include <pugixml.hpp>

/// Names an element so that it can be recognised after records have moved in memory: by its XML
/// node together with its name, because a node that was freed may come back in the same place as
/// another.
class ElementKey
{
public:
    /// Names no element.
    ElementKey() = default;
    explicit ElementKey(const DashElement& element) : m_node(element.node), m_name(element.name) {}

    /// Where the element stands on that page, which may be null; -1 when it is not there.
    [[nodiscard]] int indexIn(const DashPage* page) const;

private:
    pugi::xml_node m_node; // compared only, never followed: it may be gone
    QString m_name;
};
