#pragma once

#include "document/DashPage.h"
#include "document/DocumentLimits.h"

#include <QHash>
#include <QPixmap>
#include <QString>

#include <utility>

class QImage;
class QImageReader;
class QSize;

/// Loads the background images of a document's pages. Each file is decoded once and shared by the
/// pages that use it. Images beyond the limit of pixels are decoded smaller.
class PageImages
{
public:
    explicit PageImages(QString overlayFolder = {}) : m_overlayFolder(std::move(overlayFolder)) {}

    /// Sets the image of the page: the file imagePath below the maker's image folder, else the one
    /// in the overlay's folder that has the page's number. imagePath becomes the path of that file,
    /// empty if there is none. An image that cannot be read is null; one that is too large to be
    /// decoded is null and not replaced by the other file. Loads nothing without a QGuiApplication,
    /// because a pixmap needs one.
    void load(DashPage& page);

private:
    [[nodiscard]] bool loadFile(DashPage& page, const QString& candidate);
    [[nodiscard]] QImage decode(QImageReader& reader);
    [[nodiscard]] QImage decodeReduced(QImageReader& reader);
    [[nodiscard]] QSize reducedSize(const QSize& size) const;

    QString m_overlayFolder;
    QHash<QString, QPixmap> m_decoded; // by canonical path
    qint64 m_pixelsLeft = DocumentLimits::kImagePixels;
    qint64 m_reducedPixelsLeft = DocumentLimits::kReducedImagePixels;
};
