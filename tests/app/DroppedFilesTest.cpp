#include "app/DroppedFiles.h"

#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

class DroppedFilesTest : public ::testing::Test
{
protected:
    QString file(const char* name)
    {
        QString path = m_folder.filePath(QLatin1String(name));
        EXPECT_TRUE(TestPackage::writeFile(path, "content"));
        return path;
    }

    static DroppedFiles dropped(const QStringList& paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        return droppedFiles(data);
    }

    const QTemporaryDir m_folder;
};

} // namespace

TEST_F(DroppedFilesTest, TheFirstPackageAndTheFirstRecordingCount)
{
    const DroppedFiles files =
        dropped({file("a.txt"), file("1.xrk"), file("2.zconf2"), file("3.xrk"), file("4.zconf2")});
    EXPECT_EQ(files.package, m_folder.filePath(QStringLiteral("2.zconf2")));
    EXPECT_EQ(files.recording, m_folder.filePath(QStringLiteral("1.xrk")));
}

TEST_F(DroppedFilesTest, EndingsCountInAnyCase)
{
    EXPECT_FALSE(dropped({file("a.ZConf2")}).package.isEmpty());
    EXPECT_FALSE(dropped({file("a.XRK")}).recording.isEmpty());
}

TEST_F(DroppedFilesTest, NothingElseCounts)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("folder.zconf2")));
    EXPECT_TRUE(dropped({}).isEmpty());
    EXPECT_TRUE(dropped({file("a.zip"), file("zconf2"), file("a.zconf2.bak"),
                         m_folder.filePath(QStringLiteral("folder.zconf2")),
                         m_folder.filePath(QStringLiteral("missing.xrk"))})
                    .isEmpty());
    QMimeData remote;
    remote.setUrls({QUrl(QStringLiteral("https://example.org/a.zconf2"))});
    EXPECT_TRUE(droppedFiles(remote).isEmpty());
    QMimeData text;
    text.setText(file("b.zconf2"));
    EXPECT_TRUE(droppedFiles(text).isEmpty());
}
