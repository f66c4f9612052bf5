#include "document/DashboardPackage.h"
#include "samples/packages/PackageFolder.h"
#include "samples/packages/SamplePackages.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

bool make(const SampleLayout::Package& package, const QString& destination)
{
    const QTemporaryDir folder;
    const QString archive = destination + u'/' + QString::fromStdString(package.fileName);
    if (folder.isValid() && PackageFolder::write(package, folder.path()) &&
        DashboardPackage::packDirectory(folder.path(), archive))
        return true;
    qCritical("cannot write %s", qPrintable(archive));
    return false;
}

} // namespace

/// Writes the sample packages into the folder named by the one argument.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // painting needs fonts, not a display
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        qCritical("usage: %s FOLDER", qPrintable(arguments.value(0)));
        return EXIT_FAILURE;
    }
    for (const SampleLayout::Package& package :
         {SamplePackages::clubRacing(), SamplePackages::compact(),
          SamplePackages::enduranceLarge()}) {
        if (!make(package, arguments.at(1)))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
