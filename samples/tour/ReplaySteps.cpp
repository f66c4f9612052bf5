// Loading the recording, playing it at every rate and changing the unit of speeds.

#include "canvas/DashCanvas.h"
#include "document/FixedPaths.h"
#include "samples/tour/Stage.h"
#include "samples/tour/Steps.h"

#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QPixmap>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QTimer>

namespace {

constexpr int kRacePage = 0;
constexpr int kTicksToPlay = 10;
constexpr int kPatience = 20000; // milliseconds; ten ticks take one second

void load(Stage& stage)
{
    stage.chooseFile(stage.samplePath(QStringLiteral("club-session.xrk")));
    stage.trigger("loadTelemetryAction");
    stage.check(stage.child<QPushButton>("playButton").isEnabled(),
                QStringLiteral("the replay can be played"));
    stage.check(stage.child<QSlider>("replaySlider").maximum() > 0,
                QStringLiteral("the replay has a length"));
    stage.clickPage(kRacePage);
    stage.clickGridSnap();
}

// Puts the slider to a whole number of seconds.
void seek(Stage& stage, int seconds)
{
    auto& slider = stage.child<QSlider>("replaySlider");
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Home);
    for (int i = 0; i < seconds; ++i)
        QTest::keyClick(&slider, Qt::Key_PageUp);
    stage.check(slider.value() == 10 * seconds, QStringLiteral("the slider can be moved"));
}

// Plays for some ticks, photographs the last one while it is shown, and stops.
void playAt(Stage& stage, int rateIndex, int tenthsPerTick, int fromSecond)
{
    stage.select("rateCombo", rateIndex);
    seek(stage, fromSecond);
    const int target = 10 * fromSecond + kTicksToPlay * tenthsPerTick;
    auto& play = stage.child<QPushButton>("playButton");
    bool arrived = false;
    const auto connection = QObject::connect(&stage.child<QSlider>("replaySlider"),
                                             &QSlider::valueChanged, &play, [&](int position) {
                                                 if (position == target) {
                                                     arrived = true;
                                                     stage.photographWindow();
                                                 }
                                             });
    const QSignalSpy ticks(&stage.child<QTimer>("replayTimer"), &QTimer::timeout);
    QTest::mouseClick(&play, Qt::LeftButton);
    stage.check(play.text() == QStringLiteral("Stop"), QStringLiteral("the button offers to stop"));
    const bool enough = QTest::qWaitFor([&] { return ticks.count() >= kTicksToPlay; }, kPatience);
    QTest::mouseClick(&play, Qt::LeftButton);
    QObject::disconnect(connection);
    stage.check(enough, QStringLiteral("the clock ticks"));
    stage.check(arrived,
                QStringLiteral("every tick goes %1 tenths of a second").arg(tenthsPerTick));
    stage.check(play.text() == QStringLiteral("Play"), QStringLiteral("the button offers to play"));
}

void playAtOne(Stage& stage)
{
    stage.clickElement(QStringLiteral("gauge.08"));
    playAt(stage, 0, 1, 228);
}

void playAtTwo(Stage& stage)
{
    playAt(stage, 1, 2, 234);
}

void playAtFour(Stage& stage)
{
    playAt(stage, 2, 4, 240);
}

// The smallest rectangle that holds every pixel in which two pictures of one size differ.
QRect differenceOf(const QImage& left, const QImage& right)
{
    QRect difference;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            if (left.pixel(x, y) != right.pixel(x, y))
                difference |= QRect(x, y, 1, 1);
        }
    }
    return difference;
}

void changeUnit(Stage& stage)
{
    const QImage before = stage.canvas().grab().toImage();
    stage.select("speedUnitCombo", 1);
    const QRect changed = differenceOf(before, stage.canvas().grab().toImage());
    const QRectF place = stage.canvas().elementRect(stage.element(QStringLiteral("value.09")));
    const double pixels = before.devicePixelRatio(); // of the picture, to one of the widget
    const QRectF speed(place.topLeft() * pixels, place.size() * pixels);
    stage.check(!changed.isEmpty(), QStringLiteral("the speed is shown in another unit"));
    stage.check(speed.toAlignedRect().contains(changed),
                QStringLiteral("nothing but the speed changes"));
}

void about(Stage& stage)
{
    stage.check(!QPixmap(FixedPaths::windowIcon()).isNull(),
                QStringLiteral("the icon stands beside the program"));
    stage.dialogs().expect<QDialog>([&stage](QDialog& dialog) {
        stage.photograph(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    stage.trigger("aboutAction");
}

} // namespace

std::vector<Step> replaySteps()
{
    return {
        {"recording-loaded", load}, {"playing-1x", playAtOne},    {"playing-2x", playAtTwo},
        {"playing-4x", playAtFour}, {"speed-in-mph", changeUnit}, {"about", about},
    };
}
