#include "samples/tour/Tour.h"

#include "dialogs/AddElementDialog.h"
#include "driver/WindowDriver.h"
#include "paths/FixedPaths.h"
#include "review/LayoutListing.h"

#include <QAction>
#include <QCheckBox>
#include <QColorDialog>
#include <QDateTime>
#include <QFileInfo>
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
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Rows of the page list.
constexpr int kRacePage = 0;
constexpr int kWarmUpPage = 2;
constexpr int kEnginePage = 4;
constexpr int kGpsPage = 6;
constexpr int kSamplePages = 8;          // and the row of the page that is added
constexpr auto kLapTime = "value.15"_L1; // on the GPS page

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

// The test functions are the steps, in order; each builds on those before it and gives its picture
// its name: resizedOnGrid takes 06-resized-on-grid.png.
class Tour : public QObject, private WindowDriver
{
    Q_OBJECT

public:
    Tour(const QString& samples, const QString& pictures)
        : WindowDriver([](const QString& failure) { QFAIL(qPrintable(failure)); }),
          m_samples(samples + u'/'),
          m_pictures(pictures + u'/')
    {
        // Documents leave their unpack folders behind; those of the tour go with this folder.
        qputenv("TMPDIR", m_scratch.path().toLocal8Bit());
    }

private Q_SLOTS:
    void init() // before each step
    {
        if (m_failed)
            QSKIP("an earlier step has failed");
        m_picture = {};
    }

    void cleanup() // after each step
    {
        if (m_failed)
            return;
        m_failed = QTest::currentTestFailed();
        QCoreApplication::processEvents();
        if (m_picture.isNull())
            photograph();
        QString name = QString::asprintf("%02d-%s.png", ++m_steps, QTest::currentTestFunction());
        name.replace(QRegularExpression(u"([A-Z]|\\dx)"_s), u"-\\1"_s);
        const QString path = m_pictures + name.toLower();
        // Quality 0 makes the smallest file; PNG loses nothing.
        QVERIFY2(m_picture.save(path, "PNG", 0), qPrintable(path));
    }

    void start()
    {
        activate();
        QCOMPARE(window().windowTitle(), "Gaugewright Studio"_L1);
        QVERIFY(!canvas().page());
    }

    void opened()
    {
        command("openAction", m_samples + "club-racing.zconf2"_L1);
        QCOMPARE(document().pageCount(), kSamplePages);
        QCOMPARE(status(), "Opened club-racing.zconf2 (8 pages)"_L1);
        QVERIFY(child<QLabel>("targetDeviceBadge")->isVisible());
        m_layoutBefore = undoableLayoutOf(document());
    }

    void pages()
    {
        for (int row = kSamplePages - 1; row >= kEnginePage; --row) {
            clickPage(row);
            QCOMPARE(canvas().page(), &document().pages()[static_cast<std::size_t>(row)]);
        }
    }

    void selected()
    {
        clickPage(kGpsPage);
        clickElement(indexOf(kLapTime));
        QCOMPARE(child<QLabel>("idLabel")->text(), kLapTime);
        QCOMPARE(child<QLabel>("channelLabel")->text(), "Lap Time"_L1);
    }

    void moved()
    {
        const DashElement before = element(kLapTime);
        dragTo(kLapTime, {33, 77});
        const DashElement& after = element(kLapTime);
        QVERIFY(qAbs(after.x - 33) <= 1 && qAbs(after.y - 77) <= 1);
        QCOMPARE(QSize(after.w, after.h), QSize(before.w, before.h));
        QCOMPARE(child<QSpinBox>("xSpin")->value(), after.x);
    }

    void resizedOnGrid()
    {
        clickGridSnap();
        QVERIFY(child<QCheckBox>("gridSnapCheck")->isChecked());
        dragTo(kLapTime, {40, 80});
        const DashElement& resized = element(kLapTime);
        const QPoint corner = canvas().elementRect(resized).bottomRight().toPoint();
        drag(corner, corner + QPoint(57, 33));
        QCOMPARE(QPoint(resized.x, resized.y), QPoint(40, 80));
        QVERIFY(resized.w % 10 == 0 && resized.h % 10 == 0);
    }

