#include "document/DashboardDocument.h"

#include "tests/support/PackageBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(DashboardDocument, ReadsPagesElementsAndDevice)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.zconf2"));
    const QByteArray overlay = TestPackage::overlayXml(
        {TestPackage::page("Race", 320, 240, {TestPackage::digitElement("mask.1", 1, 2, 30, 40)})},
        320, 240);
    ASSERT_TRUE(TestPackage::writePackage(
        path, overlay, TestPackage::deviceXml("MXS", 12, {{7, "Engine RPM", "RPM", "rpm"}})));

    DashboardDocument document;
    ASSERT_TRUE(document.open(path));
    ASSERT_EQ(document.pageCount(), 1);
    EXPECT_EQ(document.pages()[0].name, QStringLiteral("Race"));
    ASSERT_EQ(document.pages()[0].elements.size(), 1U);
    EXPECT_EQ(document.pages()[0].elements[0].h, 40);
    EXPECT_EQ(document.displayWidth(), 320);
    ASSERT_EQ(document.channels().size(), 1U);
    EXPECT_EQ(document.channels()[0].longName, QStringLiteral("Engine RPM"));
}
