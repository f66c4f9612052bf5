#include "dialogs/AddElementDialog.h"
#include "paths/FixedPaths.h"
#include "samples/tour/Stage.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Rows of the page list.
constexpr int kRacePage = 0;
constexpr int kWarmUpPage = 2;
constexpr int kEnginePage = 4;
constexpr int kGpsPage = 6;
constexpr int kSamplePages = 8;
constexpr int kNewPage = 8;

const QString kLapTime = QStringLiteral("value.15"); // on the GPS page

void start(Stage& stage)
{
    stage.check(stage.window().windowTitle() == "Gaugewright Studio"_L1,
                "the window has its plain title");
    stage.check(!stage.canvas().page(), "no page is shown");
}

void open(Stage& stage)
{
    stage.command("openAction", stage.m_samples + "club-racing.zconf2"_L1);
    stage.check(stage.window().document().pageCount() == kSamplePages, "eight pages are there");
    stage.check(stage.status() == "Opened club-racing.zconf2 (8 pages)"_L1,
                "the status bar says what was opened");
    stage.check(stage.child<QLabel>("targetDeviceBadge")->isVisible(),
                "the badge names the device");
    stage.m_layoutBefore = stage.describe(false);
}

void walkPages(Stage& stage)
{
    for (int row = kSamplePages - 1; row >= kEnginePage; --row) {
        stage.clickPage(row);
        const DashPage& page = stage.window().document().pages()[static_cast<std::size_t>(row)];
        stage.check(stage.canvas().page() == &page, "the chosen page is shown");
    }
}

void select(Stage& stage)
{
    stage.clickPage(kGpsPage);
    stage.clickElement(stage.indexOf(kLapTime));
    stage.check(stage.child<QLabel>("idLabel")->text() == kLapTime,
                "the property panel shows the element");
    stage.check(stage.child<QLabel>("channelLabel")->text() == "Lap Time"_L1,
                "the property panel shows its channel");
}

void move(Stage& stage)
{
    const DashElement before = stage.element(kLapTime);
    stage.dragTo(kLapTime, {33, 77});
    const DashElement& after = stage.element(kLapTime);
    stage.check(qAbs(after.x - 33) <= 1 && qAbs(after.y - 77) <= 1,
                "the element is where it was dragged");
    stage.check(after.w == before.w && after.h == before.h, "its size is unchanged");
    stage.check(stage.child<QSpinBox>("xSpin")->value() == after.x, "the property panel follows");
}

void resizeOnGrid(Stage& stage)
{
    stage.clickGridSnap();
    stage.check(stage.child<QCheckBox>("gridSnapCheck")->isChecked(), "the grid is on");
    stage.dragTo(kLapTime, {40, 80});
    const DashElement& element = stage.element(kLapTime);
    const QPoint corner = stage.canvas().elementRect(element).bottomRight().toPoint();
    stage.drag(corner, corner + QPoint(57, 33));
    stage.check(element.x == 40 && element.y == 80, "the element is on the grid");
    stage.check(element.w % 10 == 0 && element.h % 10 == 0, "its size is a multiple of the grid");
}

void restyle(Stage& stage)
{
    const QColor chosen(0x4c, 0xd9, 0x64);
    stage.choose("valueFontCombo", 2);
    auto* const size = stage.child<QSpinBox>("valueSizeSpin");
    size->selectAll();
    QTest::keyClicks(size, "44"_L1);
    QTest::keyClick(size, Qt::Key_Tab);
    stage.dialogs().expect<QColorDialog>([&](QColorDialog& dialog) {
        dialog.setCurrentColor(chosen);
        dialog.accept();
    });
    QTest::mouseClick(stage.child<QPushButton>("valueColorButton"), Qt::LeftButton);
    const DashElement& styled = stage.element(kLapTime);
    stage.check(styled.valueFont == "Huge Basic Sans Heavy SF"_L1, "it has the chosen font");
    stage.check(styled.valueFontSize == 44, "it has the typed size");
    stage.check(styled.valueColor == chosen, "it has the chosen colour");
}

