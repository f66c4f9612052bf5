#include "app/StartPath.h"
#include "paths/FixedPaths.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/ScriptedReader.h"

#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <QUrl>

namespace {

/// The main window; the scripted reader library stands where the editor looks for one.
class MainWindowReplay : public MainWindowFixture
{
public:
    ~MainWindowReplay() override { m_window.reset(); } // the reader must outlive the session

protected:
    MainWindowReplay()
    {
        m_reader.channels[ReaderHost::kPlain] = {{"Engine_RPM", {0.0, 12.34}, {1000.0, 9000.0}},
                                                 {"Throttle", {0.0, 1.0}, {0.0, 100.0}}};
        m_reader.channels[ReaderHost::kGps] = {{"GPS Speed", {0.0, 12340.0}, {10.0, 10.0}}};
        EXPECT_TRUE(TestPackage::writeFile(recording(), "recording"));
    }

    [[nodiscard]] QString recording() const { return path(QStringLiteral("lap.xrk")); }

    void load(const char* action = "loadTelemetryAction")
    {
        m_dialogs.chooseFile(recording());
        trigger(action);
    }

    void failToLoad(const char* action = "loadTelemetryAction")
    {
        m_reader.fileIndex = -1;
        m_dialogs.chooseFile(recording());
        m_dialogs.expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                            QStringLiteral("Failed to load XRK file:\n%1\n\nCheck DLL path: %2")
                                .arg(recording(), FixedPaths::readerLibrary()));
        trigger(action);
    }

    ScriptedReader m_reader;
};

} // namespace

TEST_F(MainWindowReplay, AsksForARecordingAndCancelChangesNothing)
{
    m_dialogs.expect<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Load XRK Telemetry Data"));
        EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("XRK Files (*.xrk)")});
        EXPECT_EQ(dialog.directory(), QDir(nearestFolder(FixedPaths::recordingFolder())));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    trigger("loadTelemetryAction");
    EXPECT_FALSE(child<QSlider>("replaySlider")->isEnabled());
    EXPECT_EQ(status(), QStringLiteral("Ready -- Open a .zconf2 file to begin"));
    EXPECT_TRUE(m_reader.log.empty());
}

TEST_F(MainWindowReplay, ALoadEnablesTheControlsAndSaysWhatItFound)
{
    load("toolbarLoadTelemetryAction");
    EXPECT_TRUE(child<QSlider>("replaySlider")->isEnabled());
    EXPECT_TRUE(child<QPushButton>("playButton")->isEnabled());
    EXPECT_TRUE(child<QComboBox>("rateCombo")->isEnabled());
    EXPECT_EQ(child<QSlider>("replaySlider")->maximum(), 123);
    EXPECT_EQ(child<QSlider>("replaySlider")->value(), 0);
    EXPECT_EQ(child<QLabel>("timeLabel")->text(), QStringLiteral("00:00.0"));
    EXPECT_EQ(status(), QStringLiteral("Loaded XRK: lap.xrk | 3 channels | Duration: 00:12"));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindowReplay, ARecordingWithoutChannelsLoadsAndStopsAtOnce)
{
    m_reader.channels = {};
    load();
    EXPECT_EQ(status(), QStringLiteral("Loaded XRK: lap.xrk | 0 channels | Duration: 00:00"));
    EXPECT_TRUE(child<QSlider>("replaySlider")->isEnabled());
    EXPECT_EQ(child<QSlider>("replaySlider")->maximum(), 0);
    auto* const play = child<QPushButton>("playButton");
    QTest::mouseClick(play, Qt::LeftButton);
    EXPECT_EQ(play->text(), QStringLiteral("Stop"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return play->text() == QStringLiteral("Play"); }, 3000));
    EXPECT_FALSE(child<QTimer>("replayTimer")->isActive());
}

