// Random gestures on random pages, step by step against a second implementation of the rules.

#include "canvas/DashCanvas.h"
#include "tests/canvas/CanvasModel.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <vector>

namespace {

int number(int least, int most)
{
    return *rc::gen::inRange(least, most + 1);
}

DashPage randomPage()
{
    DashPage page;
    page.width = number(40, 1200);
    page.height = number(40, 800);
    const int count = number(1, 6);
    for (int i = 0; i < count; ++i) {
        DashElement element;
        element.name = QString::number(i);
        setGeometry(element, {number(-30, page.width + 30), number(-30, page.height + 30),
                              number(-5, page.width + 50), number(-5, page.height + 50)});
        page.elements.push_back(element);
    }
    return page;
}

/// x, y, w, h of every element.
using Geometries = std::vector<std::array<int, 4>>;

Geometries geometries(const DashPage& page)
{
    Geometries all;
    for (const DashElement& element : page.elements)
        all.push_back({element.x, element.y, element.w, element.h});
    return all;
}

/// Canvas, undo stack and model that get the same events.
class Bench
{
public:
    explicit Bench(const DashPage& page)
        : m_page(page),
          m_size(number(400, 1300), number(240, 900)),
          m_model(page, m_size)
    {
        m_canvas.resize(m_size);
        m_canvas.setUndoStack(&m_stack);
        m_canvas.setPage(&m_page);
        QObject::connect(&m_stack, &QUndoStack::indexChanged, &m_canvas,
                         [this] { m_canvas.rebindPage(&m_page, m_canvas.selectedIndex()); });
        m_history.push_back(geometries(m_page));
    }

    void randomEvent()
    {
        switch (number(0, 9)) {
        case 0:
        case 1:
        case 2:
            press(randomPoint());
            break;
        case 3:
        case 4:
        case 5:
            moveTo(randomPoint());
            break;
        case 6:
        case 7:
            release();
            break;
        case 8:
            switchSnapping();
            break;
        default:
            undoOrRedo();
        }
    }

    /// Canvas and model agree, and so do history and undo stack.
    void check()
    {
        RC_ASSERT(geometries(m_page) == geometries(m_model.page()));
        RC_ASSERT(m_canvas.selectedIndex() == m_model.selected());
        RC_ASSERT(m_stack.count() + 1 == static_cast<int>(m_history.size()));
        RC_ASSERT(m_moved.count() + m_resized.count() == m_steps);
    }

    /// Every undo and every redo leads exactly to what was there at that index.
    void walkHistory()
    {
        release();
        while (m_stack.canUndo()) {
            m_stack.undo();
            RC_ASSERT(geometries(m_page) == m_history[static_cast<std::size_t>(m_stack.index())]);
        }
        while (m_stack.canRedo()) {
            m_stack.redo();
            RC_ASSERT(geometries(m_page) == m_history[static_cast<std::size_t>(m_stack.index())]);
        }
    }

private:
    /// Mostly near something that can be grabbed.
    [[nodiscard]] QPoint randomPoint() const
    {
        QPoint point(number(-50, m_size.width() + 50), number(-50, m_size.height() + 50));
        if (number(0, 3) != 0) {
            const auto index =
                static_cast<std::size_t>(number(0, static_cast<int>(m_page.elements.size()) - 1));
            const QRectF rect = m_canvas.elementRect(m_page.elements[index]);
            const QPointF grip(rect.x() + rect.width() * number(0, 2) / 2,
                               rect.y() + rect.height() * number(0, 2) / 2);
            point = grip.toPoint() + QPoint(number(-8, 8), number(-8, 8));
        }
        return point.isNull() ? QPoint(1, 0) : point; // QTest takes (0, 0) for the centre
    }

    void press(const QPoint& point)
    {
        if (m_model.isDragging())
            return; // the button is down already
        RC_LOG() << "press " << point.x() << ", " << point.y() << '\n';
        QTest::mousePress(&m_canvas, Qt::LeftButton, {}, point);
        m_model.press(point);
        m_at = point;
    }

    void moveTo(const QPoint& point)
    {
        RC_LOG() << "move to " << point.x() << ", " << point.y() << '\n';
        QTest::mouseMove(&m_canvas, point);
        m_model.moveTo(point);
        m_at = point;
    }

    void release()
    {
        RC_LOG() << "release\n";
        const int index = m_stack.index();
        QTest::mouseRelease(&m_canvas, Qt::LeftButton, {}, m_at);
        const std::optional<CanvasModel::Step> step = m_model.release();
        RC_ASSERT(m_stack.index() == index + (step ? 1 : 0));
        if (!step)
            return;
        ++m_steps;
        m_history.resize(static_cast<std::size_t>(m_stack.index()));
        m_history.push_back(geometries(m_page));
    }

    void switchSnapping()
    {
        m_model.snaps = number(0, 1) == 1;
        m_model.pitch = number(1, 12);
        m_canvas.setSnap(m_model.snaps, m_model.pitch);
    }

    void pressKey(bool undo)
    {
        QKeyEvent key(QEvent::ShortcutOverride, undo ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
        QCoreApplication::sendEvent(&m_canvas, &key);
    }

    /// As by keyboard, also in the middle of a drag. A key that has nothing to undo or redo leaves
    /// the drag alone.
    void undoOrRedo()
    {
        const bool undo = number(0, 1) == 0;
        RC_LOG() << (undo ? "undo\n" : "redo\n");
        pressKey(undo);
        if (undo ? !m_stack.canUndo() : !m_stack.canRedo())
            return;
        m_model.takeBack();
        if (undo)
            m_stack.undo();
        else
            m_stack.redo();
        const Geometries& then = m_history[static_cast<std::size_t>(m_stack.index())];
        for (std::size_t i = 0; i < then.size(); ++i)
            m_model.apply(i, {then[i][0], then[i][1], then[i][2], then[i][3]});
    }

    DashPage m_page;
    QSize m_size;
    CanvasModel m_model;
    QUndoStack m_stack;
    DashCanvas m_canvas;
    QSignalSpy m_moved{&m_canvas, &DashCanvas::elementMoved};
    QSignalSpy m_resized{&m_canvas, &DashCanvas::elementResized};
    std::vector<Geometries> m_history; // by undo index
    QPoint m_at;
    int m_steps = 0;
};

} // namespace

RC_GTEST_PROP(GestureProperties, CanvasAndUndoAgreeWithTheRulesWrittenDownAgain, ())
{
    Bench bench(randomPage());
    const int events = number(5, 60);
    for (int i = 0; i < events; ++i) {
        bench.randomEvent();
        bench.check();
    }
    bench.walkHistory();
}
