#pragma once

#include "document/DashboardDocument.h"

/// Names a page so that it can be found again at any later time: by its index in a document, whose
/// records move in memory when pages come and go, or, for a canvas that shows a page of no
/// document, by the page itself, which the caller then keeps alive.
class PageRef
{
public:
    PageRef(DashboardDocument* document, int pageIndex)
        : m_document(document),
          m_pageIndex(pageIndex)
    {
    }
    explicit PageRef(DashPage* page) : m_page(page) {}

    /// Null for a page of no document.
    [[nodiscard]] DashboardDocument* document() const { return m_document; }
    /// The page's index in its document, -1 for a page of no document.
    [[nodiscard]] int index() const { return m_pageIndex; }

    /// The page as it is now, or null when it does not exist.
    [[nodiscard]] DashPage* resolve() const
    {
        return m_document ? m_document->pageAt(m_pageIndex) : m_page;
    }

    /// The element at that position of the page as it is now, or null.
    [[nodiscard]] DashElement* element(int index) const
    {
        DashPage* const page = resolve();
        if (!page || index < 0 || static_cast<std::size_t>(index) >= page->elements.size())
            return nullptr;
        return &page->elements[static_cast<std::size_t>(index)];
    }

private:
    DashboardDocument* m_document = nullptr;
    int m_pageIndex = -1;
    DashPage* m_page = nullptr;
};
