#pragma once

#include "document/archive/Outcome.h"

#include <pugixml.hpp>

class QString;

/// Reads and parses a file, whatever its encoding, into document. Values keep blanks and carriage
/// returns; of a value that a comment breaks into pieces the first one is kept, as it reads.
///
/// Fails when the file cannot be read, exceeds the limits of DocumentLimits or is not well-formed.
/// document may hold a partial tree then.
Outcome loadXmlFile(const QString& path, pugi::xml_document& document);

/// Writes the tree to path as UTF-8, indented by two blanks a level, so that reading it again gives
/// the same texts. A file that would exceed the limit for reading is not indented; one that exceeds
/// it all the same is a failure. Does not wait for the disk. On failure the file that was there is
/// unchanged.
Outcome saveXmlFile(const pugi::xml_document& document, const QString& path);
