#pragma once

#include "document/DashboardDocument.h"
#include "tests/support/PackageBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A package made of parts, opened.
class OpenedLayout
{
public:
    explicit OpenedLayout(const TestPackage::Members& members)
    {
        const QString path = m_folder.filePath(QStringLiteral("layout.zconf2"));
        EXPECT_TRUE(TestPackage::writePackage(path, members));
        EXPECT_TRUE(m_document.open(path));
    }

    /// With "device.aimcfg" unless device is empty.
    explicit OpenedLayout(const std::vector<TestPackage::Object>& pages,
                          const QByteArray& device = {}, TestPackage::Members others = {})
        : OpenedLayout(membersOf(pages, device, std::move(others)))
    {
    }

    [[nodiscard]] const DashboardDocument& document() const { return m_document; }

private:
    static TestPackage::Members membersOf(const std::vector<TestPackage::Object>& pages,
                                          const QByteArray& device, TestPackage::Members members)
    {
        members[QStringLiteral("overlay.ov3.xml")] = TestPackage::overlayXml(pages);
        if (!device.isEmpty())
            members[QStringLiteral("device.aimcfg")] = device;
        return members;
    }

    const QTemporaryDir m_folder;
    DashboardDocument m_document;
};
