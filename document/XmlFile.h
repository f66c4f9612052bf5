#pragma once

#include <pugixml.hpp>

class QString;

/// Reads and parses a file, whatever its encoding, into document.
///
/// False when the file cannot be read or is not well-formed, which leaves a partial tree behind,
/// and when it would take an unreasonable amount of memory: when it is larger than 200 MB, or has
/// more tags, attributes, pages and elements than some 150,000 ordinary elements.
[[nodiscard]] bool loadXmlFile(const QString& path, pugi::xml_document& document);
