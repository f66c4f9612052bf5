#pragma once

#include "canvas/DashCanvas.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

#include <gtest/gtest.h>

#include <utility>

/// A record with a name, a rectangle and, unless empty, a channel.
[[nodiscard]] inline DashElement makeElement(const QString& name, const ElementGeometry& geometry,
                                             const QString& channel = QStringLiteral("RPM"))
{
    DashElement element;
    element.name = name;
    element.channelLongName = channel;
    setGeometry(element, geometry);
    return element;
}

/// A canvas that shows a page of 800 x 480 at 1:1, its origin at (10, 10) of the widget, with
/// an undo stack; and the mouse and the shortcuts that it gets.
class CanvasMouseFixture : public ::testing::Test
{
protected:
    static constexpr int kOrigin = 10;

    CanvasMouseFixture()
    {
        m_canvas.resize(800 + 2 * kOrigin, 480 + 2 * kOrigin);
        m_canvas.setUndoStack(&m_stack);
    }

    /// The widget pixel that shows a display pixel.
    [[nodiscard]] static QPoint at(int x, int y) { return {x + kOrigin, y + kOrigin}; }

    void press(const QPoint& point, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(&m_canvas, button, {}, point);
    }
    void moveTo(const QPoint& point) { QTest::mouseMove(&m_canvas, point); }
    void release(const QPoint& point, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(&m_canvas, button, {}, point);
    }
    void drag(const QPoint& from, const QPoint& to)
    {
        press(from);
        moveTo(to);
        release(to);
    }
    void click(const QPoint& point)
    {
        press(point);
        release(point);
    }

    /// Lets the canvas know of a shortcut as Qt does before the shortcut's command runs.
    void announceShortcut(QKeySequence::StandardKey standardKey)
    {
        const QKeyCombination key = QKeySequence(standardKey)[0];
        QKeyEvent event(QEvent::ShortcutOverride, key.key(), key.keyboardModifiers());
        QCoreApplication::sendEvent(&m_canvas, &event);
    }

    QUndoStack m_stack;
    DashCanvas m_canvas;
};

/// Such a canvas that shows a bare page, of no document.
class CanvasFixture : public CanvasMouseFixture
{
protected:
    CanvasFixture()
    {
        m_page.width = 800;
        m_page.height = 480;
        m_canvas.setPage(&m_page);
    }

    void add(const ElementGeometry& geometry)
    {
        m_page.elements.push_back(
            makeElement(QStringLiteral("mask.%1").arg(m_page.elements.size()), geometry));
    }

    [[nodiscard]] DashElement& element(std::size_t index) { return m_page.elements.at(index); }

    DashPage m_page;
};
