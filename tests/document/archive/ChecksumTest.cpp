#include "document/archive/Checksum.h"

#include <QBuffer>

#include <gtest/gtest.h>

TEST(ChecksumTest, IsTheOneOfZipArchives)
{
    const quint32 begun = extendedCrc(0, "1234", 4);
    EXPECT_EQ(extendedCrc(begun, "56789", 5), 0xcbf43926U);
}

TEST(ChecksumTest, SumsContentFromThePositionToTheEnd)
{
    QBuffer content;
    content.setData("--" + QByteArray(1'000'000, 'x'));
    content.open(QIODevice::ReadOnly);
    content.seek(2);
    const QByteArray rest(1'000'000, 'x');
    EXPECT_EQ(sumContent(content),
              (ContentSum{1'000'000, extendedCrc(0, rest.constData(), rest.size())}));
    EXPECT_EQ(sumContent(content), ContentSum()) << "at the end";
}

TEST(ChecksumTest, HasNoSumOfWhatCannotBeRead)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    EXPECT_EQ(sumContent(content), std::nullopt);
}
