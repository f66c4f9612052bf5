#include "canvas/PropertyPanel.h"

PropertyPanel::PropertyPanel(QWidget* parent) : QWidget(parent) {}

void PropertyPanel::setElement(DashElement* element)
{
    m_element = element;
}

void PropertyPanel::rebindElement(DashElement* element)
{
    m_element = element;
}

void PropertyPanel::clear()
{
    m_element = nullptr;
}

void PropertyPanel::refreshGeometry() {}

void PropertyPanel::setPageSize(int, int) {}
