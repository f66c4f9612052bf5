#pragma once

#include "document/DashPage.h"
#include "document/DocumentLimits.h"

#include <QHash>
#include <QPixmap>
#include <QString>

class QImage;
class QImageReader;
class QSize;

/// Loads the background images of a document's pages. Each file is decoded once and shared by the
/// pages that use it. Images beyond the limit of pixels are decoded smaller.
class PageImages
{
public:
    /// Sets imagePath and image of the page: the file rawPath below the maker's image folder, else
    /// the one in overlayFolder that has the page's number. An image that cannot be read is null;
    /// one that is too large to be decoded is null and not replaced by the other file. Does nothing
    /// without a QGuiApplication, because a pixmap needs one.
    void load(DashPage& page, const QString& rawPath, const QString& overlayFolder);

private:
    [[nodiscard]] bool loadFile(DashPage& page, const QString& candidate);
    [[nodiscard]] QImage decode(QImageReader& reader);
    [[nodiscard]] QImage decodeReduced(QImageReader& reader);
    [[nodiscard]] QSize reducedSize(const QSize& size) const;

    QHash<QString, QPixmap> m_decoded; // by canonical path
    qint64 m_pixelsLeft = DocumentLimits::kImagePixels;
    qint64 m_reducedPixelsLeft = DocumentLimits::kReducedImagePixels;
};
