#include "document/PageImages.h"

#include "document/FixedPaths.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

void PageImages::load(DashPage& page, const QString& rawPath, const QString& overlayFolder)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    if (!rawPath.isEmpty())
        loadFile(page, FixedPaths::imageRoot() + rawPath);
    if (page.image.isNull())
        loadFile(page, overlayFolder + u'/' + QString::number(page.index) + QStringLiteral(".png"));
}

void PageImages::loadFile(DashPage& page, const QString& candidate)
{
    if (!QFileInfo(candidate).isFile())
        return;
    page.imagePath = candidate;
    QImageReader reader(candidate);
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > m_pixelsLeft)
        return;
    page.image = QPixmap::fromImageReader(&reader);
    m_pixelsLeft -= qint64{page.image.width()} * page.image.height();
}
