#include "samples/tour/Tour.h"

#include "dialogs/AddElementDialog.h"
#include "paths/FixedPaths.h"
#include "review/LayoutListing.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Rows of the page list.
constexpr int kRacePage = 0;
constexpr int kWarmUpPage = 2;
constexpr int kEnginePage = 4;
constexpr int kGpsPage = 6;
constexpr int kSamplePages = 8;
constexpr int kNewPage = 8;
constexpr auto kLapTime = "value.15"_L1; // on the GPS page

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Without the channels: a document keeps those of packages opened before.
QStringList layoutOf(const DashboardDocument& document)
{
    return layoutListing(document).filter(QRegularExpression(u"^(?!channel: )"_s));
}

// Without the styles of values: what the property panel edits cannot be undone.
QStringList undoableLayoutOf(const DashboardDocument& document)
{
    return layoutOf(document).filter(QRegularExpression(u"^(?! *value: )"_s));
}

} // namespace

Tour::Tour(const QString& samplesDir, const QString& scratchDir)
    : WindowDriver([this](const QString& failure) { m_failures << failure; }),
      m_samples(samplesDir + u'/'),
      m_copy(scratchDir + "/club-racing-edited.zconf2"_L1)
{
    activate();
}

void Tour::check(bool holds, const char* expectation) const
{
    if (!holds)
        m_report(QLatin1String(expectation));
}

QPixmap Tour::takePicture()
{
    QCoreApplication::processEvents();
    return m_picture.isNull() ? m_window->grab() : std::exchange(m_picture, QPixmap());
}

void Tour::start()
{
    check(window().windowTitle() == "Gaugewright Studio"_L1, "the window has its plain title");
    check(!canvas().page(), "no page is shown");
}

void Tour::open()
{
    command("openAction", m_samples + "club-racing.zconf2"_L1);
    check(document().pageCount() == kSamplePages, "eight pages are there");
    check(status() == "Opened club-racing.zconf2 (8 pages)"_L1,
          "the status bar says what was opened");
    check(child<QLabel>("targetDeviceBadge")->isVisible(), "the badge names the device");
    m_layoutBefore = undoableLayoutOf(document());
}

void Tour::walkPages()
{
    for (int row = kSamplePages - 1; row >= kEnginePage; --row) {
        clickPage(row);
        const DashPage& page = document().pages()[static_cast<std::size_t>(row)];
        check(canvas().page() == &page, "the chosen page is shown");
    }
}

void Tour::select()
{
    clickPage(kGpsPage);
    clickElement(indexOf(kLapTime));
    check(child<QLabel>("idLabel")->text() == kLapTime, "the property panel shows the element");
    check(child<QLabel>("channelLabel")->text() == "Lap Time"_L1,
          "the property panel shows its channel");
}

void Tour::move()
{
    const DashElement before = element(kLapTime);
    dragTo(kLapTime, {33, 77});
    const DashElement& after = element(kLapTime);
    check(qAbs(after.x - 33) <= 1 && qAbs(after.y - 77) <= 1,
          "the element is where it was dragged");
    check(after.w == before.w && after.h == before.h, "its size is unchanged");
    check(child<QSpinBox>("xSpin")->value() == after.x, "the property panel follows");
}

void Tour::resizeOnGrid()
{
    clickGridSnap();
    check(child<QCheckBox>("gridSnapCheck")->isChecked(), "the grid is on");
    dragTo(kLapTime, {40, 80});
    const DashElement& resized = element(kLapTime);
    const QPoint corner = canvas().elementRect(resized).bottomRight().toPoint();
    drag(corner, corner + QPoint(57, 33));
    check(resized.x == 40 && resized.y == 80, "the element is on the grid");
    check(resized.w % 10 == 0 && resized.h % 10 == 0, "its size is a multiple of the grid");
}

