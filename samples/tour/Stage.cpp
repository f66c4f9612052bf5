#include "samples/tour/Stage.h"

#include "app/PageListPanel.h"
#include "canvas/DashCanvas.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QPainter>
#include <QStatusBar>
#include <QTest>
#include <QTextStream>

#include <algorithm>

namespace {

void describeStyle(QTextStream& out, const QString& font, int size, const QColor& color)
{
    out << ' ' << font << ' ' << size << ' ' << color.name(QColor::HexArgb);
}

// A window manager is absent offscreen, so the frame that it would draw is drawn here.
void paintFramed(QPainter& painter, const QPoint& topLeft, const QPixmap& content,
                 const QString& title)
{
    constexpr int kTitleHeight = 26;
    constexpr QColor kFrame(0x3b, 0x42, 0x52);
    const QRect body(topLeft, content.deviceIndependentSize().toSize());
    const QRect frame = body.adjusted(-1, -kTitleHeight, 1, 1);
    for (int spread = 6; spread > 0; --spread)
        painter.fillRect(frame.adjusted(-spread, -spread, spread, spread), QColor(0, 0, 0, 20));
    painter.fillRect(frame, kFrame);
    painter.setPen(Qt::white);
    painter.drawText(QRect(frame.left(), frame.top(), frame.width(), kTitleHeight), Qt::AlignCenter,
                     title);
    painter.drawPixmap(body.topLeft(), content);
}

} // namespace

Stage::Stage(QString samplesDir, QString scratchDir)
    : m_samplesDir(std::move(samplesDir)),
      m_scratchDir(std::move(scratchDir)),
      m_dialogs([this](const QString& complaint) { check(false, complaint); })
{
    m_window.show();
    m_window.activateWindow();
    check(QTest::qWaitForWindowActive(&m_window), QStringLiteral("the window comes up"));
}

QString Stage::samplePath(const QString& fileName) const
{
    return m_samplesDir + u'/' + fileName;
}

QString Stage::scratchPath(const QString& fileName) const
{
    return m_scratchDir + u'/' + fileName;
}

void Stage::check(bool holds, const QString& expectation)
{
    if (!holds)
        m_failures << expectation;
}

DashCanvas& Stage::canvas() const
{
    return child<DashCanvas>("canvas");
}

DashElement Stage::element(const QString& name)
{
    if (const DashPage* const page = canvas().page()) {
        const auto found =
            std::find_if(page->elements.begin(), page->elements.end(),
                         [&](const DashElement& candidate) { return candidate.name == name; });
        if (found != page->elements.end())
            return *found;
    }
    check(false, QStringLiteral("the page shows an element %1").arg(name));
    return {};
}

QString Stage::statusText() const
{
    return m_window.statusBar()->currentMessage();
}

QString Stage::describe(bool withStyles) const
{
    QString text;
    QTextStream out(&text);
    for (const DashPage& page : m_window.document().pages()) {
        out << page.name << ' ' << page.width << 'x' << page.height << '\n';
        for (const DashElement& element : page.elements) {
            out << ' ' << element.name << ' ' << element.x << ' ' << element.y << ' ' << element.w
                << ' ' << element.h << ' ' << element.channelLongName << ' '
                << static_cast<int>(element.kind);
            if (withStyles) {
                describeStyle(out, element.valueFont, element.valueFontSize, element.valueColor);
                describeStyle(out, element.labelFont, element.labelFontSize, element.labelColor);
            }
            out << '\n';
        }
    }
    return text;
}

QString Stage::describeDocument() const
{
    return describe(true);
}

QString Stage::describeLayout() const
{
    return describe(false);
}

void Stage::trigger(const char* action)
{
    auto& entry = child<QAction>(action);
    check(entry.isEnabled(), QStringLiteral("%1 is enabled").arg(QLatin1String(action)));
    entry.trigger();
    check(m_dialogs.allGiven(), QStringLiteral("%1 opens its dialog").arg(QLatin1String(action)));
}

void Stage::press(QKeySequence::StandardKey shortcut)
{
    // No window manager gives the activation of a closed dialog back.
    m_window.activateWindow();
    check(QTest::qWaitForWindowActive(&m_window), QStringLiteral("the window is active again"));
    QTest::keySequence(&m_window, shortcut);
}

void Stage::clickPage(int row)
{
    auto& list = child<PageListPanel>("pageList");
    list.scrollToItem(list.item(row));
    const QRect place = list.visualItemRect(list.item(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place.center());
    check(list.currentRow() == row, QStringLiteral("page %1 can be chosen").arg(row));
}

void Stage::clickElement(const QString& name)
{
    const QPoint place = canvas().elementRect(element(name)).center().toPoint();
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, place);
}

void Stage::drag(const QPoint& from, const QPoint& to)
{
    constexpr int kMoves = 4;
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    for (int i = 1; i <= kMoves; ++i)
        QTest::mouseMove(&canvas(), from + (to - from) * i / kMoves);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, to);
}

void Stage::dragElement(const QString& name, const QPoint& destination)
{
    const DashElement dragged = element(name);
    const QPoint from = canvas().elementRect(dragged).center().toPoint();
    const QPointF distance = destination - QPoint(dragged.x, dragged.y);
    drag(from, from + (distance * canvas().fitScale()).toPoint());
}

void Stage::clickGridSnap()
{
    auto& box = child<QCheckBox>("gridSnapCheck");
    const bool before = box.isChecked();
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(box.height() / 2, box.height() / 2));
    check(box.isChecked() != before, QStringLiteral("the grid can be switched"));
}

void Stage::select(const char* comboBox, int index)
{
    auto& combo = child<QComboBox>(comboBox);
    combo.setFocus();
    QTest::keyClick(&combo, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(&combo, Qt::Key_Down);
    check(combo.currentIndex() == index,
          QStringLiteral("%1 can be set").arg(QLatin1String(comboBox)));
}

void Stage::chooseFile(const QString& path)
{
    m_dialogs.expect<QFileDialog>([path](QFileDialog& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        edit->setText(path);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

void Stage::photographWindow()
{
    m_picture = m_window.grab();
}

void Stage::photograph(QDialog& dialog)
{
    photographWindow();
    const QPixmap content = dialog.grab();
    QPainter painter(&m_picture);
    painter.setFont(QApplication::font());
    // Sizes in the painter's units, whatever the scale of the desktop.
    const QSizeF whole = m_picture.deviceIndependentSize();
    const QSizeF room = (whole - content.deviceIndependentSize()) / 2;
    painter.fillRect(QRectF({}, whole), QColor(0, 0, 0, 60));
    paintFramed(painter, QPointF(room.width(), room.height()).toPoint(), content,
                dialog.windowTitle());
}

QPixmap Stage::takePicture()
{
    QCoreApplication::processEvents();
    return m_picture.isNull() ? m_window.grab() : std::exchange(m_picture, QPixmap());
}
