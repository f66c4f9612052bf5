#pragma once

#include <QByteArray>

#include <pugixml.hpp>

class QString;

/// Bytes that a tree and its records may take: more than a million ordinary elements need.
inline constexpr qint64 kMostXmlMemory = 4'000'000'000;

/// Bytes that tree and records of the text would take besides the text itself, more or less. A
/// package of a few hundred kilobytes can hold empty elements that take gigabytes.
[[nodiscard]] qint64 memoryOnceParsed(const QByteArray& xml);

/// Reads and parses a file, whatever its encoding, into document.
///
/// False when the file cannot be read or is not well-formed, which leaves a partial tree behind,
/// and when it would take more memory than kMostXmlMemory.
[[nodiscard]] bool loadXmlFile(const QString& path, pugi::xml_document& document);
