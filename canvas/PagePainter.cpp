#include "canvas/PagePainter.h"

#include "canvas/ElementPainter.h"
#include "canvas/GestureGeometry.h"

#include <QLineF>
#include <QPainter>

namespace {

constexpr QColor kBackdrop(50, 50, 50);
constexpr QColor kPageColor(0, 0, 0);
constexpr QColor kGridColor(80, 80, 80, 100);

// More than any display needs; a damaged file must not keep the painter busy for minutes.
constexpr int kMostGridLines = 20'000;

void drawGrid(QPainter& painter, const QSize& page, const PageTransform& transform, int pitch)
{
    if (page.width() / pitch > kMostGridLines || page.height() / pitch > kMostGridLines)
        return;
    const QPointF origin = transform.origin();
    const double right = origin.x() + page.width() * transform.scale();
    const double bottom = origin.y() + page.height() * transform.scale();
    painter.setPen(QPen(kGridColor, 1.0, Qt::SolidLine));
    for (qint64 x = 0; x <= page.width(); x += pitch) {
        const double column = origin.x() + static_cast<double>(x) * transform.scale();
        painter.drawLine(QLineF(column, origin.y(), column, bottom));
    }
    for (qint64 y = 0; y <= page.height(); y += pitch) {
        const double row = origin.y() + static_cast<double>(y) * transform.scale();
        painter.drawLine(QLineF(origin.x(), row, right, row));
    }
}

void drawPage(QPainter& painter, const PageView& view)
{
    const QRectF pageRect = view.transform.pageRect();
    if (pageRect.isEmpty())
        return;
    painter.fillRect(pageRect, kPageColor);
    if (!view.page->image.isNull())
        painter.drawPixmap(pageRect.toRect(), view.page->image);
    if (view.grid.isActive())
        drawGrid(painter, {view.page->width, view.page->height}, view.transform, view.grid.pitch);
}

void drawHandles(QPainter& painter, const QRectF& rect)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(ElementPainter::kSelectionColor);
    for (const GestureGeometry::DragMode handle : GestureGeometry::kHandles)
        painter.drawRect(GestureGeometry::handleSquare(rect, handle, GestureGeometry::kHandleSize));
}

} // namespace

void PagePainter::paint(QPainter& painter, const QRect& area, const PageView& view,
                        ElidedTexts& texts)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(area, kBackdrop);
    if (!view.page)
        return;
    drawPage(painter, view);

    const std::vector<DashElement>& elements = view.page->elements;
    const ElementPainter elementPainter(painter, view.transform, view.live, texts);
    for (std::size_t i = 0; i < elements.size(); ++i)
        elementPainter.draw(elements[i], static_cast<int>(i) == view.selectedIndex);

    const auto selected = static_cast<std::size_t>(view.selectedIndex); // -1 is past any end
    if (selected < elements.size())
        drawHandles(painter, view.transform.map(geometryOf(elements[selected])));
}
