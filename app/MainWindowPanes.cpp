// How the panes of the main window keep in step with the document.

#include "app/MainWindow.h"
#include "app/PageListPanel.h"
#include "app/WindowTitle.h"
#include "app/commands/PageRef.h"
#include "canvas/DashCanvas.h"
#include "canvas/PropertyPanel.h"

#include <QFileInfo>
#include <QLabel>

#include <algorithm>

/// Shows the document as it is now: after an open, a push, an undo, a redo and a change of page
/// alike. What is shown is decided by m_currentPage and m_selected, which callers set before.
void MainWindow::syncPanes()
{
    // The page first, because all panes show it: an undo may have removed it.
    m_currentPage = std::clamp(m_currentPage, 0, std::max(m_document.pageCount() - 1, 0));
    DashPage* const page = currentPage();
    const int selected = m_selected.indexIn(page);
    if (selected < 0)
        m_selected = {};

    m_pageList->refresh(m_document.pages(), m_currentPage);
    m_canvas->rebindPage(page, selected);
    // The panel's ranges before its element, whose numbers they clamp.
    if (page)
        m_propertyPanel->setPageSize(page->width, page->height);
    m_propertyPanel->rebindElement(PageRef(page).element(selected));
    updateWindowTitle();
}

void MainWindow::updateWindowTitle()
{
    const QString& device = m_document.deviceType();
    setWindowTitle(mainWindowTitle(QFileInfo(m_currentFilePath).fileName(), device));
    m_targetDeviceBadge->setText(device);
    m_targetDeviceBadge->setToolTip(
        tr("Target device (TypeCode %1)").arg(m_document.deviceTypeCode()));
    m_targetDeviceBadge->setVisible(!device.isEmpty());
}

void MainWindow::onPageSelected(int index)
{
    m_canvas->cancelDrag();
    m_selected = {};
    m_currentPage = index;
    if (currentPage())
        syncPanes();
    else
        m_propertyPanel->clear(); // no such page: the canvas keeps the one before
}

void MainWindow::onElementSelected(int index)
{
    DashElement* const element = PageRef(currentPage()).element(index);
    if (!element && index >= 0)
        return; // no such element: the panel keeps the one before
    m_selected = element ? ElementKey(*element) : ElementKey();
    m_propertyPanel->setElement(element);
}

/// The previous or next page, if there is one.
void MainWindow::showPageBeside(int step)
{
    const int index = m_currentPage + step;
    if (m_document.pageAt(index))
        m_pageList->setCurrentRow(index);
}

DashPage* MainWindow::currentPage()
{
    return m_document.pageAt(m_currentPage);
}
