#pragma once

#include <pugixml.hpp>

#include <vector>

class DashboardDocument;

/// The XML objects of all pages, in their order. Quicker than one look-up for every page.
[[nodiscard]] std::vector<pugi::xml_node> pageNodes(const DashboardDocument& document);