TEST_F(MainWindowReplay, AFailedLoadSaysSoAndLeavesTheControls)
{
    load();
    child<QSlider>("replaySlider")->setValue(50);
    failToLoad();
    EXPECT_TRUE(child<QSlider>("replaySlider")->isEnabled());
    EXPECT_EQ(child<QSlider>("replaySlider")->value(), 50);
    EXPECT_EQ(child<QSlider>("replaySlider")->maximum(), 123);
    EXPECT_EQ(status(), QStringLiteral("Loaded XRK: lap.xrk | 3 channels | Duration: 00:12"));
}

TEST_F(MainWindowReplay, AFailedLoadSaysWhy)
{
    m_reader.fileIndex = -1;
    m_dialogs.chooseFile(recording());
    m_dialogs.expect<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.informativeText(),
                  QStringLiteral("The reader library could not open the recording"));
        ModalDriver::press(box, QMessageBox::Ok);
    });
    trigger("loadTelemetryAction");
}

TEST_F(MainWindowReplay, AFailedLoadTakesTheFormerValuesOffTheCanvas)
{
    openUsual();
    const QImage before = canvas().grab().toImage();
    load();
    ASSERT_NE(canvas().grab().toImage(), before);
    QCoreApplication::processEvents();
    const PaintCounter counter(canvas());
    failToLoad();
    EXPECT_GT(counter.count(), 0) << "nobody moves the slider of a replay that stands still";
    EXPECT_EQ(canvas().grab().toImage(), before);
}

TEST_F(MainWindowReplay, AFailedLoadLeavesARunningReplayGoingOn)
{
    m_reader.channels = {};
    m_reader.channels[ReaderHost::kPlain] = {{"Engine_RPM", {0.0, 1000.0}, {1000.0, 9000.0}}};
    load();
    const auto* const slider = child<QSlider>("replaySlider");
    auto* const play = child<QPushButton>("playButton");
    child<QSlider>("replaySlider")->setValue(5000);
    child<QComboBox>("rateCombo")->setCurrentIndex(1);
    QTest::mouseClick(play, Qt::LeftButton);

    failToLoad("toolbarLoadTelemetryAction");
    const int position = slider->value();
    EXPECT_GE(position, 5000);
    EXPECT_EQ(slider->maximum(), 10000);
    EXPECT_TRUE(slider->isEnabled());
    EXPECT_TRUE(play->isEnabled());
    EXPECT_EQ(play->text(), QStringLiteral("Stop"));
    EXPECT_TRUE(child<QTimer>("replayTimer")->isActive());
    EXPECT_TRUE(child<QComboBox>("rateCombo")->isEnabled());
    EXPECT_EQ(child<QComboBox>("rateCombo")->currentIndex(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return slider->value() >= position + 4; }, 3000));

    QTest::mouseClick(play, Qt::LeftButton);
    EXPECT_EQ(play->text(), QStringLiteral("Play"));
    EXPECT_FALSE(child<QTimer>("replayTimer")->isActive());
}

TEST_F(MainWindowReplay, TheCanvasShowsTheValueAtTheReplayTime)
{
    openUsual();
    const QImage before = canvas().grab().toImage();
    load();
    const QImage atStart = canvas().grab().toImage();
    EXPECT_NE(atStart, before);
    child<QSlider>("replaySlider")->setValue(100);
    const QImage later = canvas().grab().toImage();
    EXPECT_NE(later, atStart);
    child<QSlider>("replaySlider")->setValue(0);
    EXPECT_EQ(canvas().grab().toImage(), atStart);
}

TEST_F(MainWindowReplay, TheSpeedUnitChangesTheShownSpeedAndNotTheClock)
{
    open(writePackage(
        QStringLiteral("speed.zconf2"),
        {TestPackage::page("A", 800, 480,
                           {TestPackage::digitElement("s", 100, 100, 400, 200, "GPS Speed")})}));
    load();
    child<QSlider>("replaySlider")->setValue(30);
    const QImage kilometres = canvas().grab().toImage();
    child<QComboBox>("speedUnitCombo")->setCurrentIndex(1);
    const QImage miles = canvas().grab().toImage();
    EXPECT_NE(miles, kilometres);
    child<QComboBox>("speedUnitCombo")->setCurrentIndex(2);
    EXPECT_NE(canvas().grab().toImage(), miles);
    EXPECT_EQ(child<QSlider>("replaySlider")->value(), 30);
    child<QComboBox>("speedUnitCombo")->setCurrentIndex(0);
    EXPECT_EQ(canvas().grab().toImage(), kilometres);
}

