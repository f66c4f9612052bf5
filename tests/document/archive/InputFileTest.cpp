#include "document/archive/InputFile.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// Can be read a few times, ten bytes each, and then no more.
class FailingFile : public QIODevice
{
public:
    explicit FailingFile(int reads) : m_reads(reads)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        if (m_reads-- > 0) {
            const qint64 count = std::min<qint64>(size, 10);
            std::fill_n(data, count, 'x');
            return count;
        }
        setErrorString(QStringLiteral("bad sector"));
        return -1;
    }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    int m_reads;
};

} // namespace

TEST(InputFileTest, ReadsFromThePositionToTheEnd)
{
    QBuffer device;
    device.setData("--content");
    device.open(QIODevice::ReadOnly);
    device.seek(2);
    QByteArray content;
    EXPECT_TRUE(readCompletely(device, 7, content));
    EXPECT_EQ(content, "content");
    EXPECT_TRUE(readCompletely(device, 0, content));
    EXPECT_EQ(content, "") << "at the end";
}

TEST(InputFileTest, RefusesAFileThatChangesItsSize)
{
    for (const qint64 size : {0, 6, 8, 100'000}) {
        QBuffer device;
        device.setData("content");
        device.open(QIODevice::ReadOnly);
        QByteArray content;
        EXPECT_EQ(readCompletely(device, size, content).reason(),
                  QStringLiteral("A file cannot be read completely"))
            << size;
    }
}

TEST(InputFileTest, SaysWhyAFileCannotBeRead)
{
    for (const int reads : {0, 1, 3}) {
        FailingFile file(reads);
        QByteArray content;
        EXPECT_EQ(readCompletely(file, 100, content).reason(), QStringLiteral("bad sector"))
            << reads;
    }
}