void addPage(Stage& stage)
{
    stage.dialogs().expect<QInputDialog>([&](QInputDialog& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>();
        stage.check(edit->text() == "Page 9"_L1, "a name is proposed");
        edit->selectAll();
        QTest::keyClicks(edit, "Endurance"_L1);
        stage.photograph(dialog);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    stage.command("newPageAction");
    stage.check(stage.window().document().pageCount() == kSamplePages + 1, "a page was added");
    stage.check(stage.pageList().currentRow() == kNewPage, "the new page is chosen");
}

// The filter must leave one channel or have it first.
void insert(Stage& stage, const QString& type, const QString& filter, bool photographed = false)
{
    stage.dialogs().expect<AddElementDialog>([&](AddElementDialog& dialog) {
        auto* const types = dialog.findChild<QListWidget*>("typeList"_L1);
        types->setCurrentItem(types->findItems(type, Qt::MatchExactly).value(0));
        QTest::keyClicks(dialog.findChild<QLineEdit*>("filterEdit"_L1), filter);
        dialog.findChild<QListWidget*>("channelList"_L1)->setCurrentRow(0);
        if (photographed)
            stage.photograph(dialog);
        auto* const buttons = dialog.findChild<QDialogButtonBox*>("buttonBox"_L1);
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    stage.command("insertElementAction");
}

void insertGauge(Stage& stage)
{
    insert(stage, "Analog gauge"_L1, "oil temp"_L1, true);
    const DashElement& gauge = stage.element("new.1"_L1);
    stage.check(gauge.channelLongName == "Oil Temp"_L1, "the gauge shows the chosen channel");
    stage.check(gauge.kind == ElementKind::Analog, "it is a gauge");
}

void fillPage(Stage& stage)
{
    stage.dragTo("new.1"_L1, {20, 110});
    insert(stage, "Numeric value"_L1, "gps speed"_L1);
    stage.dragTo("new.2"_L1, {290, 110});
    insert(stage, "Bar + value"_L1, "fuel level"_L1);
    stage.dragTo("new.3"_L1, {290, 260});
    insert(stage, "Numeric value + icon"_L1, "battery current"_L1);
    stage.dragTo("new.4"_L1, {290, 330});
    stage.check(stage.canvas().page()->elements.size() == 4, "four elements were inserted");
    stage.clickElement(stage.indexOf("new.2"_L1));
}

void removeElement(Stage& stage)
{
    stage.clickElement(stage.indexOf("new.4"_L1));
    QTest::keyClick(&stage.canvas(), Qt::Key_Delete);
    stage.check(stage.canvas().page()->elements.size() == 3, "the element is gone");
    stage.check(stage.status() == "Deleted element -- 3 remaining on page"_L1,
                "the status bar says how many are left");
}

void clearPage(Stage& stage)
{
    stage.clickPage(kWarmUpPage);
    stage.dialogs().expect<QMessageBox>([&](QMessageBox& box) {
        stage.photograph(box);
        DialogDriver::press(box, QMessageBox::Yes);
    });
    stage.command("clearPageAction");
    stage.check(stage.canvas().page()->elements.empty(), "the page is empty");
}

void pressTimes(Stage& stage, QKeySequence::StandardKey shortcut, int times)
{
    stage.activate();
    for (int i = 0; i < times; ++i)
        QTest::keySequence(&stage.window(), shortcut);
}

void undoAll(Stage& stage)
{
    stage.m_layoutAfter = stage.describe(false);
    pressTimes(stage, QKeySequence::Undo, stage.stack().index());
    stage.check(!stage.stack().canUndo(), "nothing is left to undo");
    stage.check(stage.describe(false) == stage.m_layoutBefore, "everything is as it was at first");
}

void redoAll(Stage& stage)
{
    pressTimes(stage, QKeySequence::Redo, stage.stack().count());
    stage.check(!stage.stack().canRedo(), "nothing is left to redo");
    stage.check(stage.describe(false) == stage.m_layoutAfter, "every edit is there again");
    stage.clickPage(kNewPage);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void saveAs(Stage& stage)
{
    const QString original = stage.m_samples + "club-racing.zconf2"_L1;
    const QByteArray before = contentOf(original);
    stage.m_saved = stage.describe(true);
    stage.command("saveAsAction", stage.m_copy);
    stage.check(QFile::exists(stage.m_copy), "the copy exists");
    stage.check(contentOf(original) == before, "the original is untouched");
    stage.check(stage.window().windowTitle() ==
                    "Gaugewright Studio - club-racing-edited.zconf2 [MXS]"_L1,
                "the title names the copy");
}

void reopen(Stage& stage)
{
    stage.command("openAction", stage.m_samples + "compact.zconf2"_L1);
    stage.check(stage.describe(true) != stage.m_saved, "another package is open");
    stage.command("openAction", stage.m_copy);
    stage.check(stage.describe(true) == stage.m_saved, "the copy holds what was saved");
}

void loadRecording(Stage& stage)
{
    stage.command("loadTelemetryAction", stage.m_samples + "club-session.xrk"_L1);
    stage.check(stage.child<QPushButton>("playButton")->isEnabled(), "the replay can be played");
    stage.check(stage.child<QSlider>("replaySlider")->maximum() > 0, "the replay has a length");
    stage.clickPage(kRacePage);
    stage.clickGridSnap();
    stage.check(!stage.child<QCheckBox>("gridSnapCheck")->isChecked(), "the grid is off");
}

// Plays at 1x, 2x or 4x for ten ticks, photographs the last one while it is shown, and stops.
template <int rateIndex>
void play(Stage& stage)
{
    constexpr int kTicks = 10;
    constexpr int kFromSecond = 228 + 6 * rateIndex;
    constexpr int kTarget = 10 * kFromSecond + kTicks * (1 << rateIndex); // tenths of a second
    constexpr int kTimeout = 20000; // milliseconds; ten ticks take one second
    if (rateIndex == 0)
        stage.clickElement(stage.indexOf("gauge.08"_L1));
    stage.choose("rateCombo", rateIndex);
    stage.seek(kFromSecond);
    bool arrived = false;
    QObject context; // ends the connection
    QObject::connect(stage.child<QSlider>("replaySlider"), &QSlider::valueChanged, &context,
                     [&](int position) {
                         if (position == kTarget) {
                             arrived = true;
                             stage.photograph();
                         }
                     });
    const QSignalSpy ticks(stage.child<QTimer>("replayTimer"), &QTimer::timeout);
    auto* const button = stage.child<QPushButton>("playButton");
    QTest::mouseClick(button, Qt::LeftButton);
    stage.check(button->text() == "Stop"_L1, "the button offers to stop");
    stage.check(QTest::qWaitFor([&] { return ticks.count() >= kTicks; }, kTimeout),
                "the clock ticks");
    QTest::mouseClick(button, Qt::LeftButton);
    stage.check(arrived, "every tick moves the replay as far as the rate says");
    stage.check(button->text() == "Play"_L1, "the button offers to play");
}

void changeUnit(Stage& stage)
{
    const QImage before = stage.canvas().grab().toImage();
    stage.choose("speedUnitCombo", 1);
    const QImage after = stage.canvas().grab().toImage();
    QRect changed;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y))
                changed |= QRect(x, y, 1, 1);
        }
    }
    const QRectF place = stage.canvas().elementRect(stage.element("value.09"_L1));
    const double pixels = before.devicePixelRatio();
    const QRectF speed(place.topLeft() * pixels, place.size() * pixels);
    stage.check(!changed.isEmpty(), "the speed is shown in another unit");
    stage.check(speed.toAlignedRect().contains(changed), "nothing but the speed changes");
}

void about(Stage& stage)
{
    stage.check(!QPixmap(FixedPaths::windowIcon()).isNull(), "the icon is beside the program");
    stage.dialogs().expect<QDialog>([&](QDialog& dialog) {
        stage.photograph(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    stage.command("aboutAction");
}

} // namespace

std::vector<Step> tourSteps()
{
    return {{"start", start},
            {"opened", open},
            {"pages", walkPages},
            {"selected", select},
            {"moved", move},
            {"resized-on-grid", resizeOnGrid},
            {"restyled", restyle},
            {"new-page", addPage},
            {"insert-element", insertGauge},
            {"page-filled", fillPage},
            {"element-deleted", removeElement},
            {"clear-page", clearPage},
            {"all-undone", undoAll},
            {"all-redone", redoAll},
            {"saved-as", saveAs},
            {"reopened", reopen},
            {"recording-loaded", loadRecording},
            {"playing-1x", play<0>},
            {"playing-2x", play<1>},
            {"playing-4x", play<2>},
            {"speed-in-mph", changeUnit},
            {"about", about}};
}
