#pragma once

#include "document/DashboardDocument.h"
#include "tests/support/FolderTools.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <memory>

/// A package that is open and edited, in a world of its own: packages, unpack folders and whatever
/// else is written stand below one temporary folder.
class OpenPackageFixture : public testing::Test
{
public:
    ~OpenPackageFixture() override;

protected:
    static constexpr int kUnmoved = 10; ///< where the element stands in a package as it is made
    static constexpr int kMoved = 77;   ///< where it stands in the open document

    OpenPackageFixture();

    /// Name and content of every member of a package: a page of that name with one element at x, a
    /// device file, and files that the editor does not know.
    [[nodiscard]] static std::map<QString, QByteArray> members(const QByteArray& pageName, int x);
    static bool writePackage(const QString& path, const QByteArray& pageName);

    /// Whether the package at path opens, has its element at x and every other member unchanged.
    [[nodiscard]] static bool isComplete(const QString& path, int x);

    /// That the file at m_package is the new package after a save that succeeded and the old one
    /// byte for byte after one that failed, that nothing else was left anywhere, that the document
    /// can still be edited, and that saving it again works. Restores the old package and opens it
    /// again.
    void expectNothingLost(bool saved);

    /// Makes the document that of m_package again, edited, and forgets the unpack folder before.
    void reopen();

    /// Writes the package again, as another program would: a save must not copy from it.
    void changePackage();

    /// Removes the unpack folder, as a cleaner of temporary files would.
    void emptyFolder();

    [[nodiscard]] QByteArray world() const;

    QTemporaryDir m_world{FolderTools::memoryTemplate()};
    QString m_folder = m_world.filePath(QStringLiteral("packages"));
    QString m_package = m_folder + QStringLiteral("/race.zconf2");
    QByteArray m_old;                              ///< bytes of m_package as it was opened
    std::unique_ptr<DashboardDocument> m_document; ///< m_package, with its element moved to kMoved

private:
    bool m_folderEmptied = false;
    QByteArray m_realTempPath;
};
