#include "samples/packages/PackageFolder.h"

#include "samples/packages/DeviceFile.h"
#include "samples/packages/OverlayFile.h"
#include "samples/packages/PageArtist.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <numeric>

using SampleLayout::Package;
using SampleLayout::Page;

namespace {

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).absolutePath()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size() && file.flush();
}

bool writeBackgrounds(const Package& package, const QString& folder)
{
    int index = 0;
    for (const Page& page : package.pages) {
        const QString path = folder + QStringLiteral("/%1.png").arg(index++);
        if (page.hasBackground && !PageArtist::paintPage(package.sheet, page).save(path))
            return false;
    }
    return true;
}

QByteArray everyByte()
{
    QByteArray bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

// A package as the maker's tools leave it: an older layout of an add-on and the definition of a
// spare device, which an editor has to look past, a text, and bytes of all values.
bool writeExtras(const Package& package, const QString& folder)
{
    Package addOn = package;
    addOn.pages.resize(1);
    const QString expansion = folder + QStringLiteral("/expansions/keypad");
    const QString devices = folder + QStringLiteral("/devices");
    return QDir().mkpath(expansion) && QDir().mkpath(devices) &&
           OverlayFile::write(addOn, expansion + QStringLiteral("/overlay.ov3.xml")) &&
           DeviceFile::write(package, devices + QStringLiteral("/spare.aimcfg")) &&
           writeFile(folder + QStringLiteral("/notes/setup für Regen.txt"),
                     "Rear wing +2, tyre pressures 1.65 bar cold.\r\n") &&
           writeFile(folder + QStringLiteral("/resources/shift-lights.bin"), everyByte());
}

} // namespace

bool PackageFolder::write(const Package& package, const QString& folder)
{
    const QString layout =
        QDir::cleanPath(folder + u'/' + QString::fromStdString(package.layoutFolder));
    return QDir().mkpath(layout) &&
           OverlayFile::write(package, layout + QStringLiteral("/overlay.ov3.xml")) &&
           writeBackgrounds(package, layout) &&
           DeviceFile::write(package, folder + QStringLiteral("/dash.aimcfg")) &&
           writeExtras(package, folder);
}
