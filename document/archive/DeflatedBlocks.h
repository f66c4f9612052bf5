#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>

/// What one block of a deflate stream is made from.
struct BlockSource
{
    QByteArray bytes;        ///< what precedes the block as far as it matters, and the block
    qsizetype preceding = 0; ///< how many of them precede
    bool isLast = false;

    bool operator==(const BlockSource&) const = default;
};

[[nodiscard]] inline size_t qHash(const BlockSource& source, size_t seed = 0)
{
    return qHash(source.bytes, seed);
}

/// What a save deflated.
struct DeflatedBlocks
{
    QHash<BlockSource, QByteArray> blocks; ///< compressed
    QByteArrayList contents;               ///< never changed: the sources' bytes are in them
};
