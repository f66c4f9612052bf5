#include "tests/document/OpenPackageFixture.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#ifdef Q_OS_WIN
#define NOMINMAX
#include <windows.h>
#endif

namespace {

/// Longest path that programs for Windows may use unless they ask for more, characters.
constexpr qsizetype kShortPathLimit = 260;

/// A folder below root whose path is longer than that.
QString longFolder(const QString& root)
{
    QString folder = root;
    while (folder.size() <= kShortPathLimit)
        folder += u'/' + QString(50, u'f');
    return folder;
}

class FileNames : public OpenPackageFixture, public testing::WithParamInterface<const char*>
{
protected:
    QString m_name = QString::fromUtf8(GetParam());
};

TEST_P(FileNames, PackageIsSavedAndOpened)
{
    const QString folder = m_folder + u'/' + m_name;
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString path = folder + u'/' + m_name + QStringLiteral(".zconf2");
    ASSERT_TRUE(m_document->save(path));
    EXPECT_EQ(FolderTools::names(folder), QStringList(m_name + QStringLiteral(".zconf2")));
    EXPECT_TRUE(isComplete(path, kMoved));
}

TEST_P(FileNames, MemberSurvivesASave)
{
    auto files = members("Race", kUnmoved);
    const QString member = QStringLiteral("images/%1/%1.png").arg(m_name);
    files[member] = "content";
    ASSERT_TRUE(TestPackage::writePackage(m_package, files));
    reopen();
    ASSERT_TRUE(m_document->save(m_package));
    EXPECT_EQ(TestPackage::readPackage(m_package)[member], "content");
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryScript, FileNames,
    testing::Values("plain", "with blanks & signs !#$%'()+,;=@[]{}~",
                    "Gr\u00F6\u00DFe \u00E6\u0142\u0151", "\u0395\u03BB\u03BB\u03AC\u03B4\u03B1",
                    "\u041C\u043E\u0441\u043A\u0432\u0430", "\u05E2\u05D1\u05E8\u05D9\u05EA",
                    "\u0645\u0631\u062D\u0628\u0627", "\u0939\u093F\u0928\u094D\u0926\u0940",
                    "\u0E44\u0E17\u0E22", "\u65E5\u672C\u8A9E", "\uD55C\uAD6D\uC5B4",
                    "e\u0301 combined", "\U0001F3C1 \U00020BB7"));

class LongPaths : public OpenPackageFixture
{
};

TEST_F(LongPaths, PackageIsSavedAndOpened)
{
    const QString folder = longFolder(m_folder);
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString path = folder + QStringLiteral("/race.zconf2");
    ASSERT_TRUE(m_document->save(path));
    EXPECT_EQ(FolderTools::names(folder), QStringList(QStringLiteral("race.zconf2")));
    EXPECT_TRUE(isComplete(path, kMoved));
}

TEST_F(LongPaths, MemberSurvivesASave)
{
    auto files = members("Race", kUnmoved);
    const QString member = longFolder(QStringLiteral("images")) + QStringLiteral("/0.png");
    files[member] = "content";
    ASSERT_TRUE(TestPackage::writePackage(m_package, files));
    reopen();
    ASSERT_TRUE(m_document->save(m_package));
    EXPECT_EQ(TestPackage::readPackage(m_package)[member], "content");
}

#ifdef Q_OS_WIN

/// A file that another program holds open. Windows checks what is shared by handle, not by process.
class HeldFile
{
public:
    HeldFile(const QString& path, DWORD shared)
        : m_handle(CreateFileW(QDir::toNativeSeparators(path).toStdWString().c_str(), GENERIC_READ,
                               shared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        EXPECT_NE(m_handle, INVALID_HANDLE_VALUE);
    }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;
    ~HeldFile() { CloseHandle(m_handle); }

private:
    HANDLE m_handle;
};

using HeldFiles = LongPaths;

TEST_F(HeldFiles, SaveOverOneFailsAndLosesNothing)
{
    for (const DWORD shared : {DWORD{0}, DWORD{FILE_SHARE_READ}}) {
        {
            const HeldFile held(m_package, shared);
            EXPECT_FALSE(m_document->save(m_package));
        }
        expectNothingLost(false);
        reopen();
    }
}

TEST_F(HeldFiles, SaveOverOneThatMayBeReplacedWorks)
{
    {
        const HeldFile held(m_package, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
        ASSERT_TRUE(m_document->save(m_package));
    }
    EXPECT_TRUE(isComplete(m_package, kMoved));
}

TEST_F(HeldFiles, OpeningOneThatIsNotSharedChangesNothing)
{
    const HeldFile held(m_package, 0);
    const QString before = m_document->tempDir();
    EXPECT_FALSE(m_document->open(m_package));
    EXPECT_EQ(m_document->tempDir(), before);
    EXPECT_EQ(m_document->pageAt(0)->elements.at(0).x, kMoved);
}

using ReadOnlyFiles = LongPaths;

TEST_F(ReadOnlyFiles, SaveOverOneFailsAndLosesNothing)
{
    QFile file(m_package);
    ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ReadUser));
    EXPECT_FALSE(m_document->save(m_package));
    ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ReadUser | QFile::WriteOwner |
                                    QFile::WriteUser));
    expectNothingLost(false);
}

#endif

} // namespace
