#include "document/archive/InputFile.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

/// Claims another size than it has, as a file does that another program is writing.
class ChangingFile : public QBuffer
{
public:
    explicit ChangingFile(qint64 claimed) : m_claimed(claimed)
    {
        setData("content");
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    [[nodiscard]] qint64 size() const override { return m_claimed; }

private:
    qint64 m_claimed;
};

} // namespace

TEST(InputFileTest, ReadsFromThePositionToTheEnd)
{
    QBuffer device;
    device.setData("--content");
    device.open(QIODevice::ReadOnly);
    device.seek(2);
    QByteArray content;
    EXPECT_TRUE(readCompletely(device, content));
    EXPECT_EQ(content, "content");
    EXPECT_TRUE(readCompletely(device, content));
    EXPECT_EQ(content, "") << "at the end";
}

TEST(InputFileTest, RefusesAFileThatChangesItsSize)
{
    for (const qint64 claimed : {0, 6, 8, 100'000}) {
        ChangingFile file(claimed);
        QByteArray content;
        EXPECT_EQ(readCompletely(file, content).reason(),
                  QStringLiteral("A file cannot be read completely"))
            << claimed;
    }
}

TEST(InputFileTest, SaysWhyAFileCannotBeRead)
{
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    QByteArray content;
    EXPECT_EQ(readCompletely(device, content).reason(), device.errorString());
}
