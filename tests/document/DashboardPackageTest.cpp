// Unpacking and packing whole folders, and what a packed archive looks like byte by byte.

#include "document/DashboardPackage.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RawArchive.h"
#include "tests/support/Unprivileged.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unzip.h>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using DashboardPackage::packDirectory;
using DashboardPackage::unpackArchive;
using TestPackage::readFile;
using TestPackage::readPackage;
using TestPackage::writeFile;
using Files = std::map<QString, QByteArray>;

namespace {

class DashboardPackageTest : public testing::Test
{
protected:
    DashboardPackageTest()
    {
        QDir(m_world.path()).mkdir(QStringLiteral("src"));
        QDir(m_world.path()).mkdir(QStringLiteral("out"));
    }

    QTemporaryDir m_world{openFolderTemplate()};
    QString m_src = m_world.filePath(QStringLiteral("src"));
    QString m_out = m_world.filePath(QStringLiteral("out"));
    QString m_archive = m_world.filePath(QStringLiteral("a.zconf2"));
};

struct Record
{
    QByteArray name;
    unz_file_info64 info;
    QByteArray extra;
    QByteArray comment;
};

/// What the directory of an archive says about its members, in its order.
std::vector<Record> records(const QString& path)
{
    std::vector<Record> result;
    unzFile archive = unzOpen64(QFile::encodeName(path).constData());
    for (int status = unzGoToFirstFile(archive); status == UNZ_OK;
         status = unzGoToNextFile(archive)) {
        Record record{QByteArray(1000, '\0'), {}, QByteArray(1000, '\0'), QByteArray(1000, '\0')};
        unzGetCurrentFileInfo64(archive, &record.info, record.name.data(), 1000,
                                record.extra.data(), 1000, record.comment.data(), 1000);
        record.name.resize(static_cast<qsizetype>(record.info.size_filename));
        result.push_back(record);
    }
    unzClose(archive);
    return result;
}

Files someFiles()
{
    return {{QStringLiteral("overlay.ov3.xml"), QByteArray(50000, 'o')},
            {QStringLiteral("device.aimcfg"), "device"},
            {QStringLiteral("empty"), ""},
            {QStringLiteral("images/0.png"), QByteArray("\0\xFF\r\n\x1A", 5)},
            {QStringLiteral("a/b/c/d/deep.txt"), "deep"},
            {QString::fromUtf8("\xC3\xA9t\xC3\xA9/\xE8\xB5\x9B\xE9\x81\x93 1.txt"), "accents"}};
}

} // namespace

TEST_F(DashboardPackageTest, PacksAndUnpacksToTheSameFiles)
{
    TestPackage::writeFolder(m_src, someFiles());
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    ASSERT_TRUE(unpackArchive(m_archive, m_out));
    EXPECT_EQ(FolderTools::contents(m_out), someFiles());
}

TEST_F(DashboardPackageTest, UnpacksFoldersWithAndWithoutMembersOfTheirOwn)
{
    writeFile(m_archive,
              RawArchive::build({RawArchive::Member{"own/", ""}, RawArchive::Member{"own/a", "1"},
                                 RawArchive::Member{"none/deep/b", "2"},
                                 RawArchive::Member{"bare/deep/", ""}}));
    ASSERT_TRUE(unpackArchive(m_archive, m_out));
    EXPECT_EQ(FolderTools::contents(m_out),
              (Files{{QStringLiteral("own/a"), "1"}, {QStringLiteral("none/deep/b"), "2"}}));
    EXPECT_TRUE(QFileInfo(m_out + QStringLiteral("/bare/deep")).isDir());
}

