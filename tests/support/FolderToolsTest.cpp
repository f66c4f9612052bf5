#include "tests/support/FolderTools.h"

#include "tests/support/PackageBuilder.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(FolderToolsTest, RemovesWhatDeadProcessesLeft)
{
    const QTemporaryDir root;
    const QString mine =
        QStringLiteral("gaugewright-test-%1-a").arg(QCoreApplication::applicationPid());
    const QString dead = QStringLiteral("gaugewright-test-4194305-a"); // no number goes so far
    const QString other = QStringLiteral("gaugewright-test-4194305");
    const QString foreign = QStringLiteral("other-4194305-a");
    for (const QString& folder : {mine, dead, other, foreign})
        ASSERT_TRUE(TestPackage::writeFile(root.filePath(folder + QStringLiteral("/file")), "x"));
    FolderTools::removeLeftovers(root.path());
    EXPECT_FALSE(QFileInfo::exists(root.filePath(dead)));
    for (const QString& folder : {mine, other, foreign})
        EXPECT_TRUE(QFileInfo::exists(root.filePath(folder))) << folder.toStdString();
}

TEST(FolderToolsTest, NamesItsProcessInTemplates)
{
    EXPECT_TRUE(FolderTools::memoryTemplate().endsWith(
        QStringLiteral("/gaugewright-test-%1-XXXXXX").arg(QCoreApplication::applicationPid())));
}
