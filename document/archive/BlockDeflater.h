#pragma once

#include "document/archive/DeflatedBlocks.h"

#include <QByteArray>

#include <zlib.h>

#include <optional>

/// The compression library's own default, which its headers do not name.
inline constexpr int kDeflateMemoryLevel = 8;

/// Deflates contents of which most was in the last save, too, such as the overlay: what has not
/// changed since is not deflated again.
///
/// A content is cut into blocks at places that the text around them decides, so that most cuts stay
/// where they are when it changes elsewhere. Each block may refer back into the one before, as in a
/// stream made in one go, and depends on nothing else.
class BlockDeflater
{
public:
    /// Length of a block; up to twice as long where a good place for a cut comes later. A change
    /// costs a block or two, and each block some time and space of its own.
    static constexpr qsizetype kBlockBytes = qsizetype{128} * 1024;
    /// As far back as deflate can refer.
    static constexpr qsizetype kWindowBytes = qsizetype{32} * 1024;
    /// So much content is kept for the next save, with what it deflates to. A larger one is better
    /// deflated as a stream.
    static constexpr qint64 kMostBytes = 16'000'000;

    /// @param former blocks of the last save; must outlive this
    explicit BlockDeflater(const DeflatedBlocks& former);
    BlockDeflater(const BlockDeflater&) = delete;
    BlockDeflater& operator=(const BlockDeflater&) = delete;
    ~BlockDeflater() { deflateEnd(&m_stream); }

    /// A raw deflate stream (RFC 1951) at the default level. It depends on the content alone.
    /// nullopt without memory.
    /// @param content owns its bytes, because it is kept
    [[nodiscard]] std::optional<QByteArray> deflate(const QByteArray& content);

    /// All so far, for the next save.
    [[nodiscard]] const DeflatedBlocks& deflated() const { return m_deflated; }

private:
    [[nodiscard]] bool keep(const QByteArray& content);
    [[nodiscard]] QByteArray deflateBlock(const BlockSource& source);

    const DeflatedBlocks& m_former;
    DeflatedBlocks m_deflated;
    qint64 m_keptBytes = 0; ///< of m_deflated.contents
    z_stream m_stream{};
};
