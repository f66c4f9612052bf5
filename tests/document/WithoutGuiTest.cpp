// A program without a GUI application: pages and elements are read, images are not touched, because
// a pixmap needs the application.

#include "document/DashboardDocument.h"
#include "tests/support/PackageBuilder.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(WithoutGui, ReadsElementsButNoImages)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("made.zconf2"));
    ASSERT_TRUE(TestPackage::writePackage(
        path, {{QStringLiteral("overlay.ov3.xml"),
                TestPackage::overlayXml({TestPackage::page(
                    "Race", 300, 200, {TestPackage::digitElement("mask.1", 1, 2, 3, 4)})})},
               {QStringLiteral("0.png"), "would be looked at"}}));
    DashboardDocument document;
    ASSERT_TRUE(document.open(path));
    EXPECT_EQ(document.pages().at(0).elements.size(), 1U);
    EXPECT_TRUE(document.pages().at(0).imagePath.isEmpty());
    EXPECT_TRUE(document.save(path));
}

// In a process of its own, where nothing else has made elements.
TEST(WithoutGui, CountsNewElementsFromOneOnAcrossPackages)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("made.zconf2"));
    ASSERT_TRUE(TestPackage::writePackage(
        path, TestPackage::overlayXml({TestPackage::page(
                  "Race", 300, 200, {TestPackage::digitElement("mask.1", 1, 2, 3, 4)})})));
    DashboardDocument document;
    for (const QString& expected : {QStringLiteral("new.1"), QStringLiteral("new.2")}) {
        ASSERT_TRUE(document.open(path));
        DashElement created;
        ASSERT_EQ(document.addElementFromDonor(0, document.pages().at(0).elements.at(0).node, {}, 0,
                                               0, 1, 1, created),
                  1);
        EXPECT_EQ(created.name, expected);
    }
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir scratch; // for the unpack directories, which outlive documents
    qputenv("TMPDIR", scratch.path().toLocal8Bit());
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
