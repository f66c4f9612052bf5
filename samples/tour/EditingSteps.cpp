// Opening a package and editing it, up to undoing and redoing everything.

#include "app/PageListPanel.h"
#include "canvas/DashCanvas.h"
#include "dialogs/AddElementDialog.h"
#include "samples/tour/Stage.h"
#include "samples/tour/Steps.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QUndoStack>

namespace {

// Rows of the sample's page list.
constexpr int kWarmUpPage = 2;
constexpr int kEnginePage = 4;
constexpr int kGpsPage = 6;
constexpr int kNewPage = 8;
constexpr int kSamplePages = 8;

const QString kLapTime = QStringLiteral("value.15"); // on the GPS page
const QColor kChosenColor(0x4c, 0xd9, 0x64);

int pageCount(Stage& stage)
{
    return stage.window().document().pageCount();
}

QUndoStack& undoStack(Stage& stage)
{
    return *stage.window().findChild<QUndoStack*>();
}

void start(Stage& stage)
{
    stage.check(stage.window().windowTitle() == QStringLiteral("Gaugewright Studio"),
                QStringLiteral("the window has its plain title"));
    stage.check(!stage.canvas().page(), QStringLiteral("no page is shown"));
}

void open(Stage& stage)
{
    stage.chooseFile(stage.samplePath(QStringLiteral("club-racing.zconf2")));
    stage.trigger("openAction");
    stage.check(pageCount(stage) == kSamplePages, QStringLiteral("eight pages are there"));
    stage.check(stage.statusText() == QStringLiteral("Opened club-racing.zconf2 (8 pages)"),
                QStringLiteral("the status bar tells what was opened"));
    stage.check(stage.child<QLabel>("targetDeviceBadge").isVisible(),
                QStringLiteral("the badge names the device"));
    stage.note("before editing", stage.describeLayout());
}

void walkPages(Stage& stage)
{
    for (int row = kSamplePages - 1; row >= kEnginePage; --row) {
        stage.clickPage(row);
        const DashPage& page = stage.window().document().pages()[static_cast<std::size_t>(row)];
        stage.check(stage.canvas().page() == &page, QStringLiteral("the chosen page is shown"));
    }
}

void select(Stage& stage)
{
    stage.clickPage(kGpsPage);
    stage.clickElement(kLapTime);
    stage.check(stage.child<QLabel>("idLabel").text() == kLapTime,
                QStringLiteral("the inspector shows the element"));
    stage.check(stage.child<QLabel>("channelLabel").text() == QStringLiteral("Lap Time"),
                QStringLiteral("the inspector shows its channel"));
}

void move(Stage& stage)
{
    const DashElement before = stage.element(kLapTime);
    stage.dragElement(kLapTime, {33, 77});
    const DashElement after = stage.element(kLapTime);
    stage.check(qAbs(after.x - 33) <= 1 && qAbs(after.y - 77) <= 1,
                QStringLiteral("the element lies where it was dragged"));
    stage.check(after.w == before.w && after.h == before.h, QStringLiteral("it has kept its size"));
    stage.check(stage.child<QSpinBox>("xSpin").value() == after.x,
                QStringLiteral("the inspector follows"));
}

void resizeOnGrid(Stage& stage)
{
    stage.clickGridSnap();
    stage.dragElement(kLapTime, {40, 80});
    const QPoint corner =
        stage.canvas().elementRect(stage.element(kLapTime)).bottomRight().toPoint();
    stage.drag(corner, corner + QPoint(57, 33));
    const DashElement after = stage.element(kLapTime);
    stage.check(after.x == 40 && after.y == 80, QStringLiteral("the element lies on the grid"));
    stage.check(after.w % 10 == 0 && after.h % 10 == 0,
                QStringLiteral("its size is a multiple of the grid"));
}

void restyle(Stage& stage)
{
    stage.select("valueFontCombo", 2);
    auto& size = stage.child<QSpinBox>("valueSizeSpin");
    size.selectAll();
    QTest::keyClicks(&size, QStringLiteral("44"));
    QTest::keyClick(&size, Qt::Key_Tab);
    stage.dialogs().expect<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(kChosenColor);
        dialog.accept();
    });
    QTest::mouseClick(&stage.child<QPushButton>("valueColorButton"), Qt::LeftButton);
    const DashElement styled = stage.element(kLapTime);
    stage.check(styled.valueFont == QStringLiteral("Huge Basic Sans Heavy SF"),
                QStringLiteral("the element has the chosen font"));
    stage.check(styled.valueFontSize == 44, QStringLiteral("the element has the typed size"));
    stage.check(styled.valueColor == kChosenColor,
                QStringLiteral("the element has the chosen colour"));
}

