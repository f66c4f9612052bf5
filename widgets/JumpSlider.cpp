#include "widgets/JumpSlider.h"

#include <QMouseEvent>
#include <QStyleOptionSlider>

JumpSlider::JumpSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {}

void JumpSlider::mousePressEvent(QMouseEvent* event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto rectOf = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
    };
    const QPoint point = event->position().toPoint();
    const QRect handle = rectOf(QStyle::SC_SliderHandle);
    if (event->button() == Qt::LeftButton && !handle.contains(point)) {
        const QRect groove = rectOf(QStyle::SC_SliderGroove);
        const int fromStart = point.x() - groove.x() - handle.width() / 2;
        setValue(QStyle::sliderValueFromPosition(
            minimum(), maximum(), fromStart, groove.width() - handle.width(), option.upsideDown));
    }
    QSlider::mousePressEvent(event); // finds the handle below the pointer, and starts a drag
}
