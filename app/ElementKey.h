#pragma once

#include "document/DashPage.h"

#include <QString>

#include <pugixml.hpp>

/// Identifies an element after records have moved in memory: by its XML node and its name, because
/// the node's memory may be reused for another element.
class ElementKey
{
public:
    /// Names no element.
    ElementKey() = default;
    explicit ElementKey(const DashElement& element) : m_node(element.node), m_name(element.name) {}

    /// The element's index on that page, which may be null; -1 when it is not there.
    [[nodiscard]] int indexIn(const DashPage* page) const;

private:
    pugi::xml_node m_node; // compared only, never followed: it may be gone
    QString m_name;
};