TEST_F(DashboardPackageTest, MakesTheFolderItUnpacksInto)
{
    const QString fresh = m_world.filePath(QStringLiteral("yet/to be/made"));
    writeFile(m_archive, RawArchive::build(RawArchive::Archive{}));
    ASSERT_TRUE(unpackArchive(m_archive, fresh));
    EXPECT_FALSE(QFileInfo::exists(m_world.filePath(QStringLiteral("yet")))) << "nothing to unpack";

    RawArchive::Member tooMuch{"a", "1"};
    tooMuch.size = 1ULL << 60U;
    tooMuch.wideSizes = true;
    writeFile(m_archive, RawArchive::build({tooMuch}));
    EXPECT_FALSE(unpackArchive(m_archive, fresh)) << "its disk is known all the same";
    EXPECT_FALSE(QFileInfo::exists(m_world.filePath(QStringLiteral("yet"))));

    writeFile(m_archive,
              RawArchive::build({RawArchive::Member{"a", "1"}, RawArchive::Member{"b/c", "2"}}));
    ASSERT_TRUE(unpackArchive(m_archive, fresh));
    EXPECT_EQ(FolderTools::contents(fresh),
              (Files{{QStringLiteral("a"), "1"}, {QStringLiteral("b/c"), "2"}}));
}

TEST_F(DashboardPackageTest, UnpacksOverFilesThatAreThere)
{
    writeFile(m_out + QStringLiteral("/a"), "older and longer");
    writeFile(m_archive, RawArchive::build({RawArchive::Member{"a", "new"}}));
    ASSERT_TRUE(unpackArchive(m_archive, m_out));
    EXPECT_EQ(readFile(m_out + QStringLiteral("/a")), "new");
}

TEST_F(DashboardPackageTest, RefusesArchivesThatAreNoFiles)
{
    EXPECT_FALSE(unpackArchive(m_world.filePath(QStringLiteral("missing")), m_out));
    EXPECT_FALSE(unpackArchive(m_src, m_out));
    EXPECT_FALSE(unpackArchive({}, m_out));
}

TEST_F(DashboardPackageTest, KeepsADamagedMemberAsFarAsItCanBeRead)
{
    QByteArray content;
    for (int i = 0; i < 10000; ++i)
        content += QByteArray::number(i * 7919 % 10007);
    RawArchive::Member damaged{"a", content};
    damaged.data = RawArchive::deflated(content);
    damaged.data->replace(damaged.data->size() / 2, 100, QByteArray(100, '\xFF'));
    writeFile(m_archive, RawArchive::build({damaged, RawArchive::Member{"b", "2"}}));

    ASSERT_TRUE(unpackArchive(m_archive, m_out));
    const QByteArray kept = readFile(m_out + QStringLiteral("/a"));
    EXPECT_GT(kept.size(), 8000);
    EXPECT_LT(kept.size(), content.size());
    EXPECT_TRUE(content.startsWith(kept.left(8192)));
    EXPECT_EQ(readFile(m_out + QStringLiteral("/b")), "2");
}

TEST_F(DashboardPackageTest, RefusedArchivesLeaveNothingBehind)
{
    for (const RawArchive::Member& bad :
         {RawArchive::Member{"../evil", "x"}, RawArchive::Member{"x", "x", 8, 1},
          RawArchive::Member{"x", "x", 12}}) {
        writeFile(m_archive, RawArchive::build({RawArchive::Member{"good", "1"}, bad}));
        EXPECT_FALSE(unpackArchive(m_archive, m_out));
        EXPECT_EQ(FolderTools::names(m_out), QStringList());
    }
}

TEST_F(DashboardPackageTest, NamesOfAnyLanguageForTheArchiveAndItsFolder)
{
    TestPackage::writeFolder(m_src, someFiles());
    const QString name =
        QString::fromUtf8("/\xD0\x93\xD0\xBE\xD0\xBD\xD0\xBA\xD0\xB0 \xF0\x9F\x8F\x81.zconf2");
    const QString out = m_world.filePath(QString::fromUtf8("\xE5\x87\xBA"));
    ASSERT_TRUE(QDir().mkdir(out));
    ASSERT_TRUE(packDirectory(m_src, m_world.path() + name));
    ASSERT_TRUE(unpackArchive(m_world.path() + name, out));
    EXPECT_EQ(FolderTools::contents(out), someFiles());
}

