#include "document/DashboardDocument.h"

#include "document/DashboardPackage.h"
#include "document/DeviceReader.h"
#include "document/DocumentLimits.h"
#include "document/DocumentText.h"
#include "document/OverlayReader.h"
#include "document/OverlaySchema.h"
#include "document/OverlayWriter.h"
#include "document/XmlFile.h"
#include "document/XmlTree.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <utility>

namespace Class = OverlaySchema::Class;

bool DashboardDocument::open(const QString& packagePath)
{
    return report(readPackage(packagePath));
}

bool DashboardDocument::save(const QString& destPath)
{
    return report(writePackage(destPath));
}

bool DashboardDocument::keepEdits()
{
    return report(writeUnpackedOverlay());
}

bool DashboardDocument::loadOverlay(const QString& path)
{
    return report(readOverlay(path));
}

bool DashboardDocument::loadDeviceFile(const QString& path)
{
    return report(readDeviceFile(path));
}

bool DashboardDocument::writeBack(const QString& xmlPath)
{
    return report(writeOverlay(xmlPath));
}

bool DashboardDocument::report(const Outcome& outcome)
{
    m_errorString = outcome.reason();
    return bool(outcome);
}

Outcome DashboardDocument::readPackage(const QString& packagePath)
{
    if (!QFileInfo::exists(packagePath))
        return Outcome::failure(DocumentText::tr("There is no such file"));
    QTemporaryDir unpackDir;
    if (!unpackDir.isValid())
        return Outcome::failure(unpackDir.errorString());
    // The unpacked files outlive the document and the program, on purpose.
    unpackDir.setAutoRemove(false);

    // Read into a fresh document and take it over on success only.
    DashboardDocument fresh;
    fresh.m_tempDir = unpackDir.path();
    fresh.m_device = m_device;

    if (Outcome outcome = fresh.m_package.unpack(packagePath, fresh.m_tempDir); !outcome)
        return outcome;
    if (!fresh.m_package.isComplete())
        return Outcome::failure(DocumentText::tr("Its list of files is damaged"));
    fresh.m_overlayPath = DashboardPackage::findOverlayFile(fresh.m_tempDir);
    if (fresh.m_overlayPath.isEmpty())
        return Outcome::failure(DocumentText::tr("There is no overlay in it"));
    if (Outcome outcome = fresh.readOverlay(fresh.m_overlayPath); !outcome)
        return outcome;
    fresh.m_devicePath = DashboardPackage::findDeviceFile(fresh.m_tempDir);
    // A package without a usable device file is complete.
    if (!fresh.m_devicePath.isEmpty())
        static_cast<void>(fresh.readDeviceFile(fresh.m_devicePath));

    *this = std::move(fresh);
    return {};
}

Outcome DashboardDocument::writePackage(const QString& destPath)
{
    if (Outcome outcome = writeUnpackedOverlay(); !outcome)
        return outcome;
    return m_package.save(m_tempDir, destPath);
}

Outcome DashboardDocument::writeUnpackedOverlay()
{
    if (m_overlayPath.isEmpty())
        return Outcome::failure(DocumentText::tr("No package is open"));
    // A cleaner of temporary files may have removed the folder; the package has the rest.
    if (Outcome outcome = m_package.ensureFolder(m_tempDir); !outcome)
        return outcome;
    QDir().mkpath(QFileInfo(m_overlayPath).absolutePath());
    const Outcome written = writeOverlay(m_overlayPath);
    // It is not the file that the user saves to, and maybe not on that disk.
    return written ? written
                   : Outcome::failure(DocumentText::tr("\"%1\" cannot be written: %2")
                                          .arg(m_overlayPath, written.reason()));
}

Outcome DashboardDocument::readOverlay(const QString& path)
{
    // A failed parse leaves a partial tree behind, so it must not touch the open one.
    pugi::xml_document parsed;
    if (Outcome outcome = loadXmlFile(path, parsed); !outcome)
        return outcome;
    const auto objects = XmlTree::objects(OverlayReader::confNode(parsed));
    const auto isPage = [](pugi::xml_node object) {
        return XmlTree::hasClass(object, Class::kPage);
    };
    if (std::count_if(objects.begin(), objects.end(), isPage) > DocumentLimits::kPages)
        return Outcome::failure(DocumentText::tr("The overlay has more than 100,000 pages"));
    m_pages.clear();
    m_overlayXml = std::move(parsed);
    m_images = PageImages(QFileInfo(m_overlayPath).path());

    int ordinal = 0;
    for (const pugi::xml_node child : XmlTree::objects(confNode())) {
        if (isPage(child))
            readPage(child, ordinal++);
    }
    return m_pages.empty() ? Outcome::failure(DocumentText::tr("There is no page in the overlay"))
                           : Outcome();
}

Outcome DashboardDocument::readDeviceFile(const QString& path)
{
    pugi::xml_document parsed;
    if (Outcome outcome = loadXmlFile(path, parsed); !outcome)
        return outcome;
    if (!DeviceReader::readDevice(parsed, m_device))
        return Outcome::failure(DocumentText::tr("There is no device in the device file"));
    OverlayReader::readDisplaySize(confNode(), m_device);
    return {};
}

Outcome DashboardDocument::writeOverlay(const QString& xmlPath)
{
    const pugi::xml_node conf = confNode();
    if (!conf)
        return Outcome::failure(DocumentText::tr("No overlay is open"));
    OverlayWriter::writeRecords(conf, m_pages);
    return saveXmlFile(m_overlayXml, xmlPath);
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
    m_images.load(page);
    m_pages.push_back(std::move(page));
}

DashElement DashboardDocument::readElement(pugi::xml_node node)
{
    return OverlayReader::readElement(node);
}