void Tour::restyle()
{
    const QColor chosen(0x4c, 0xd9, 0x64);
    choose("valueFontCombo", 2);
    auto* const size = child<QSpinBox>("valueSizeSpin");
    size->selectAll();
    QTest::keyClicks(size, "44"_L1);
    QTest::keyClick(size, Qt::Key_Tab);
    m_dialogs.expect<QColorDialog>([&](QColorDialog& dialog) {
        dialog.setCurrentColor(chosen);
        dialog.accept();
    });
    QTest::mouseClick(child<QPushButton>("valueColorButton"), Qt::LeftButton);
    const DashElement& styled = element(kLapTime);
    check(styled.valueFont == "Huge Basic Sans Heavy SF"_L1, "it has the chosen font");
    check(styled.valueFontSize == 44, "it has the typed size");
    check(styled.valueColor == chosen, "it has the chosen colour");
}

void Tour::addPage()
{
    m_dialogs.expect<QInputDialog>([&](QInputDialog& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>();
        check(edit->text() == "Page 9"_L1, "a name is proposed");
        edit->selectAll();
        QTest::keyClicks(edit, "Endurance"_L1);
        photograph(dialog);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    command("newPageAction");
    check(document().pageCount() == kSamplePages + 1, "a page was added");
    check(pageList().currentRow() == kNewPage, "the new page is chosen");
}

void Tour::insertGauge()
{
    insert("Analog gauge"_L1, "oil temp"_L1);
    const DashElement& gauge = element("new.1"_L1);
    check(gauge.channelLongName == "Oil Temp"_L1, "the gauge shows the chosen channel");
    check(gauge.kind == ElementKind::Analog, "it is a gauge");
}

void Tour::fillPage()
{
    dragTo("new.1"_L1, {20, 110});
    insert("Numeric value"_L1, "gps speed"_L1);
    dragTo("new.2"_L1, {290, 110});
    insert("Bar + value"_L1, "fuel level"_L1);
    dragTo("new.3"_L1, {290, 260});
    insert("Numeric value + icon"_L1, "battery current"_L1);
    dragTo("new.4"_L1, {290, 330});
    check(canvas().page()->elements.size() == 4, "four elements were inserted");
    clickElement(indexOf("new.2"_L1));
    QCoreApplication::processEvents();
    photograph();
}

void Tour::removeElement()
{
    clickElement(indexOf("new.4"_L1));
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    check(canvas().page()->elements.size() == 3, "the element is gone");
    check(status() == "Deleted element -- 3 remaining on page"_L1,
          "the status bar says how many are left");
}

void Tour::clearPage()
{
    clickPage(kWarmUpPage);
    m_dialogs.expect<QMessageBox>([&](QMessageBox& box) {
        photograph(box);
        DialogDriver::press(box, QMessageBox::Yes);
    });
    command("clearPageAction");
    check(canvas().page()->elements.empty(), "the page is empty");
}

void Tour::undoAll()
{
    m_layoutAfter = undoableLayoutOf(document());
    activate();
    for (int left = stack().index(); left > 0; --left)
        QTest::keySequence(&window(), QKeySequence::Undo);
    check(!stack().canUndo(), "nothing is left to undo");
    check(undoableLayoutOf(document()) == m_layoutBefore, "everything is as it was at first");
}

void Tour::redoAll()
{
    activate();
    for (int left = stack().count(); left > 0; --left)
        QTest::keySequence(&window(), QKeySequence::Redo);
    check(!stack().canRedo(), "nothing is left to redo");
    check(undoableLayoutOf(document()) == m_layoutAfter, "every edit is there again");
    clickPage(kNewPage);
}

void Tour::saveAs()
{
    const QString original = m_samples + "club-racing.zconf2"_L1;
    const QByteArray before = contentOf(original);
    m_saved = layoutOf(document());
    command("saveAsAction", m_copy);
    check(QFile::exists(m_copy), "the copy exists");
    check(contentOf(original) == before, "the original is untouched");
    check(window().windowTitle() == "Gaugewright Studio - club-racing-edited.zconf2 [MXS]"_L1,
          "the title names the copy");
}

void Tour::reopen()
{
    command("openAction", m_samples + "compact.zconf2"_L1);
    check(layoutOf(document()) != m_saved, "another package is open");
    command("openAction", m_copy);
    check(layoutOf(document()) == m_saved, "the copy holds what was saved");
}

void Tour::loadRecording()
{
    command("loadTelemetryAction", m_samples + "club-session.xrk"_L1);
    check(child<QPushButton>("playButton")->isEnabled(), "the replay can be played");
    check(child<QSlider>("replaySlider")->maximum() > 0, "the replay has a length");
    clickPage(kRacePage);
    clickGridSnap();
    check(!child<QCheckBox>("gridSnapCheck")->isChecked(), "the grid is off");
}

void Tour::play(int rateIndex)
{
    constexpr int kTicks = 10;
    const int from = 228 + 6 * rateIndex;                     // seconds
    const int target = 10 * from + kTicks * (1 << rateIndex); // tenths of a second
    constexpr int kTimeout = 20000; // milliseconds; ten ticks take one second
    if (rateIndex == 0)
        clickElement(indexOf("gauge.08"_L1));
    choose("rateCombo", rateIndex);
    seek(from);
    QObject context; // ends the connection
    const auto photographLastTick = [&](int position) {
        if (position == target)
            photograph();
    };
    QObject::connect(child<QSlider>("replaySlider"), &QSlider::valueChanged, &context,
                     photographLastTick);
    const QSignalSpy ticks(child<QTimer>("replayTimer"), &QTimer::timeout);
    auto* const button = child<QPushButton>("playButton");
    QTest::mouseClick(button, Qt::LeftButton);
    check(button->text() == "Stop"_L1, "the button offers to stop");
    check(QTest::qWaitFor([&] { return ticks.count() >= kTicks; }, kTimeout), "the clock ticks");
    QTest::mouseClick(button, Qt::LeftButton);
    check(!m_picture.isNull(), "every tick moves the replay as far as the rate says");
    check(button->text() == "Play"_L1, "the button offers to play");
}

void Tour::changeUnit()
{
    QImage before = canvas().grab().toImage();
    choose("speedUnitCombo", 1);
    QImage after = canvas().grab().toImage();
    check(after != before, "the speed is shown in another unit");
    const QRectF speed = canvas().elementRect(element("value.09"_L1));
    for (QImage* const image : {&before, &after})
        QPainter(image).fillRect(speed.toAlignedRect(), Qt::black);
    check(after == before, "nothing but the speed changes");
}

void Tour::about()
{
    check(!QPixmap(FixedPaths::windowIcon()).isNull(), "the icon is next to the program");
    m_dialogs.expect<QDialog>([&](QDialog& dialog) {
        photograph(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    command("aboutAction");
}

const DashElement& Tour::element(const QString& name) const
{
    return canvas().page()->elements[static_cast<std::size_t>(indexOf(name))];
}

void Tour::command(const char* action, const QString& path)
{
    if (!path.isEmpty())
        m_dialogs.chooseFile(path);
    check(child<QAction>(action)->isEnabled(), "the action is enabled");
    trigger(action);
    check(m_dialogs.pending() == 0, "the action opens its dialog");
}

void Tour::insert(const QString& type, const QString& filter)
{
    m_dialogs.expect<AddElementDialog>([&](AddElementDialog& dialog) {
        auto* const types = dialog.findChild<QListWidget*>("typeList"_L1);
        types->setCurrentItem(types->findItems(type, Qt::MatchExactly).value(0));
        QTest::keyClicks(dialog.findChild<QLineEdit*>("filterEdit"_L1), filter);
        dialog.findChild<QListWidget*>("channelList"_L1)->setCurrentRow(0);
        photograph(dialog);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    command("insertElementAction");
}

void Tour::dragTo(const QString& name, const QPoint& place)
{
    const QPointF distance = place - QPoint(element(name).x, element(name).y);
    drag(indexOf(name), (distance * canvas().fitScale()).toPoint());
}

void Tour::photograph(QDialog& dialog)
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
    const QRect frame = body.adjusted(-1, -kTitleHeight, 1, 1);
    for (int spread = 6; spread > 0; --spread)
        painter.fillRect(frame.adjusted(-spread, -spread, spread, spread), QColor(0, 0, 0, 20));
    painter.fillRect(frame, QColor(0x3b, 0x42, 0x52));
    painter.setPen(Qt::white);
    painter.drawText(QRect(frame.topLeft(), QSize(frame.width(), kTitleHeight)), Qt::AlignCenter,
                     dialog.windowTitle());
    painter.drawPixmap(body.topLeft(), content);
}
