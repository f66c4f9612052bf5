#pragma once

#include "document/archive/Outcome.h"

#include <QByteArray>

#include <pugixml.hpp>

class QString;

/// Bytes that tree and records of the text would take besides the text itself, more or less. A
/// package of a few hundred kilobytes can hold empty elements that take gigabytes.
[[nodiscard]] qint64 memoryOnceParsed(const QByteArray& xml);

/// No text takes more than this many bytes for each of its own, also one that says nothing but the
/// class of a page.
inline constexpr qint64 kMostMemoryAByte = 100;

/// Whether a text of size bytes may take that much memory once it is parsed: 500 MB in any case, up
/// to 4 GB when the text is long enough to be an honest one. That is more than a million ordinary
/// elements need, each of which takes three to ten times the memory of its text.
[[nodiscard]] bool isReasonableMemory(qint64 memory, qint64 size);

/// Reads and parses a file, whatever its encoding, into document.
///
/// False when the file cannot be read or is not well-formed, which leaves a partial tree behind,
/// and when it would take more memory than is reasonable.
[[nodiscard]] bool loadXmlFile(const QString& path, pugi::xml_document& document);

/// Writes the tree to path, indented by two blanks a level unless it must not be, and does not wait
/// for the disk. On failure the file that was there is unchanged.
Outcome saveXmlFile(const pugi::xml_document& document, const QString& path, bool indented);
