// Writes the sample packages into the folder named by the one argument.
#include "document/DashboardPackage.h"
#include "samples/packages/SamplePackage.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdlib>
#include <numeric>

using namespace Qt::StringLiterals;
using SamplePackage::Package;

namespace {

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
}

// Overlay, backgrounds and device file, and what else a package may hold: an older layout of an
// add-on and the definition of a spare device, which an editor must skip, a text, and every byte.
bool writeFolder(const Package& package, const QString& folder)
{
    const QString layout = QDir::cleanPath(folder + u'/' + package.layoutFolder) + u'/';
    Package addOn = package;
    addOn.pages.resize(1);
    QByteArray bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    for (const auto name :
         {""_L1, "expansions/keypad"_L1, "devices"_L1, "notes"_L1, "resources"_L1}) {
        if (!QDir().mkpath(name.isEmpty() ? layout : folder + u'/' + name))
            return false;
    }
    for (std::size_t i = 0; i < package.pages.size(); ++i) {
        if (package.pages[i].hasBackground &&
            !SamplePackage::paintBackground(package, package.pages[i])
                 .save(layout + QString::number(i) + ".png"_L1))
            return false;
    }
    return SamplePackage::writeOverlay(package, layout + "overlay.ov3.xml"_L1) &&
           SamplePackage::writeOverlay(addOn, folder + "/expansions/keypad/overlay.ov3.xml"_L1) &&
           SamplePackage::writeDeviceFile(package, folder + "/dash.aimcfg"_L1) &&
           SamplePackage::writeDeviceFile(package, folder + "/devices/spare.aimcfg"_L1) &&
           writeFile(folder + u"/notes/setup für Regen.txt"_s,
                     "Rear wing +2, tyre pressures 1.65 bar cold.\r\n") &&
           writeFile(folder + "/resources/shift-lights.bin"_L1, bytes);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // painting needs fonts, not a display
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        qCritical("usage: %s FOLDER", qPrintable(arguments.value(0)));
        return EXIT_FAILURE;
    }
    for (const Package& package : SamplePackage::all()) {
        const QTemporaryDir folder;
        const QString archive = arguments[1] + u'/' + package.fileName;
        if (!folder.isValid() || !writeFolder(package, folder.path()) ||
            !DashboardPackage::packDirectory(folder.path(), archive)) {
            qCritical("cannot write %s", qPrintable(archive));
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
