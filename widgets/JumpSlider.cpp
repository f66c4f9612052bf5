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
    if (event->button() != Qt::LeftButton) {
        QSlider::mousePressEvent(event);
        return;
    }
    const int x = event->position().toPoint().x();
    const QRect handle = rectOf(QStyle::SC_SliderHandle);
    if (x < handle.left() || x > handle.right()) {
        const QRect groove = rectOf(QStyle::SC_SliderGroove);
        const int toCenter = handle.center().x() - handle.left();
        setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), x - groove.x() - toCenter,
                                                 groove.width() - handle.width(),
                                                 option.upsideDown));
    }
    // At the height of the handle, which is lower than the slider: it finds the press, and starts a
    // drag.
    QMouseEvent onHandle(event->type(), QPointF(event->position().x(), handle.center().y()),
                         event->scenePosition(), event->globalPosition(), event->button(),
                         event->buttons(), event->modifiers(), event->pointingDevice());
    QSlider::mousePressEvent(&onHandle);
    event->setAccepted(onHandle.isAccepted());
}
