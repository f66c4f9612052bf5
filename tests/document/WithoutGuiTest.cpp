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

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir scratch; // for the unpack directories, which outlive documents
    qputenv("TMPDIR", scratch.path().toLocal8Bit());
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
