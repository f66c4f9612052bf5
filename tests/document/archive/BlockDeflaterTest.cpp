#include "document/archive/BlockDeflater.h"

#include "tests/support/RawArchive.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

constexpr qsizetype kBlock = BlockDeflater::kBlockBytes;
constexpr qsizetype kWindow = BlockDeflater::kWindowBytes;
const DeflatedBlocks kNoBlocks;

QByteArray deflated(const QByteArray& content, const DeflatedBlocks& former = kNoBlocks)
{
    return BlockDeflater(former).deflate(content).value_or(QByteArray());
}

DeflatedBlocks blocksOf(const QByteArray& content)
{
    BlockDeflater deflater(kNoBlocks);
    EXPECT_TRUE(deflater.deflate(content));
    return deflater.deflated();
}

/// Inflates a whole raw stream; "damaged" unless it ends with its last byte.
QByteArray inflated(const QByteArray& stream, qsizetype size)
{
    z_stream inflater{};
    inflateInit2(&inflater, -MAX_WBITS);
    QByteArray content(size + 1, '\0');
    inflater.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(stream.constData()));
    inflater.avail_in = static_cast<uInt>(stream.size());
    inflater.next_out = reinterpret_cast<Bytef*>(content.data());
    inflater.avail_out = static_cast<uInt>(content.size());
    const bool whole = inflate(&inflater, Z_FINISH) == Z_STREAM_END && inflater.avail_in == 0;
    content.truncate(static_cast<qsizetype>(inflater.total_out));
    inflateEnd(&inflater);
    return whole ? content : QByteArray("damaged");
}

/// Eight blocks and more, all lines different.
QByteArray manyLines()
{
    QByteArray text;
    for (int i = 0; text.size() < 8 * kBlock + 1000; ++i)
        text += "line number " + QByteArray::number(i * 7919) + '\n';
    return text;
}

/// A line break behind which a block may end, with the bytes that decide it.
QByteArray placeToCut()
{
    QByteArray line;
    for (int i = 0; line.isEmpty() || qHashBits(line.constData(), 64) % 128 != 0; ++i)
        line = QByteArray::number(i).rightJustified(64, 'x') + '\n';
    return line;
}

/// How many blocks of a content are not among those of another one.
qsizetype newBlocks(const QByteArray& content, const QByteArray& former)
{
    const DeflatedBlocks known = blocksOf(former);
    const DeflatedBlocks now = blocksOf(content);
    return std::count_if(
        now.blocks.keyBegin(), now.blocks.keyEnd(),
        [&known](const BlockSource& source) { return !known.blocks.contains(source); });
}

} // namespace

