#pragma once

#include "document/archive/OpenedPackage.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RawArchive.h"
#include "tests/support/SavedArchive.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

inline constexpr quint32 kSomeDate = 0x52a16c85; // some day in 2021

inline QByteArray unixTimes()
{
    return QByteArray("UT\5\0\1\1\2\3\4", 9);
}

/// A package with everything that a save used to lose.
inline RawArchive::Archive richArchive()
{
    RawArchive::Member stored{"z.png", QByteArray(3000, 'p'), RawArchive::kStored};
    stored.date = kSomeDate;
    stored.madeBy = RawArchive::kMadeOnUnix;
    stored.attributes = 0100644U << 16U;
    stored.internalAttributes = 1;
    stored.otherField = unixTimes();
    stored.localField = QByteArray("UT\x9\0\3\1\2\3\4\5\6\7\x8", 13);
    stored.comment = QByteArray("a\0comment", 9);
    RawArchive::Member late{"overlay.ov3.xml", "<overlay/>", RawArchive::kDeflate,
                            RawArchive::kDataDescriptor | RawArchive::kUtf8Name};
    late.date = kSomeDate + 1;
    RawArchive::Member wide{"wide", QByteArray(2000, 'w')};
    wide.wideSizes = true;
    wide.otherField = unixTimes();
    RawArchive::Archive archive;
    archive.members = {stored,
                       RawArchive::Member{"empty/", "", RawArchive::kStored},
                       late,
                       RawArchive::Member{".hidden", "hidden"},
                       RawArchive::Member{".folder/inside", "hidden, too"},
                       RawArchive::Member{"\xE8.txt", "first"},
                       RawArchive::Member{"\xE9.txt", "last"},
                       RawArchive::Member{QByteArray("a\0b", 3), "NUL"},
                       wide,
                       RawArchive::Member{"a.txt", "text"}};
    archive.comment = QByteArray("of\0the archive", 14);
    return archive;
}

class OpenedPackageTest : public testing::Test
{
protected:
    void open(const QByteArray& bytes)
    {
        ASSERT_TRUE(TestPackage::writeFile(m_path, bytes));
        const Outcome opened = m_package.unpack(m_path, m_folder);
        ASSERT_TRUE(opened) << opened.reason().toStdString();
        m_before = SavedArchive(m_path);
    }

    /// Saves to another file, or onto the package itself.
    void save(const QString& path)
    {
        const Outcome saved = m_package.save(m_folder, path);
        ASSERT_TRUE(saved) << saved.reason().toStdString();
        m_after = SavedArchive(path);
        EXPECT_TRUE(m_after.isWhole());
    }

    void expectFails(const QString& reason)
    {
        ASSERT_TRUE(TestPackage::writeFile(m_other, "old"));
        EXPECT_EQ(m_package.save(m_folder, m_other).reason(), reason);
        EXPECT_EQ(TestPackage::readFile(m_other), "old");
        EXPECT_EQ(FolderTools::names(m_world.path()).size(), QFile::exists(m_path) ? 3 : 2);
    }

    [[nodiscard]] QString inFolder(const char* path) const
    {
        return m_folder + u'/' + QString::fromUtf8(path);
    }

    void openRich() { open(RawArchive::build(richArchive())); }

    QTemporaryDir m_world{FolderTools::memoryTemplate()};
    QString m_path = m_world.filePath(QStringLiteral("a.zconf2"));
    QString m_other = m_world.filePath(QStringLiteral("b.zconf2"));
    QString m_folder = m_world.filePath(QStringLiteral("unpacked"));
    OpenedPackage m_package;
    SavedArchive m_before;
    SavedArchive m_after;
};
