#include "document/archive/BlockDeflater.h"

#include <algorithm>
#include <array>

namespace {

/// Whether a block may end behind a line break. The bytes before it decide alone, so that the cuts
/// behind a change mostly stay where they are.
bool isCut(const QByteArray& content, qsizetype lineBreak)
{
    constexpr qsizetype kDecisive = 64;
    constexpr size_t kOdds = 128;
    return qHashBits(content.constData() + lineBreak - kDecisive, kDecisive) % kOdds == 0;
}

/// Where the block that starts at `from` ends.
qsizetype endOfBlock(const QByteArray& content, qsizetype from)
{
    const qsizetype least = from + BlockDeflater::kBlockBytes;
    const qsizetype most = std::min(least + BlockDeflater::kBlockBytes, content.size());
    const QByteArrayView searched = QByteArrayView(content).first(most);
    qsizetype lineBreak = searched.indexOf('\n', least);
    while (lineBreak >= 0 && !isCut(content, lineBreak))
        lineBreak = searched.indexOf('\n', lineBreak + 1);
    return lineBreak >= 0 ? lineBreak + 1 : std::min(least, most);
}

Bytef* zlibBytes(const QByteArray& bytes, qsizetype from = 0)
{
    return reinterpret_cast<Bytef*>(const_cast<char*>(bytes.constData() + from));
}

} // namespace

BlockDeflater::BlockDeflater(const DeflatedBlocks& former) : m_former(former)
{
    deflateInit2(&m_stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, kDeflateMemoryLevel,
                 Z_DEFAULT_STRATEGY); // without memory every use fails
}

std::optional<QByteArray> BlockDeflater::deflate(const QByteArray& content)
{
    const bool isKept = keep(content);
    QByteArray stream;
    qsizetype from = 0;
    do { // one block even when there is no content
        const qsizetype end = endOfBlock(content, from);
        const qsizetype preceding = std::min(from, kWindowBytes);
        const char* const start = content.constData() + from - preceding;
        const BlockSource source{QByteArray::fromRawData(start, end - from + preceding), preceding,
                                 end == content.size()};
        const auto former = m_former.blocks.constFind(source);
        const QByteArray block = former != m_former.blocks.cend() ? *former : deflateBlock(source);
        if (block.isEmpty())
            return std::nullopt;
        if (isKept)
            m_deflated.blocks.insert(source, block);
        stream += block;
        from = end;
    } while (from < content.size());
    return stream;
}

/// Whether there is room for it.
bool BlockDeflater::keep(const QByteArray& content)
{
    if (m_keptBytes + content.size() > kMostBytes)
        return false;
    m_keptBytes += content.size();
    m_deflated.contents.append(content);
    return true;
}

/// Empty without memory.
QByteArray BlockDeflater::deflateBlock(const BlockSource& source)
{
    const auto preceding = static_cast<uInt>(source.preceding);
    if (deflateReset(&m_stream) != Z_OK)
        return {};
    deflateSetDictionary(&m_stream, zlibBytes(source.bytes), preceding);
    m_stream.next_in = zlibBytes(source.bytes, source.preceding);
    m_stream.avail_in = static_cast<uInt>(source.bytes.size()) - preceding;
    QByteArray block;
    std::array<Bytef, 16384> output{};
    do {
        m_stream.next_out = output.data();
        m_stream.avail_out = static_cast<uInt>(output.size());
        ::deflate(&m_stream, source.isLast ? Z_FINISH : Z_SYNC_FLUSH);
        block.append(reinterpret_cast<const char*>(output.data()),
                     static_cast<qsizetype>(output.size() - m_stream.avail_out));
    } while (m_stream.avail_out == 0);
    return block;
}