TEST(BlockDeflaterTest, DeflatesSmallContentsAsInOneGo)
{
    for (const QByteArray& content :
         {QByteArray(), QByteArray("x"), QByteArray(kBlock, 'x'), manyLines().first(10'000)})
        EXPECT_EQ(deflated(content), RawArchive::deflated(content)) << content.size();
}

TEST(BlockDeflaterTest, KeepsAllContent)
{
    QByteArray withoutLineBreaks = manyLines();
    withoutLineBreaks.replace('\n', ' ');
    const QByteArrayList contents{manyLines(),
                                  withoutLineBreaks,
                                  manyLines().first(kBlock + 1),
                                  QByteArray(kBlock + 1, '\n'),
                                  withoutLineBreaks.first(2 * kBlock - 1) + '\n' +
                                      withoutLineBreaks,
                                  withoutLineBreaks.first(2 * kBlock) + '\n' + withoutLineBreaks};
    for (const QByteArray& content : contents)
        EXPECT_EQ(inflated(deflated(content), content.size()), content) << content.size();
}

TEST(BlockDeflaterTest, ReachesBackIntoTheBlockBefore)
{
    QByteArray piece(20'000, '\0');
    std::minstd_rand random;
    std::ranges::generate(piece, [&random] { return static_cast<char>(random()); });
    const QByteArray content = piece.repeated(20);
    EXPECT_LT(deflated(content).size(), RawArchive::deflated(content).size() * 101 / 100);
}

TEST(BlockDeflaterTest, CutsLongLines)
{
    const QByteArray text = manyLines();
    const QByteArray longLine = QByteArray(text).replace('\n', ' ');
    EXPECT_GE(blocksOf(longLine + text).blocks.size(), 16);
}

TEST(BlockDeflaterTest, DeflatesOnlyWhatChanged)
{
    const QByteArray text = manyLines();
    ASSERT_GE(blocksOf(text).blocks.size(), 8);
    EXPECT_EQ(newBlocks(text, text), 0);
    for (const qsizetype at : {qsizetype{0}, kBlock / 2, 3 * kBlock}) {
        EXPECT_LE(newBlocks(QByteArray(text).replace(at, 1, "x"), text), 2) << at;
        EXPECT_LE(newBlocks(QByteArray(text).insert(at, "x"), text), 2) << at;
        EXPECT_LE(newBlocks(QByteArray(text).remove(at, 1), text), 2) << at;
        EXPECT_LE(newBlocks(QByteArray(text).insert(at, text.first(500)), text), 2) << at;
        EXPECT_LE(newBlocks(QByteArray(text).remove(at, 500), text), 2) << at;
    }
    EXPECT_EQ(newBlocks(text + "x", text), 1) << "the last";
}

TEST(BlockDeflaterTest, UsesTheFormerBlocks)
{
    const QByteArray text = manyLines();
    DeflatedBlocks former = blocksOf(text);
    for (QByteArray& block : former.blocks)
        block = "[" + block + "]";
    const QByteArray stream = deflated(text, former);
    EXPECT_EQ(stream.count('[') - deflated(text).count('['), former.blocks.size());
}

TEST(BlockDeflaterTest, TakesNoBlockForAnotherOne)
{
    // The same bytes as a first block, after others and as the last block.
    const QByteArray zeros(4 * kBlock, '\0');
    const DeflatedBlocks former = blocksOf(zeros);
    for (qsizetype size = kWindow; size < zeros.size(); size += kWindow) {
        const QByteArray content = zeros.first(size);
        EXPECT_EQ(inflated(deflated(content, former), size), content) << size;
    }
    // The first block of the rest has the bytes of the second block and of what precedes that.
    QByteArray text(3 * kBlock, 'x');
    for (const qsizetype end : {kBlock + 9'000, 2 * kBlock + 30'000})
        text.replace(end - placeToCut().size(), placeToCut().size(), placeToCut());
    const QByteArray rest = text.sliced(kBlock + 9'000 - kWindow);
    const QByteArray bytes = rest.first(kBlock + 21'000 + kWindow);
    ASSERT_TRUE(blocksOf(rest).blocks.contains({bytes, 0, false}));
    ASSERT_TRUE(blocksOf(text).blocks.contains({bytes, kWindow, false}));
    EXPECT_EQ(inflated(deflated(rest, blocksOf(text)), rest.size()), rest);
}

TEST(BlockDeflaterTest, KeepsTheBlocksOfAllContentsOfASave)
{
    const QByteArray text = manyLines();
    BlockDeflater deflater(kNoBlocks);
    ASSERT_TRUE(deflater.deflate(text));
    ASSERT_TRUE(deflater.deflate("other"));
    EXPECT_EQ(deflater.deflated().blocks.size(), blocksOf(text).blocks.size() + 1);
}

TEST(BlockDeflaterTest, ForgetsWhatTheLastSaveDidNotHave)
{
    const DeflatedBlocks former = blocksOf(manyLines());
    BlockDeflater deflater(former);
    ASSERT_TRUE(deflater.deflate("other"));
    EXPECT_EQ(deflater.deflated().blocks.size(), 1);
}

TEST(BlockDeflaterTest, KeepsOnlySoMuch)
{
    const QByteArray most(BlockDeflater::kMostBytes - 1, 'x');
    BlockDeflater deflater(kNoBlocks);
    for (const QByteArray& content : {most, QByteArray("too much"), QByteArray("x")})
        EXPECT_EQ(inflated(deflater.deflate(content).value_or(QByteArray()), content.size()),
                  content);
    EXPECT_EQ(deflater.deflated().contents, (QByteArrayList{most, "x"}));
    EXPECT_FALSE(deflater.deflated().blocks.contains({"too much", 0, true}));
    EXPECT_TRUE(deflater.deflated().blocks.contains({"x", 0, true}));
}