TEST_F(DashboardPackageTest, WritesMembersInTheOrderOfTheFolder)
{
    TestPackage::writeFolder(m_src, someFiles());
    QDirIterator files(m_src, QDir::Files, QDirIterator::Subdirectories);
    QList<QByteArray> expected;
    while (files.hasNext())
        expected.append(QDir(m_src).relativeFilePath(files.next()).toUtf8());
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    QList<QByteArray> found;
    for (const Record& record : records(m_archive))
        found.append(record.name);
    EXPECT_EQ(found, expected);
}

TEST_F(DashboardPackageTest, WritesNoDatesAttributesExtrasOrComments)
{
    TestPackage::writeFolder(m_src, someFiles());
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    for (const Record& record : records(m_archive)) {
        SCOPED_TRACE(record.name.toStdString());
        const bool ascii = record.name.toStdString().find('\xC3') == std::string::npos;
        // What the library makes of a date and time that are all zero.
        EXPECT_EQ(record.info.tmu_date.tm_year, 1980U);
        EXPECT_EQ(record.info.tmu_date.tm_mday, 0U);
        EXPECT_EQ(record.info.dosDate & 0xffffU, 0U);
        EXPECT_EQ(record.info.external_fa, 0U);
        EXPECT_EQ(record.info.version, 0U);
        EXPECT_EQ(record.info.compression_method, 8U);
        EXPECT_EQ(record.info.size_file_extra, 0U);
        EXPECT_EQ(record.info.size_file_comment, 0U);
        EXPECT_EQ(record.info.flag, ascii ? 0U : 1U << 11U);
    }
    const QByteArray bytes = readFile(m_archive);
    EXPECT_EQ(bytes.lastIndexOf("PK\5\6"), bytes.size() - 22) << "a comment of the archive";
}

TEST_F(DashboardPackageTest, CompressesAtTheDefaultLevel)
{
    const QByteArray content =
        QByteArray("The quick brown fox jumps over the lazy dog. ").repeated(5000);
    writeFile(m_src + QStringLiteral("/a"), content);
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    TestPackage::writePackage(m_out + QStringLiteral("/b"), {{QStringLiteral("a"), content}});
    // The library's own default settings give the same bytes.
    EXPECT_EQ(readFile(m_archive), readFile(m_out + QStringLiteral("/b")));
}

TEST_F(DashboardPackageTest, LosesEmptyFoldersAndHiddenFiles)
{
    TestPackage::writeFolder(m_src, {{QStringLiteral("a"), "1"},
                                     {QStringLiteral(".hidden"), "2"},
                                     {QStringLiteral(".folder/b"), "3"}});
    ASSERT_TRUE(QDir(m_src).mkpath(QStringLiteral("empty/deep")));
    ASSERT_TRUE(packDirectory(m_src, m_archive));
#ifndef Q_OS_WIN // where a dot does not hide
    EXPECT_EQ(readPackage(m_archive), (Files{{QStringLiteral("a"), "1"}}));
#endif
}

TEST_F(DashboardPackageTest, PacksAnEmptyFolderIntoAnEmptyArchive)
{
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    EXPECT_EQ(readFile(m_archive), RawArchive::build(RawArchive::Archive{}));
    EXPECT_TRUE(unpackArchive(m_archive, m_out));
    EXPECT_EQ(FolderTools::names(m_out), QStringList());
}

TEST_F(DashboardPackageTest, ReplacesAnOlderArchive)
{
    writeFile(m_archive, QByteArray(100000, 'x'));
    writeFile(m_src + QStringLiteral("/a"), "1");
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    EXPECT_EQ(readPackage(m_archive), (Files{{QStringLiteral("a"), "1"}}));
    EXPECT_LT(readFile(m_archive).size(), 200);
}