void addPage(Stage& stage)
{
    stage.dialogs().expect<QInputDialog>([&stage](QInputDialog& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>();
        stage.check(edit->text() == QStringLiteral("Page 9"), QStringLiteral("a name is proposed"));
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("Endurance"));
        stage.photograph(dialog);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    stage.trigger("newPageAction");
    stage.check(pageCount(stage) == kSamplePages + 1, QStringLiteral("a page was added"));
    stage.check(stage.child<PageListPanel>("pageList").currentRow() == kNewPage,
                QStringLiteral("the new page is chosen"));
}

// Chooses a kind and a channel in the insert dialog, the channel by a filter that leaves one.
void chooseElement(AddElementDialog& dialog, const QString& type, const QString& filter)
{
    auto* const types = dialog.findChild<QListWidget*>(QStringLiteral("typeList"));
    for (QListWidgetItem* const item : types->findItems(type, Qt::MatchExactly))
        types->setCurrentItem(item);
    QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("filterEdit")), filter);
    dialog.findChild<QListWidget*>(QStringLiteral("channelList"))->setCurrentRow(0);
}

void insert(Stage& stage, const QString& type, const QString& filter, bool photographed)
{
    stage.dialogs().expect<AddElementDialog>([=, &stage](AddElementDialog& dialog) {
        chooseElement(dialog, type, filter);
        if (photographed)
            stage.photograph(dialog);
        auto* const buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    stage.trigger("insertElementAction");
}

void insertGauge(Stage& stage)
{
    insert(stage, QStringLiteral("Analog gauge"), QStringLiteral("oil temp"), true);
    const DashElement gauge = stage.element(QStringLiteral("new.1"));
    stage.check(gauge.channelLongName == QStringLiteral("Oil Temp"),
                QStringLiteral("the gauge shows the chosen channel"));
    stage.check(gauge.kind == ElementKind::Analog, QStringLiteral("it is a gauge"));
}

void fillPage(Stage& stage)
{
    stage.dragElement(QStringLiteral("new.1"), {20, 110});
    insert(stage, QStringLiteral("Numeric value"), QStringLiteral("gps speed"), false);
    stage.dragElement(QStringLiteral("new.2"), {290, 110});
    insert(stage, QStringLiteral("Bar + value"), QStringLiteral("fuel level"), false);
    stage.dragElement(QStringLiteral("new.3"), {290, 260});
    insert(stage, QStringLiteral("Numeric value + icon"), QStringLiteral("battery current"), false);
    stage.dragElement(QStringLiteral("new.4"), {290, 330});
    stage.check(stage.canvas().page()->elements.size() == 4,
                QStringLiteral("four elements were inserted"));
    stage.clickElement(QStringLiteral("new.2"));
}

void removeElement(Stage& stage)
{
    stage.clickElement(QStringLiteral("new.4"));
    QTest::keyClick(&stage.canvas(), Qt::Key_Delete);
    stage.check(stage.canvas().page()->elements.size() == 3, QStringLiteral("the element is gone"));
    stage.check(stage.statusText() == QStringLiteral("Deleted element -- 3 remaining on page"),
                QStringLiteral("the status bar tells how many are left"));
}

void clearPage(Stage& stage)
{
    stage.clickPage(kWarmUpPage);
    stage.dialogs().expect<QMessageBox>([&stage](QMessageBox& box) {
        stage.photograph(box);
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    stage.trigger("clearPageAction");
    stage.check(stage.canvas().page()->elements.empty(), QStringLiteral("the page is empty"));
}

void undoAll(Stage& stage)
{
    stage.note("after editing", stage.describeLayout());
    for (int steps = undoStack(stage).index(); steps > 0; --steps)
        stage.press(QKeySequence::Undo);
    stage.check(!undoStack(stage).canUndo(), QStringLiteral("nothing is left to undo"));
    stage.check(stage.describeLayout() == stage.noted("before editing"),
                QStringLiteral("everything lies where it lay at first"));
}

void redoAll(Stage& stage)
{
    for (int steps = undoStack(stage).count(); steps > 0; --steps)
        stage.press(QKeySequence::Redo);
    stage.check(!undoStack(stage).canRedo(), QStringLiteral("nothing is left to redo"));
    stage.check(stage.describeLayout() == stage.noted("after editing"),
                QStringLiteral("every edit is there again"));
    stage.clickPage(kNewPage);
}

} // namespace

std::vector<Step> editingSteps()
{
    return {
        {"start", start},
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
    };
}
