#include "canvas/DashCanvas.h"

DashCanvas::DashCanvas(QWidget* parent) : QWidget(parent) {}

void DashCanvas::setPage(DashPage* page)
{
    rebindPage(page, -1);
}

void DashCanvas::rebindPage(DashPage* page, int selectedIndex)
{
    m_page = page;
    m_selectedIndex = selectedIndex;
    update();
}

void DashCanvas::setSession(TelemetrySession* session)
{
    m_session = session;
}

void DashCanvas::setReplayTime(double) {}

void DashCanvas::setSpeedUnit(int) {}

void DashCanvas::setSnap(bool, int) {}

double DashCanvas::fitScale() const
{
    return 1.0;
}

QPointF DashCanvas::pageOrigin() const
{
    return {10, 10};
}

QRectF DashCanvas::elementRect(const DashElement&) const
{
    return {};
}

int DashCanvas::snapValue(int v) const
{
    return v;
}

void DashCanvas::clearSelectionAndRepaint()
{
    m_selectedIndex = -1;
    update();
}
