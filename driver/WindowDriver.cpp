#include "driver/WindowDriver.h"

#include "telemetry/ReplayClock.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QSlider>
#include <QStatusBar>
#include <QTest>

#include <algorithm>

WindowDriver::WindowDriver(Report report)
    : m_report(std::move(report)),
      m_window(std::make_unique<MainWindow>())
{
    m_window->show();
}

QString WindowDriver::status() const
{
    return m_window->statusBar()->currentMessage();
}

void WindowDriver::activate() const
{
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        m_report(QStringLiteral("the window does not become active"));
}

void WindowDriver::press(QWidget& pane, Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    activate();
    QTest::keyClick(&pane, key, modifiers);
}

void WindowDriver::trigger(const char* action) const
{
    child<QAction>(action)->trigger();
}

void WindowDriver::clickPage(int row) const
{
    pageList().scrollToItem(pageList().item(row));
    const QRect rectangle = pageList().visualItemRect(pageList().item(row));
    QTest::mouseClick(pageList().viewport(), Qt::LeftButton, {}, rectangle.center());
    if (pageList().currentRow() != row)
        m_report(QStringLiteral("page %1 cannot be chosen").arg(row));
}

void WindowDriver::clickGridSnap() const
{
    auto* const box = child<QCheckBox>("gridSnapCheck");
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
}

void WindowDriver::choose(const char* comboBox, int index) const
{
    auto* const combo = child<QComboBox>(comboBox);
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(combo, Qt::Key_Down);
    if (combo->currentIndex() != index)
        m_report(QLatin1String(comboBox) + QStringLiteral(" has no item %1").arg(index));
}

void WindowDriver::seek(int seconds) const
{
    auto* const slider = child<QSlider>("replaySlider");
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Home);
    const int target = seconds * ReplayClock::kTicksPerSecond;
    for (int pages = target / slider->pageStep(); pages > 0; --pages)
        QTest::keyClick(slider, Qt::Key_PageUp);
    for (int steps = target - slider->value(); steps > 0; --steps)
        QTest::keyClick(slider, Qt::Key_Right);
    if (slider->value() != target)
        m_report(QStringLiteral("the replay cannot be moved to %1 s").arg(seconds));
}

int WindowDriver::indexOf(const QString& element) const
{
    const std::vector<DashElement>& all = canvas().page()->elements;
    const auto found = std::find_if(all.begin(), all.end(), [&](const DashElement& candidate) {
        return candidate.name == element;
    });
    if (found == all.end())
        qFatal("the page shows no element %s", qPrintable(element));
    return static_cast<int>(found - all.begin());
}

QPoint WindowDriver::centerOf(int element) const
{
    const DashElement& record = canvas().page()->elements.at(static_cast<std::size_t>(element));
    return canvas().elementRect(record).center().toPoint();
}

void WindowDriver::clickElement(int element) const
{
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, centerOf(element));
}

void WindowDriver::drag(const QPoint& from, const QPoint& to) const
{
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), to);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, to);
}

void WindowDriver::drag(int element, const QPoint& by) const
{
    const QPoint from = centerOf(element);
    drag(from, from + by);
}
