#include "tests/document/OpenPackageFixture.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <random>

namespace {

/// Several buffers long and not to be compressed, so that writing it takes several calls.
QByteArray image()
{
    std::minstd_rand random; // NOLINT: the same bytes every time
    QByteArray bytes(100000, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

} // namespace

OpenPackageFixture::OpenPackageFixture() : m_realTempPath(qgetenv(FolderTools::kTempVariable))
{
    QDir(m_world.path()).mkdir(QStringLiteral("packages"));
    QDir(m_world.path()).mkdir(QStringLiteral("temp"));
    qputenv(FolderTools::kTempVariable,
            QFile::encodeName(m_world.filePath(QStringLiteral("temp"))));
    EXPECT_TRUE(writePackage(m_package, "Race"));
    reopen();
    m_old = TestPackage::readFile(m_package);
}

OpenPackageFixture::~OpenPackageFixture()
{
    if (m_realTempPath.isNull())
        qunsetenv(FolderTools::kTempVariable);
    else
        qputenv(FolderTools::kTempVariable, m_realTempPath);
}

std::map<QString, QByteArray> OpenPackageFixture::members(const QByteArray& pageName, int x)
{
    using namespace TestPackage;
    const Object element = digitElement("mask.1", x, 20, 30, 40);
    return {{QStringLiteral("overlay.ov3.xml"), overlayXml({page(pageName, 800, 480, {element})})},
            {QStringLiteral("device.aimcfg"), deviceXml("MXS", 12, {{7, "RPM", "RPM", "rpm"}})},
            {QStringLiteral("images/0.png"), image()},
            {QStringLiteral("images/deep/notes.txt"), "kept"}};
}

bool OpenPackageFixture::writePackage(const QString& path, const QByteArray& pageName)
{
    return TestPackage::writePackage(path, members(pageName, kUnmoved));
}

bool OpenPackageFixture::isComplete(const QString& path, int x)
{
    DashboardDocument document;
    const auto cleanUp = qScopeGuard([&] { FolderTools::remove(document.tempDir()); });
    if (!document.open(path) || document.pageCount() != 1 ||
        document.pageAt(0)->elements.size() != 1 || document.pageAt(0)->elements[0].x != x)
        return false;
    auto expected = members("Race", x);
    auto found = FolderTools::contents(document.tempDir());
    expected.erase(QStringLiteral("overlay.ov3.xml")); // re-indented by a save
    found.erase(QStringLiteral("overlay.ov3.xml"));
    return found == expected;
}

void OpenPackageFixture::expectNothingLost(bool saved)
{
    if (saved)
        EXPECT_TRUE(isComplete(m_package, kMoved));
    else
        EXPECT_EQ(TestPackage::readFile(m_package), m_old);
    EXPECT_EQ(FolderTools::names(m_folder), QStringList(QStringLiteral("race.zconf2")));
    const std::size_t unpacked = m_folderEmptied ? 1 : members({}, 0).size(); // one: the overlay
    EXPECT_LE(FolderTools::contents(m_document->tempDir()).size(), unpacked);
    if (!m_folderEmptied) {
        EXPECT_EQ(FolderTools::contents(m_document->tempDir()).size(), unpacked);
    }

    EXPECT_EQ(m_document->addBlankPage(QStringLiteral("after the fault")), 1);
    EXPECT_TRUE(m_document->removePage(1));
    EXPECT_EQ(m_document->pageAt(0)->elements.at(0).x, kMoved);
    EXPECT_TRUE(m_document->save(m_package));
    EXPECT_TRUE(isComplete(m_package, kMoved));
    TestPackage::writeFile(m_package, m_old);
    reopen();
}

void OpenPackageFixture::reopen()
{
    if (m_document)
        FolderTools::remove(m_document->tempDir());
    m_document = std::make_unique<DashboardDocument>();
    EXPECT_TRUE(m_document->open(m_package));
    m_document->pageAt(0)->elements.at(0).x = kMoved;
    m_folderEmptied = false;
}

void OpenPackageFixture::emptyFolder()
{
    FolderTools::remove(m_document->tempDir());
    m_folderEmptied = true;
}

void OpenPackageFixture::changePackage()
{
    TestPackage::writeFile(m_package, m_old + "changed");
    TestPackage::writeFile(m_package, m_old);
}

QByteArray OpenPackageFixture::world() const
{
    return QFile::encodeName(m_world.path());
}
