#include "app/ElementKey.h"

int ElementKey::indexIn(const DashPage* page) const
{
    if (!page || !m_node)
        return -1;
    int index = 0;
    for (const DashElement& element : page->elements) {
        if (element.node == m_node && element.name == m_name)
            return index;
        ++index;
    }
    return -1;
}
