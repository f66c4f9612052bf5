#pragma once

#include <QtGlobal>

#include <cstddef>

/// How much of what a package holds is read. No real layout comes near; a package of a few
/// kilobytes can ask for more memory than a computer has. Checked where a file or text is read, and
/// nowhere else.
namespace DocumentLimits {

/// Size of an overlay or device file, bytes. Its tree takes up to 16 times as much memory.
inline constexpr qint64 kXmlBytes = 64'000'000;

/// Levels of nested elements in these files; layouts have seven. The XML library recurses when it
/// removes a node, and indentation grows with the depth.
inline constexpr int kXmlLevels = 100;

/// Pages of an overlay. The search for its image makes a page more expensive than any element.
inline constexpr std::ptrdiff_t kPages = 100'000;

/// Characters of a text in a record, which end up in widgets. Laying out megabytes takes minutes.
/// The XML keeps the whole text.
inline constexpr qsizetype kTextLength = 10'000;

/// Pixels of all page images of a document that are shown in full size, four bytes each. An image
/// with more than four bytes a pixel counts twice.
inline constexpr qint64 kImagePixels = 100'000'000;

/// Pixels of all images beyond that together, which are shown smaller.
inline constexpr qint64 kReducedImagePixels = 10'000'000;

/// Memory for decoding one image, in the toolkit's unit of 1024 * 1024 bytes: enough for
/// kImagePixels. The toolkit's own limit is lower.
inline constexpr int kImageDecodingMebibytes = 400;

} // namespace DocumentLimits
