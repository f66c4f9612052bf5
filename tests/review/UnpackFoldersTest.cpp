#include "review/UnpackFolders.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/Unprivileged.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

class UnpackFoldersTest : public ::testing::Test
{
protected:
    /// Makes a folder with an overlay of that page, last written at that second.
    void make(const QString& name, const QByteArray& page, qint64 second)
    {
        const QString folder = m_root.filePath(name);
        TestPackage::writeFolder(
            folder,
            {{u"a/overlay.ov3.xml"_s, TestPackage::overlayXml({TestPackage::page(page, 800, 480)})},
             {u"a/0.png"_s, "picture"}});
        QFile overlay(folder + u"/a/overlay.ov3.xml"_s);
        ASSERT_TRUE(overlay.open(QIODevice::ReadWrite));
        ASSERT_TRUE(overlay.setFileTime(QDateTime::fromSecsSinceEpoch(second),
                                        QFileDevice::FileModificationTime));
    }

    const QTemporaryDir m_root;
};

} // namespace

TEST_F(UnpackFoldersTest, AreListedNewestFirst)
{
    make(u"Gaugewright-aaaaaa"_s, "Old", 1'000'000);
    make(u"Gaugewright-bbbbbb"_s, "New", 3'000'000);
    make(u"Gaugewright-cccccc"_s, "Between", 2'000'000);
    make(u"Something-dddddd"_s, "Not ours", 4'000'000);
    make(u"gaugewright-eeeeee"_s, "Not ours", 4'000'000);
    ASSERT_TRUE(QDir(m_root.path()).mkdir(u"Gaugewright-ffffff"_s)); // without an overlay
    const std::vector<UnpackFolder> folders = unpackFolders(m_root.path());
    ASSERT_EQ(folders.size(), 3U);
    EXPECT_EQ(folders[0].path, m_root.filePath(u"Gaugewright-bbbbbb"_s));
    EXPECT_EQ(folders[0].changed, QDateTime::fromSecsSinceEpoch(3'000'000));
    EXPECT_EQ(folders[0].pages, QStringList{u"New"_s});
    EXPECT_EQ(folders[1].pages, QStringList{u"Between"_s});
    EXPECT_EQ(folders[2].pages, QStringList{u"Old"_s});
}

TEST_F(UnpackFoldersTest, BecomePackagesWithEverythingInThem)
{
    make(u"left"_s, "Race", 1'000'000);
    TestPackage::writeFolder(m_root.filePath(u"left"_s), {{u".hidden/.file"_s, "hidden"}});
    const QString package = m_root.filePath(u"saved.zconf2"_s);
    const Outcome outcome = recoverPackage(m_root.filePath(u"left"_s), package);
    ASSERT_TRUE(outcome) << outcome.reason().toStdString();
    const TestPackage::Members members = TestPackage::readPackage(package);
    EXPECT_EQ(members.size(), 3U);
    EXPECT_EQ(members.at(u".hidden/.file"_s), "hidden");
    EXPECT_EQ(members.at(u"a/0.png"_s), "picture");
    EXPECT_TRUE(members.at(u"a/overlay.ov3.xml"_s).contains("Race"));
}

TEST_F(UnpackFoldersTest, MayBeGivenRelativeToTheWorkingFolder)
{
    make(u"left"_s, "Race", 1'000'000);
    const QString workingFolder = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_root.path()));
    for (const QString& folder : {u"left"_s, u"./left/"_s, u"left/../left"_s}) {
        const Outcome outcome = recoverPackage(folder, u"saved.zconf2"_s);
        EXPECT_TRUE(outcome) << folder.toStdString() << ": " << outcome.reason().toStdString();
    }
    QDir::setCurrent(workingFolder);
    EXPECT_EQ(TestPackage::readPackage(m_root.filePath(u"saved.zconf2"_s)).size(), 2U);
}

#ifdef Q_OS_UNIX

TEST_F(UnpackFoldersTest, AreRecoveredWithoutLinksAndPipes)
{
    make(u"left"_s, "Race", 1'000'000);
    ASSERT_TRUE(QFile::link(u"/etc/hostname"_s, m_root.filePath(u"left/to a file"_s)));
    ASSERT_TRUE(QFile::link(u"nothing"_s, m_root.filePath(u"left/to nothing"_s)));
    const QString pipe = m_root.filePath(u"left/pipe"_s); // reading it would wait forever
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString package = m_root.filePath(u"saved.zconf2"_s);
    const Outcome outcome = recoverPackage(m_root.filePath(u"left"_s), package);
    EXPECT_TRUE(outcome) << outcome.reason().toStdString();
    EXPECT_EQ(TestPackage::readPackage(package).size(), 2U);
}

TEST_F(UnpackFoldersTest, AreRefusedWhenNotAllOfThemCanBeRead)
{
    const QTemporaryDir root(openFolderTemplate());
    const QString left = root.filePath(u"left"_s);
    TestPackage::writeFolder(
        left,
        {{u"overlay.ov3.xml"_s, TestPackage::overlayXml({TestPackage::page("Race", 800, 480)})},
         {u"closed/0.png"_s, "picture"}});
    const QByteArray closed = QFile::encodeName(left + u"/closed"_s);
    ASSERT_EQ(chmod(QFile::encodeName(root.path()).constData(), 0777), 0);
    ASSERT_EQ(chmod(closed.constData(), 0), 0);
    EXPECT_TRUE(runUnprivileged([&] {
        return recoverPackage(left, root.filePath(u"saved.zconf2"_s)).reason() ==
               u"Not all of its folders can be read"_s;
    }));
    ASSERT_EQ(chmod(closed.constData(), 0755), 0);
    EXPECT_EQ(FolderTools::names(root.path()), QStringList{u"left"_s});
}

#endif

TEST_F(UnpackFoldersTest, AreRefusedWithoutAnOverlayAndLeaveNoFile)
{
    ASSERT_TRUE(TestPackage::writeFile(m_root.filePath(u"old.zconf2"_s), "old"));
    TestPackage::writeFolder(m_root.filePath(u"broken"_s), {{u"overlay.ov3.xml"_s, "<cut"}});
    for (const QString& folder : {u"missing"_s, u"broken"_s, u"old.zconf2"_s}) {
        const Outcome outcome =
            recoverPackage(m_root.filePath(folder), m_root.filePath(u"old.zconf2"_s));
        EXPECT_FALSE(outcome.reason().isEmpty()) << folder.toStdString();
    }
    EXPECT_EQ(TestPackage::readFile(m_root.filePath(u"old.zconf2"_s)), "old");
}

TEST_F(UnpackFoldersTest, SayWhenThePackageCannotBeWritten)
{
    make(u"left"_s, "Race", 1'000'000);
    const Outcome outcome =
        recoverPackage(m_root.filePath(u"left"_s), m_root.filePath(u"missing/saved.zconf2"_s));
    EXPECT_TRUE(outcome.reason().contains(u"missing/saved.zconf2\" cannot be written: "_s))
        << outcome.reason().toStdString();
    EXPECT_EQ(FolderTools::names(m_root.path()), QStringList{u"left"_s});
}
