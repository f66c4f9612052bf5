#pragma once

#include <QStringList>

class DashboardDocument;

/// Everything that is modelled of a package, one fact a line: device, channels, pages with their
/// elements, other files. Made to be compared line by line: the same layout gives the same lines
/// wherever its package is, and no line holds a number that counts pages or elements, so that an
/// insertion changes no other line. What belongs to a page or element is indented below it.
[[nodiscard]] QStringList layoutListing(const DashboardDocument& document);
