#include "canvas/PageTransform.h"

#include "canvas/Saturate.h"

#include <algorithm>

namespace {

/// Beyond any page, yet sums with 32-bit coordinates stay exact.
constexpr qint64 kFarthest = qint64{1} << 48;

} // namespace

PageTransform::PageTransform(const QSize& widget, const QSize& page)
{
    if (page.isEmpty())
        return;
    const double pageWidth = page.width();
    const double pageHeight = page.height();
    m_scale = std::min((widget.width() - 2 * kMargin) / pageWidth,
                       (widget.height() - 2 * kMargin) / pageHeight);
    m_origin = {(widget.width() - pageWidth * m_scale) / 2,
                (widget.height() - pageHeight * m_scale) / 2};
    m_pageRect = {m_origin.x(), m_origin.y(), pageWidth * m_scale, pageHeight * m_scale};
}

PageTransform PageTransform::atScale(double scale, const QSize& page)
{
    PageTransform transform;
    transform.m_scale = scale;
    transform.m_origin = {};
    transform.m_pageRect = {0.0, 0.0, page.width() * scale, page.height() * scale};
    return transform;
}

QRectF PageTransform::map(const ElementGeometry& geometry) const
{
    return {m_origin.x() + geometry.x * m_scale, m_origin.y() + geometry.y * m_scale,
            geometry.w * m_scale, geometry.h * m_scale};
}

PageTransform::Distance PageTransform::distance(const QPoint& from, const QPoint& to) const
{
    if (m_scale == 0.0) // a widget as small as its margins
        return {};
    return {Saturate::truncate((to.x() - from.x()) / m_scale, kFarthest),
            Saturate::truncate((to.y() - from.y()) / m_scale, kFarthest)};
}
