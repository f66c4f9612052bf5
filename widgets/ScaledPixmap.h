#pragma once

#include <QPixmap>
#include <QWidget>

/// The picture scaled to fit `size`, aspect ratio kept, with every pixel of the screen on which
/// `widget` is shown. `size` is in device-independent pixels.
[[nodiscard]] inline QPixmap scaledToFit(const QPixmap& picture, const QSize& size,
                                         const QWidget& widget)
{
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap scaled = picture.scaled(size * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    return scaled;
}
