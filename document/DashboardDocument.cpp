#include "document/DashboardDocument.h"

#include "document/DashboardPackage.h"
#include "document/DeviceReader.h"
#include "document/OverlayReader.h"
#include "document/OverlaySchema.h"
#include "document/OverlayWriter.h"
#include "document/XmlFile.h"
#include "document/XmlTree.h"

#include <QDir>
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
    fresh.m_device = m_device;

    if (!fresh.m_package.unpack(packagePath, fresh.m_tempDir))
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

bool DashboardDocument::save(const QString& destPath)
{
    if (m_overlayPath.isEmpty() || m_tempDir.isEmpty())
        return false;
    // A cleaner of temporary files may have removed the folder; the package has the rest.
    QDir().mkpath(QFileInfo(m_overlayPath).absolutePath());
    return writeBack(m_overlayPath) && bool(m_package.save(m_tempDir, destPath));
}

bool DashboardDocument::loadOverlay(const QString& path)
{
    // A failed parse leaves a partial tree behind, so it must not touch the open one.
    pugi::xml_document parsed;
    if (!loadXmlFile(path, parsed))
        return false;
    m_pages.clear();
    m_overlayXml = std::move(parsed);
    m_indented = !XmlTree::levelsExceed(m_overlayXml, kMostIndentedLevels);
    m_images = {};

    int ordinal = 0;
    for (const pugi::xml_node child : XmlTree::objects(confNode())) {
        if (XmlTree::hasClass(child, Class::kPage))
            readPage(child, ordinal++);
    }
    return !m_pages.empty();
}

bool DashboardDocument::loadDeviceFile(const QString& path)
{
    pugi::xml_document parsed;
    if (!loadXmlFile(path, parsed) || !DeviceReader::readDevice(parsed, m_device))
        return false;
    OverlayReader::readDisplaySize(confNode(), m_device);
    return true;
}

bool DashboardDocument::writeBack(const QString& xmlPath)
{
    const pugi::xml_node conf = confNode();
    if (!conf)
        return false;
    OverlayWriter::writeRecords(conf, m_pages);
    return bool(saveXmlFile(m_overlayXml, xmlPath, m_indented));
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
    return OverlayReader::confNode(m_overlayXml);
}

pugi::xml_node DashboardDocument::pageNode(int index) const
{
    if (index < 0)
        return {};
    return XmlTree::nthObject(confNode(), Class::kPage, index);
}

void DashboardDocument::readPage(pugi::xml_node node, int ordinal)
{
    DashPage page = OverlayReader::readPage(node, ordinal);
    m_images.load(page, OverlayReader::readImagePath(node), QFileInfo(m_overlayPath).path());
    m_pages.push_back(std::move(page));
}

DashElement DashboardDocument::readElement(pugi::xml_node node)
{
    return OverlayReader::readElement(node);
}
