#include "tests/support/LoadedOverlay.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

LoadedOverlay::LoadedOverlay(const QByteArray& xml) : m_folder(FolderTools::memoryTemplate())
{
    m_loaded = load(xml);
}

bool LoadedOverlay::load(const QByteArray& xml)
{
    return TestPackage::writeFile(path(), xml) && document.loadOverlay(path());
}

bool LoadedOverlay::loadDevice(const QByteArray& xml)
{
    const QString path = m_folder.filePath(QStringLiteral("device.aimcfg"));
    return TestPackage::writeFile(path, xml) && document.loadDeviceFile(path);
}

QByteArray LoadedOverlay::written()
{
    const QString path = m_folder.filePath(QStringLiteral("written.xml"));
    return document.writeBack(path) ? TestPackage::readFile(path) : QByteArray();
}
