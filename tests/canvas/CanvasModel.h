#pragma once

#include "document/DashPage.h"
#include "document/ElementGeometry.h"

#include <QPoint>
#include <QRectF>
#include <QSize>

#include <algorithm>
#include <array>
#include <optional>

/// The rules of the canvas's gestures written down a second time, as plainly as possible and
/// without any of the program's own geometry, to compare the canvas with. Left button only; edits
/// its own copy of the page. Pages of sensible size only.
class CanvasModel
{
public:
    CanvasModel(DashPage page, QSize widget) : m_page(std::move(page)), m_widget(widget) {}

    struct Step
    {
        int element;
        ElementGeometry before;
        ElementGeometry after;
    };

    bool snaps = false;
    int pitch = 10;

    [[nodiscard]] const DashPage& page() const { return m_page; }
    [[nodiscard]] int selected() const { return m_selected; }
    [[nodiscard]] bool isDragging() const { return m_mode != 0; }

    void press(QPoint p)
    {
        if (m_selected >= 0) {
            const int handle = handleAt(p);
            if (handle != 0) {
                begin(handle, p);
                return;
            }
        }
        m_selected = hit(p);
        if (m_selected >= 0)
            begin(1, p);
    }

    void moveTo(QPoint p)
    {
        if (m_mode == 0)
            return;
        const int dx = static_cast<int>((p.x() - m_press.x()) / scale());
        const int dy = static_cast<int>((p.y() - m_press.y()) / scale());
        int x = m_start.x;
        int y = m_start.y;
        int w = m_start.w;
        int h = m_start.h;
        if (m_mode == 1) {
            x = snap(clamp(x + dx, m_page.width - w));
            y = snap(clamp(y + dy, m_page.height - h));
        }
        if (m_mode == 2 || m_mode == 5 || m_mode == 7) {
            x = snap(clamp(m_start.x + dx, m_start.x + m_start.w - 10));
            w = m_start.x + m_start.w - x;
        }
        if (m_mode == 4 || m_mode == 6 || m_mode == 9) {
            w = snap(std::max(m_start.w + dx, 10));
            if (x + w > m_page.width)
                w = m_page.width - x;
        }
        if (m_mode == 2 || m_mode == 3 || m_mode == 4) {
            y = snap(clamp(m_start.y + dy, m_start.y + m_start.h - 10));
            h = m_start.y + m_start.h - y;
        }
        if (m_mode == 7 || m_mode == 8 || m_mode == 9) {
            h = snap(std::max(m_start.h + dy, 10));
            if (y + h > m_page.height)
                h = m_page.height - y;
        }
        setGeometry(element(), {x, y, w, h});
    }

    /// The undoable step that the release makes, if any.
    std::optional<Step> release()
    {
        if (std::exchange(m_mode, 0) == 0 || geometryOf(element()) == m_start)
            return std::nullopt;
        return Step{m_selected, m_start, geometryOf(element())};
    }

    void takeBack()
    {
        if (std::exchange(m_mode, 0) != 0)
            setGeometry(element(), m_start);
    }

    void apply(std::size_t index, const ElementGeometry& geometry)
    {
        setGeometry(m_page.elements.at(index), geometry);
    }

private:
    [[nodiscard]] DashElement& element()
    {
        return m_page.elements.at(static_cast<std::size_t>(m_selected));
    }

    [[nodiscard]] double scale() const
    {
        return std::min((m_widget.width() - 20.0) / m_page.width,
                        (m_widget.height() - 20.0) / m_page.height);
    }

    [[nodiscard]] QRectF rectOf(const DashElement& e) const
    {
        const double left = (m_widget.width() - m_page.width * scale()) / 2;
        const double top = (m_widget.height() - m_page.height * scale()) / 2;
        return {left + e.x * scale(), top + e.y * scale(), e.w * scale(), e.h * scale()};
    }

    [[nodiscard]] int handleAt(QPoint p)
    {
        const QRectF r = rectOf(element());
        const double midX = r.x() + r.width() / 2;
        const double midY = r.y() + r.height() / 2;
        const std::array<QPointF, 8> points{QPointF{r.x(), r.y()}, {midX, r.y()},
                                            {r.right(), r.y()},    {r.x(), midY},
                                            {r.right(), midY},     {r.x(), r.bottom()},
                                            {midX, r.bottom()},    {r.right(), r.bottom()}};
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (QRectF(points[i].x() - 6, points[i].y() - 6, 12, 12).contains(p))
                return static_cast<int>(i) + 2;
        }
        return 0;
    }

    [[nodiscard]] int hit(QPoint p) const
    {
        for (int i = static_cast<int>(m_page.elements.size()) - 1; i >= 0; --i) {
            if (rectOf(m_page.elements[static_cast<std::size_t>(i)]).contains(p))
                return i;
        }
        return -1;
    }

    void begin(int mode, QPoint p)
    {
        m_mode = mode;
        m_press = p;
        m_start = geometryOf(element());
    }

    [[nodiscard]] static int clamp(int c, int hi) { return c > hi ? hi : std::max(c, 0); }

    [[nodiscard]] int snap(int v) const
    {
        if (!snaps || pitch < 2)
            return v;
        const int t = v + pitch / 2;
        return t - t % pitch;
    }

    DashPage m_page;
    QSize m_widget;
    int m_selected = -1;
    int m_mode = 0;
    QPoint m_press;
    ElementGeometry m_start;
};
