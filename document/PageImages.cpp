#include "document/PageImages.h"

#include "paths/FixedPaths.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QScopeGuard>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

/// What an image counts against the limit of pixels.
qint64 countedPixels(const QSize& size, QImage::Format format)
{
    constexpr int kOrdinaryDepth = 32;
    const bool deep = QImage::toPixelFormat(format).bitsPerPixel() > kOrdinaryDepth;
    return qint64{size.width()} * size.height() * (deep ? 2 : 1);
}

/// The toolkit's scaled decoding loses the colours of such images.
bool hasColorTable(QImage::Format format)
{
    return format == QImage::Format_Mono || format == QImage::Format_MonoLSB ||
           format == QImage::Format_Indexed8;
}

/// Whether the image takes more memory at its full size than decoding may.
bool isTooLarge(const QImageReader& reader)
{
    constexpr qint64 kMost = qint64{DocumentLimits::kImageDecodingMebibytes} * 1024 * 1024;
    const QSize size = reader.size();
    const int pixelSize = hasColorTable(reader.imageFormat()) ? 1 : 4;
    return size.isValid() && qint64{size.width()} * size.height() * pixelSize > kMost;
}

QImage scaledTo(const QImage& image, const QSize& size)
{
    // Smooth scaling needs four bytes a pixel, so most of the way is done without. It also loses
    // the colours of images with a colour table.
    constexpr int kSmoothFactor = 2;
    return image.scaled((kSmoothFactor * size).boundedTo(image.size()))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

void PageImages::load(DashPage& page)
{
    const QString rawPath = std::exchange(page.imagePath, {});
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    if (!rawPath.isEmpty() && loadFile(page, FixedPaths::imageRoot() + rawPath))
        return;
    static_cast<void>(loadFile(page, m_overlayFolder + u'/' + QString::number(page.index) +
                                         QStringLiteral(".png")));
}

/// @return whether the file is the page's image: it was read, or it is too large for that.
bool PageImages::loadFile(DashPage& page, const QString& candidate)
{
    const QFileInfo file(candidate);
    if (!file.isFile())
        return false;
    page.imagePath = candidate;
    const QString key = file.canonicalFilePath();
    auto known = m_decoded.constFind(key);
    QImageReader reader(candidate);
    const bool tooLarge = isTooLarge(reader);
    if (known == m_decoded.constEnd())
        known = m_decoded.insert(key, QPixmap::fromImage(decode(reader)));
    page.image = *known;
    return tooLarge || !page.image.isNull();
}

QImage PageImages::decode(QImageReader& reader)
{
    const int oldLimit = QImageReader::allocationLimit();
    // The toolkit counts four bytes a pixel also for images that take one at most.
    QImageReader::setAllocationLimit(DocumentLimits::kImageDecodingMebibytes *
                                     (hasColorTable(reader.imageFormat()) ? 4 : 1));
    const auto restoreLimit =
        qScopeGuard([oldLimit] { QImageReader::setAllocationLimit(oldLimit); });

    const QSize size = reader.size();
    if (!size.isValid() || countedPixels(size, reader.imageFormat()) > m_pixelsLeft)
        return decodeReduced(reader);
    QImage image = reader.read();
    m_pixelsLeft -= countedPixels(image.size(), image.format());
    return image;
}

QImage PageImages::decodeReduced(QImageReader& reader)
{
    if (reader.size().isValid() && !hasColorTable(reader.imageFormat()))
        reader.setScaledSize(reducedSize(reader.size()));
    QImage image = reader.read();
    if (image.isNull())
        return image;
    if (image.size() != reader.scaledSize())
        image = scaledTo(image, reducedSize(image.size()));
    m_reducedPixelsLeft -= countedPixels(image.size(), image.format());
    return image;
}

QSize PageImages::reducedSize(const QSize& size) const
{
    // Each takes at most an eighth of the pixels that are left, so that every further one gets
    // some.
    constexpr double kShare = 8;
    const double area = static_cast<double>(size.width()) * size.height();
    const double share = static_cast<double>(std::max<qint64>(m_reducedPixelsLeft, 0)) / kShare;
    const QSize screen = QGuiApplication::primaryScreen()->size();
    const double factor =
        std::min({1.0, std::sqrt(share / area), double(screen.width()) / size.width(),
                  double(screen.height()) / size.height()});
    return (size * factor).expandedTo({1, 1});
}
