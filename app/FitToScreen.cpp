#include "app/FitToScreen.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

namespace {

QMargins frameOf(QWidget& window)
{
    static_cast<void>(window.winId()); // only a native window knows its frame
    const QMargins frame = window.windowHandle()->frameMargins();
    // Some platforms know it once the window is shown: assume a title bar until then.
    return frame.isNull()
               ? QMargins(0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0)
               : frame;
}

} // namespace

void fitToScreen(QWidget& window)
{
    const QRect available = window.screen()->availableGeometry();
    const QSize fitting = window.size().boundedTo(available.marginsRemoved(frameOf(window)).size());
    if (fitting == window.size())
        return;
    window.resize(fitting);
    window.move(available.topLeft());
}
