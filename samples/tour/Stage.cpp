#include "samples/tour/Stage.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QTest>
#include <QTextStream>

using namespace Qt::StringLiterals;

Stage::Stage(const QString& samplesDir, const QString& scratchDir)
    : WindowDriver([this](const QString& complaint) { check(false, complaint); }),
      m_samples(samplesDir + u'/'),
      m_copy(scratchDir + "/club-racing-edited.zconf2"_L1),
      m_dialogs(m_report)
{
    activate();
}

void Stage::check(bool holds, const QString& expectation)
{
    if (!holds)
        m_failures << expectation;
}

const DashElement& Stage::element(const QString& name) const
{
    return canvas().page()->elements[static_cast<std::size_t>(indexOf(name))];
}

QString Stage::describe(bool withStyles) const
{
    QString text;
    QTextStream out(&text);
    for (const DashPage& page : m_window->document().pages()) {
        out << page.name << ' ' << page.width << 'x' << page.height << '\n';
        for (const DashElement& e : page.elements) {
            out << ' ' << e.name << ' ' << e.x << ' ' << e.y << ' ' << e.w << ' ' << e.h << ' '
                << e.channelLongName << ' ' << static_cast<int>(e.kind) << '\n';
            if (withStyles)
                out << e.valueFont << ' ' << e.valueFontSize << ' ' << e.valueColor.rgba() << ' '
                    << e.labelFont << ' ' << e.labelFontSize << ' ' << e.labelColor.rgba() << '\n';
        }
    }
    return text;
}

void Stage::command(const char* action)
{
    check(child<QAction>(action)->isEnabled(), QLatin1String(action) + " is enabled"_L1);
    trigger(action);
    check(m_dialogs.pending() == 0, QLatin1String(action) + " opens its dialog"_L1);
}

void Stage::command(const char* action, const QString& path)
{
    m_dialogs.chooseFile(path);
    command(action);
}

void Stage::dragTo(const QString& element, const QPoint& place)
{
    const DashElement& dragged = this->element(element);
    const QPointF distance = place - QPoint(dragged.x, dragged.y);
    drag(indexOf(element), (distance * canvas().fitScale()).toPoint());
}

void Stage::photograph(QDialog& dialog)
{
    constexpr int kTitleHeight = 26;
    photograph();
    const QPixmap content = dialog.grab();
    QPainter painter(&m_picture);
    painter.setFont(QApplication::font());
    const QSizeF whole = m_picture.deviceIndependentSize();
    painter.fillRect(QRectF({}, whole), QColor(0, 0, 0, 60));
    const QSizeF room = (whole - content.deviceIndependentSize()) / 2;
    const QRect body(QPointF(room.width(), room.height()).toPoint(),
                     content.deviceIndependentSize().toSize());
    // Offscreen, no window manager draws a frame.
    const QRect frame = body.adjusted(-1, -kTitleHeight, 1, 1);
    for (int spread = 6; spread > 0; --spread)
        painter.fillRect(frame.adjusted(-spread, -spread, spread, spread), QColor(0, 0, 0, 20));
    painter.fillRect(frame, QColor(0x3b, 0x42, 0x52));
    painter.setPen(Qt::white);
    painter.drawText(QRect(frame.topLeft(), QSize(frame.width(), kTitleHeight)), Qt::AlignCenter,
                     dialog.windowTitle());
    painter.drawPixmap(body.topLeft(), content);
}

QPixmap Stage::takePicture()
{
    QCoreApplication::processEvents();
    return m_picture.isNull() ? m_window->grab() : std::exchange(m_picture, QPixmap());
}
