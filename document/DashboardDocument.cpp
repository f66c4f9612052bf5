#include "document/DashboardDocument.h"

#include "document/DashboardPackage.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <utility>

namespace Class = OverlaySchema::Class;

bool DashboardDocument::open(const QString& packagePath)
{
    if (!QFileInfo::exists(packagePath))
        return false;
    QTemporaryDir unpackDir;
    if (!unpackDir.isValid())
        return false;
    // The unpacked files outlive the document and the program, on purpose.
    unpackDir.setAutoRemove(false);

    // Read into a fresh document and take it over on success only.
    DashboardDocument fresh;
    fresh.m_tempDir = unpackDir.path();
    fresh.m_deviceType = m_deviceType;
    fresh.m_deviceTypeCode = m_deviceTypeCode;
    fresh.m_channels = m_channels;
    fresh.m_displayWidth = m_displayWidth;
    fresh.m_displayHeight = m_displayHeight;

    if (!DashboardPackage::unpackArchive(packagePath, fresh.m_tempDir))
        return false;
    fresh.m_overlayPath = DashboardPackage::findOverlayFile(fresh.m_tempDir);
    if (fresh.m_overlayPath.isEmpty() || !fresh.loadOverlay(fresh.m_overlayPath))
        return false;
    fresh.m_devicePath = DashboardPackage::findDeviceFile(fresh.m_tempDir);
    // A package without a usable device file is complete all the same.
    if (!fresh.m_devicePath.isEmpty())
        static_cast<void>(fresh.loadDeviceFile(fresh.m_devicePath));

    *this = std::move(fresh);
    return true;
}

int DashboardDocument::pageCount() const
{
    return static_cast<int>(m_pages.size());
}

DashPage* DashboardDocument::pageAt(int index)
{
    return const_cast<DashPage*>(std::as_const(*this).pageAt(index));
}

const DashPage* DashboardDocument::pageAt(int index) const
{
    if (index < 0 || index >= pageCount())
        return nullptr;
    return &m_pages[static_cast<std::size_t>(index)];
}

pugi::xml_node DashboardDocument::confNode() const
{
    const pugi::xml_node container =
        m_overlayXml.child(OverlaySchema::kOverlayRoot).child(XmlTree::kObject);
    return XmlTree::firstObject(container, Class::kConf);
}

pugi::xml_node DashboardDocument::pageNode(int index) const
{
    if (index < 0)
        return {};
    return XmlTree::nthObject(confNode(), Class::kPage, index);
}