    void restyled()
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
        QCOMPARE(element(kLapTime).valueFont, "Huge Basic Sans Heavy SF"_L1);
        QCOMPARE(element(kLapTime).valueFontSize, 44);
        QCOMPARE(element(kLapTime).valueColor, chosen);
    }

    void newPage()
    {
        m_dialogs.expect<QInputDialog>([&](QInputDialog& dialog) {
            auto* const edit = dialog.findChild<QLineEdit*>();
            QCOMPARE(edit->text(), "Page 9"_L1);
            edit->selectAll();
            QTest::keyClicks(edit, "Endurance"_L1);
            photograph(dialog);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        command("newPageAction");
        QCOMPARE(document().pageCount(), kSamplePages + 1);
        QCOMPARE(pageList().currentRow(), kSamplePages);
    }

    void insertElement()
    {
        insert("Analog gauge"_L1, "oil temp"_L1);
        QCOMPARE(element("new.1"_L1).channelLongName, "Oil Temp"_L1);
        QCOMPARE(element("new.1"_L1).kind, ElementKind::Analog);
    }

    void pageFilled()
    {
        dragTo("new.1"_L1, {20, 110});
        insert("Numeric value"_L1, "gps speed"_L1);
        dragTo("new.2"_L1, {290, 110});
        insert("Bar + value"_L1, "fuel level"_L1);
        dragTo("new.3"_L1, {290, 260});
        insert("Numeric value + icon"_L1, "battery current"_L1);
        dragTo("new.4"_L1, {290, 330});
        QCOMPARE(canvas().page()->elements.size(), 4U);
        clickElement(indexOf("new.2"_L1));
        m_picture = {}; // of the page, not of a dialog
    }

    void elementDeleted()
    {
        clickElement(indexOf("new.4"_L1));
        QTest::keyClick(&canvas(), Qt::Key_Delete);
        QCOMPARE(canvas().page()->elements.size(), 3U);
        QCOMPARE(status(), "Deleted element -- 3 remaining on page"_L1);
    }

    void clearPage()
    {
        clickPage(kWarmUpPage);
        m_dialogs.expect<QMessageBox>([&](QMessageBox& box) {
            photograph(box);
            DialogDriver::press(box, QMessageBox::Yes);
        });
        command("clearPageAction");
        QVERIFY(canvas().page()->elements.empty());
    }

    void allUndone()
    {
        m_layoutAfter = undoableLayoutOf(document());
        activate();
        for (int left = stack().index(); left > 0; --left)
            QTest::keySequence(&window(), QKeySequence::Undo);
        QVERIFY(!stack().canUndo());
        QCOMPARE(undoableLayoutOf(document()), m_layoutBefore);
    }

    void allRedone()
    {
        activate();
        for (int left = stack().count(); left > 0; --left)
            QTest::keySequence(&window(), QKeySequence::Redo);
        QVERIFY(!stack().canRedo());
        QCOMPARE(undoableLayoutOf(document()), m_layoutAfter);
        clickPage(kSamplePages);
    }

    void savedAs()
    {
        const QString original = m_samples + "club-racing.zconf2"_L1;
        const QDateTime written = QFileInfo(original).lastModified();
        m_saved = layoutOf(document());
        command("saveAsAction", m_copy);
        QVERIFY(QFileInfo::exists(m_copy));
        QCOMPARE(QFileInfo(original).lastModified(), written);
        QCOMPARE(window().windowTitle(), "Gaugewright Studio - club-racing-edited.zconf2 [MXS]"_L1);
    }

    void reopened()
    {
        command("openAction", m_samples + "compact.zconf2"_L1);
        QVERIFY(layoutOf(document()) != m_saved);
        command("openAction", m_copy);
        QCOMPARE(layoutOf(document()), m_saved);
    }

    void recordingLoaded()
    {
        command("loadTelemetryAction", m_samples + "club-session.xrk"_L1);
        QVERIFY(child<QPushButton>("playButton")->isEnabled());
        QVERIFY(child<QSlider>("replaySlider")->maximum() > 0);
        clickPage(kRacePage);
        clickGridSnap();
        QVERIFY(!child<QCheckBox>("gridSnapCheck")->isChecked());
    }

    void playing1x() { play(0); }
    void playing2x() { play(1); }
    void playing4x() { play(2); }

    void speedInMph()
    {
        QImage before = canvas().grab().toImage();
        choose("speedUnitCombo", 1);
        QImage after = canvas().grab().toImage();
        QVERIFY(after != before);
        const QRectF speed = canvas().elementRect(element("value.09"_L1));
        for (QImage* const image : {&before, &after})
            QPainter(image).fillRect(speed.toAlignedRect(), Qt::black);
        QVERIFY(after == before);
    }

    void about()
    {
        QVERIFY(!QPixmap(FixedPaths::windowIcon()).isNull());
        m_dialogs.expect<QDialog>([&](QDialog& dialog) {
            photograph(dialog);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        command("aboutAction");
    }

private:
    [[nodiscard]] const DashboardDocument& document() const { return window().document(); }
    [[nodiscard]] const DashElement& element(const QString& name) const
    {
        return canvas().page()->elements[static_cast<std::size_t>(indexOf(name))];
    }

    // Triggers an action that must open every dialog that is expected. path is for a file dialog.
    void command(const char* action, const QString& path = {})
    {
        if (!path.isEmpty())
            m_dialogs.chooseFile(path);
        QVERIFY2(child<QAction>(action)->isEnabled(), action);
        trigger(action);
        QVERIFY2(m_dialogs.pending() == 0, action);
    }

    // The filter must leave one channel or have it first.
    void insert(const QString& type, const QString& filter)
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

    // Drags an element to a place on the page, in display pixels.
    void dragTo(const QString& name, const QPoint& place)
    {
        const QPointF distance = place - QPoint(element(name).x, element(name).y);
        drag(indexOf(name), (distance * canvas().fitScale()).toPoint());
    }

    // Plays at 1x, 2x or 4x for ten ticks, photographs the last one while it is shown, and stops.
    void play(int rateIndex)
    {
        constexpr int kTicks = 10;
        constexpr int kTimeout = 20000;                           // ms; ten ticks take one second
        const int from = 228 + 6 * rateIndex;                     // seconds
        const int target = 10 * from + kTicks * (1 << rateIndex); // tenths of a second
        clickElement(indexOf("gauge.08"_L1));
        choose("rateCombo", rateIndex);
        seek(from);
        const QObject context; // ends the connection
        connect(child<QSlider>("replaySlider"), &QSlider::valueChanged, &context,
                [&](int position) {
                    if (position == target)
                        photograph();
                });
        const QSignalSpy ticks(child<QTimer>("replayTimer"), &QTimer::timeout);
        auto* const button = child<QPushButton>("playButton");
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(button->text(), "Stop"_L1);
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count() >= kTicks, kTimeout);
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!m_picture.isNull());
        QCOMPARE(button->text(), "Play"_L1);
    }

    // Takes the picture of this step now, not at its end.
    void photograph() { m_picture = m_window->grab(); }

    // The same with a dialog in front. Offscreen, no window manager draws a frame.
    void photograph(QDialog& dialog)
    {
        constexpr int kTitleHeight = 26;
        QRect body = dialog.rect();
        body.moveCenter(window().rect().center());
        const QRect frame = body.adjusted(-1, -kTitleHeight, 1, 1);
        photograph();
        QPainter painter(&m_picture);
        painter.fillRect(window().rect(), QColor(0, 0, 0, 60));
        for (int spread = 6; spread > 0; --spread)
            painter.fillRect(frame.adjusted(-spread, -spread, spread, spread), QColor(0, 0, 0, 20));
        painter.fillRect(frame, QColor(0x3b, 0x42, 0x52));
        painter.setPen(Qt::white);
        painter.drawText(QRect(frame.topLeft(), QSize(frame.width(), kTitleHeight)),
                         Qt::AlignCenter, dialog.windowTitle());
        painter.drawPixmap(body.topLeft(), dialog.grab());
    }

    DialogDriver m_dialogs{m_report};
    const QString m_samples, m_pictures; // folders, with a slash
    const QTemporaryDir m_scratch;
    const QString m_copy = m_scratch.filePath(u"club-racing-edited.zconf2"_s);
    QStringList m_layoutBefore, m_layoutAfter, m_saved;
    QPixmap m_picture; // null until the step takes one
    int m_steps = 0;
    bool m_failed = false;
};

int takeTour(const QString& samples, const QString& pictures)
{
    Tour tour(samples, pictures);
    return QTest::qExec(&tour);
}

#include "Tour.moc"
