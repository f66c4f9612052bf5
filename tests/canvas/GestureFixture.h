#pragma once

#include "tests/canvas/CanvasFixture.h"

/// A canvas with a page of no document whose signals are listened to.
class GestureFixture : public CanvasFixture
{
protected:
    QSignalSpy m_selected{&m_canvas, &DashCanvas::elementSelected};
    QSignalSpy m_moved{&m_canvas, &DashCanvas::elementMoved};
    QSignalSpy m_resized{&m_canvas, &DashCanvas::elementResized};

    void expectNothingHappened() const
    {
        EXPECT_EQ(m_stack.count(), 0);
        EXPECT_EQ(m_moved.count(), 0);
        EXPECT_EQ(m_resized.count(), 0);
    }
};
