#include "app/StartPath.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(StartPath, AFolderThatExistsIsTaken)
{
    const QTemporaryDir folder;
    EXPECT_EQ(nearestFolder(folder.path()), folder.path());
    EXPECT_EQ(nearestFolder(folder.path() + u'/'), folder.path());
}

TEST(StartPath, ElseTheNearestOneAbove)
{
    const QTemporaryDir folder;
    EXPECT_EQ(nearestFolder(folder.filePath(QStringLiteral("user/data"))), folder.path());
    QFile file(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(nearestFolder(folder.filePath(QStringLiteral("file/data"))), folder.path());
}

TEST(StartPath, ElseTheHomeFolder)
{
    EXPECT_EQ(nearestFolder(QString()), QDir::homePath());
    EXPECT_EQ(nearestFolder(QStringLiteral("no such folder/data")), QDir::homePath());
    EXPECT_EQ(nearestFolder(QStringLiteral("nodrive:/data")), QDir::homePath());
}

TEST(StartPath, AFileKeepsItsName)
{
    const QTemporaryDir folder;
    EXPECT_EQ(nearestPath(folder.filePath(QStringLiteral("gone/a.zconf2"))),
              folder.filePath(QStringLiteral("a.zconf2")));
    EXPECT_EQ(nearestPath(QString()), QString());
}
