#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>

#include <functional>
#include <utility>

/// A widget painted by the test itself, so that a picture can be compared with one made in the same
/// way but by other code.
class ReferenceWidget : public QWidget
{
public:
    explicit ReferenceWidget(std::function<void(QPainter&)> paint) : m_paint(std::move(paint)) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_paint(painter);
    }

private:
    std::function<void(QPainter&)> m_paint;
};

/// What the widget shows, in a format whose pixels compare exactly.
[[nodiscard]] inline QImage pictureOf(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}