TEST_F(MainWindowReplay, SpaceOnCanvasAndPageListPlaysAndStops)
{
    openUsual();
    const auto* const timer = child<QTimer>("replayTimer");
    for (QWidget* const pane : std::initializer_list<QWidget*>{&canvas(), &pageList()}) {
        pane->setFocus();
        press(*pane, Qt::Key_Space);
        EXPECT_FALSE(timer->isActive()) << "there is nothing to play yet";
    }
    load();
    for (QWidget* const pane : std::initializer_list<QWidget*>{&canvas(), &pageList()}) {
        pane->setFocus();
        press(*pane, Qt::Key_Space);
        EXPECT_TRUE(timer->isActive());
        QTest::simulateEvent(pane, true, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
        EXPECT_TRUE(timer->isActive()) << "a held key does not toggle";
        press(*pane, Qt::Key_Space);
        EXPECT_FALSE(timer->isActive());
    }
}

TEST_F(MainWindowReplay, SpaceIsThePageListsOwnUntilARecordingIsLoaded)
{
    class KeyCounter : public QObject
    {
    public:
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            m_count += event->type() == QEvent::KeyPress ? 1 : 0;
            return QObject::eventFilter(watched, event);
        }
        int m_count = 0;
    };
    KeyCounter counter;
    pageList().installEventFilter(&counter);
    openUsual();
    pageList().setFocus();
    press(pageList(), Qt::Key_Space);
    EXPECT_EQ(counter.m_count, 1);
    load();
    pageList().setFocus();
    press(pageList(), Qt::Key_Space);
    EXPECT_EQ(counter.m_count, 1) << "the shortcut takes it";
}

TEST_F(MainWindowReplay, SliderAndTimeNameTheRecordingWhileItIsLoaded)
{
    load();
    const QString tip = QStringLiteral("lap.xrk | 3 channels | Duration: 00:12 | "
                                       "Channels: Engine_RPM, GPS Speed, Throttle");
    for (const char* const name : {"replaySlider", "timeLabel"})
        EXPECT_TRUE(child<QWidget>(name)->toolTip().contains(tip)) << name;
    failToLoad();
    for (const char* const name : {"replaySlider", "timeLabel"})
        EXPECT_TRUE(child<QWidget>(name)->toolTip().isEmpty()) << name;
}

TEST_F(MainWindowReplay, ADroppedPackageAndRecordingAreBothTaken)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(recording()), QUrl::fromLocalFile(writeUsualPackage())});
    QDragEnterEvent enter(QPoint(500, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(m_window.get(), &enter);
    QDropEvent event(QPointF(500, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(m_window.get(), &event);
    QCoreApplication::processEvents();
    EXPECT_EQ(pages().size(), 3U);
    EXPECT_EQ(status(), QStringLiteral("Loaded XRK: lap.xrk | 3 channels | Duration: 00:12"));
}

TEST_F(MainWindowReplay, ARunningReplayGoesOnThroughALoadAndAnOpen)
{
    load();
    QTest::mouseClick(child<QPushButton>("playButton"), Qt::LeftButton);
    load();
    EXPECT_TRUE(child<QTimer>("replayTimer")->isActive());
    EXPECT_EQ(child<QPushButton>("playButton")->text(), QStringLiteral("Stop"));
    openUsual();
    const int before = child<QSlider>("replaySlider")->value();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return child<QSlider>("replaySlider")->value() > before + 1; }, 3000));
}

TEST_F(MainWindowReplay, TheWindowCanGoWhileTheReplayRuns)
{
    openUsual();
    load();
    QTest::mouseClick(child<QPushButton>("playButton"), Qt::LeftButton);
    QTest::qWait(150);
    m_window.reset();
    EXPECT_EQ(m_reader.log.back(), "unloaded");
}
