#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

/// Counts how often the event loop has a widget painted, while it lives. Grabbing the widget does
/// not count: that paints whether or not anybody asked for a repaint.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    [[nodiscard]] int count() const { return m_count; }

private:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int m_count = 0;
};
