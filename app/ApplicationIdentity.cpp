#include "app/ApplicationIdentity.h"

#include "app/Version.h"
#include "paths/FixedPaths.h"

#include <QGuiApplication>
#include <QIcon>

void applyApplicationIdentity()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Orlenvik"));
    QCoreApplication::setApplicationName(QStringLiteral("Gaugewright"));
    QCoreApplication::setApplicationVersion(QString::fromLatin1(kGaugewrightVersion));
    // The name of the installed desktop entry: some desktops find the window's icon through it.
    QGuiApplication::setDesktopFileName(QStringLiteral("gaugewright"));
    QGuiApplication::setWindowIcon(QIcon(FixedPaths::windowIcon()));
}