TEST_F(DashboardPackageTest, PacksIntoTheFolderItself)
{
    writeFile(m_src + QStringLiteral("/a"), "1");
    const QString inside = m_src + QStringLiteral("/new.zconf2");
    ASSERT_TRUE(packDirectory(m_src, inside));
    EXPECT_EQ(readPackage(inside), (Files{{QStringLiteral("a"), "1"}}));
}

TEST_F(DashboardPackageTest, RefusesAFolderThatIsNotThere)
{
    writeFile(m_archive, "old");
    EXPECT_FALSE(packDirectory(m_world.filePath(QStringLiteral("missing")), m_archive));
    EXPECT_FALSE(packDirectory(m_archive, m_archive));
    EXPECT_EQ(readFile(m_archive), "old");
}

TEST_F(DashboardPackageTest, RefusesDestinationsThatCannotBeFiles)
{
    writeFile(m_src + QStringLiteral("/a"), "1");
    EXPECT_FALSE(packDirectory(m_src, m_out));
    EXPECT_FALSE(packDirectory(m_src, m_world.filePath(QStringLiteral("missing/a.zconf2"))));
    EXPECT_EQ(FolderTools::names(m_world.path()).size(), 2);
}

#ifdef Q_OS_UNIX

TEST_F(DashboardPackageTest, PacksTheFilesThatLinksLeadTo)
{
    const QString elsewhere = m_world.filePath(QStringLiteral("elsewhere"));
    writeFile(elsewhere + QStringLiteral("/a"), "1");
    ASSERT_TRUE(QFile::link(elsewhere + QStringLiteral("/a"), m_src + QStringLiteral("/file")));
    ASSERT_TRUE(QFile::link(elsewhere, m_src + QStringLiteral("/folder")));
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    EXPECT_EQ(readPackage(m_archive), (Files{{QStringLiteral("file"), "1"}}));
}

TEST_F(DashboardPackageTest, FailsWhenAFileOrFolderCannotBeRead)
{
    writeFile(m_src + QStringLiteral("/locked/a"), "1");
    ASSERT_EQ(chmod(QFile::encodeName(m_world.path()).constData(), 0777), 0);
    const QByteArray file = QFile::encodeName(m_src + QStringLiteral("/locked/a"));
    const QByteArray folder = QFile::encodeName(m_src + QStringLiteral("/locked"));
    const auto pack = [this] { return packDirectory(m_src, m_archive); };
    EXPECT_TRUE(runUnprivileged(pack));
    const QByteArray good = readFile(m_archive);
    ASSERT_EQ(unlink(QFile::encodeName(m_archive).constData()), 0);
    ASSERT_EQ(chmod(file.constData(), 0), 0);
    EXPECT_FALSE(runUnprivileged(pack));
    ASSERT_EQ(chmod(file.constData(), 0644), 0);
    ASSERT_EQ(chmod(folder.constData(), 0), 0);
    EXPECT_FALSE(runUnprivileged(pack));
    ASSERT_EQ(chmod(folder.constData(), 0755), 0);
    EXPECT_FALSE(QFileInfo::exists(m_archive));
    EXPECT_FALSE(good.isEmpty());
}

TEST_F(DashboardPackageTest, OtherToolsReadWhatIsWritten)
{
    const QString unzip = QStringLiteral("/usr/bin/unzip");
    if (!QFileInfo::exists(unzip))
        GTEST_SKIP() << "no unzip program here";
    Files files = someFiles();
    std::erase_if(files, [](const auto& file) { // this program shows other names in its own way
        return file.first.toLatin1() != file.first.toUtf8();
    });
    TestPackage::writeFolder(m_src, files);
    ASSERT_TRUE(packDirectory(m_src, m_archive));
    EXPECT_EQ(
        QProcess::execute(unzip, {QStringLiteral("-qq"), m_archive, QStringLiteral("-d"), m_out}),
        0);
    EXPECT_EQ(FolderTools::contents(m_out), files);
}

#endif
