#include "canvas/PagePicture.h"

#include "canvas/ElidedTexts.h"
#include "canvas/PagePainter.h"

#include <QPainter>

#include <cmath>

QSize PagePicture::size(const DashPage& page, double scale)
{
    const double width = std::round(page.width * scale);
    const double height = std::round(page.height * scale);
    if (!(width >= 1.0) || !(height >= 1.0) || width > kLargestSide || height > kLargestSide ||
        width * height > static_cast<double>(kMostPixels))
        return {};
    return {static_cast<int>(width), static_cast<int>(height)};
}

QImage PagePicture::paint(const DashPage& page, double scale, const LiveView& live)
{
    QImage picture(size(page, scale), QImage::Format_RGB32);
    if (picture.isNull())
        return picture;
    PageView view;
    view.page = &page;
    view.transform = PageTransform::atScale(scale, {page.width, page.height});
    view.live = live;
    QPainter painter(&picture);
    ElidedTexts texts;
    PagePainter::paint(painter, picture.rect(), view, texts);
    return picture;
}
