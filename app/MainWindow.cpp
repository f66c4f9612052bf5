// How the main window is put together, and how it keeps its panes in step with the document.

#include "app/MainWindow.h"

#include "app/PageListPanel.h"
#include "app/ReplayBar.h"
#include "app/WindowTitle.h"
#include "canvas/DashCanvas.h"
#include "canvas/PropertyPanel.h"
#include "document/ShownText.h"

#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QUndoStack>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize kInitialSize{1280, 750};
constexpr int kPanelWidth = 220;

} // namespace

MainWindow::MainWindow() : m_undoStack(new QUndoStack(this))
{
    createPanes();
    createActions();
    createMenus();
    createToolBar();
    createStatusBar();
    connectPanes();
    resize(kInitialSize);
    setWindowTitle(mainWindowTitle());
}

MainWindow::~MainWindow()
{
    // These are destroyed after the members, and signal while they go (the undo stack does).
    const std::initializer_list<QObject*> senders{m_undoStack, m_canvas, m_pageList,
                                                  m_propertyPanel, m_replayBar};
    for (QObject* const sender : senders)
        sender->disconnect(this);
}

bool MainWindow::event(QEvent* event)
{
    // A dialog has come up. It takes the mouse from a drag, whose release may never arrive.
    if (event->type() == QEvent::WindowBlocked)
        m_canvas->rebindPage(m_canvas->page(), m_canvas->selectedIndex());
    return QMainWindow::event(event);
}

void MainWindow::createPanes()
{
    m_canvas = new DashCanvas;
    m_canvas->setObjectName(QStringLiteral("canvas"));
    m_canvas->setAccessibleName(tr("Page"));
    m_canvas->setUndoStack(m_undoStack);
    m_canvas->setDocument(&m_document);
    m_pageList = new PageListPanel;
    m_propertyPanel = new PropertyPanel;
    m_propertyPanel->setObjectName(QStringLiteral("propertyPanel"));
    m_propertyPanel->setFixedWidth(kPanelWidth);
    m_replayBar = new ReplayBar;

    auto* const splitter = new QSplitter(Qt::Horizontal);
    splitter->setChildrenCollapsible(false);
    int pane = 0;
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_pageList), static_cast<QWidget*>(m_canvas),
          static_cast<QWidget*>(m_propertyPanel)}) {
        splitter->addWidget(widget);
        splitter->setStretchFactor(pane++, widget == m_canvas ? 1 : 0); // only the canvas grows
    }
    // Without sizes of its own the splitter would give the side panes more room than they may fill.
    splitter->setSizes({m_pageList->maximumWidth(), kInitialSize.width(), kPanelWidth});

    auto* const central = new QWidget;
    auto* const layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_replayBar, 0);
    setCentralWidget(central);
}

void MainWindow::createStatusBar()
{
    m_targetDeviceBadge = new QLabel;
    m_targetDeviceBadge->setObjectName(QStringLiteral("targetDeviceBadge"));
    m_targetDeviceBadge->setTextFormat(Qt::PlainText);
    m_targetDeviceBadge->setStyleSheet(
        QStringLiteral("QLabel { padding: 1px 6px; background: #2a4060; color: #e0e8ff; "
                       "border-radius: 3px; font-weight: bold; }"));
    m_targetDeviceBadge->hide();
    statusBar()->addPermanentWidget(m_targetDeviceBadge);
    statusBar()->showMessage(tr("Ready -- Open a .zconf2 file to begin"));
}

void MainWindow::connectPanes()
{
    const auto repaintCanvas = [this] { m_canvas->update(); };
    connect(m_pageList, &PageListPanel::pageSelected, this, &MainWindow::onPageSelected);
    connect(m_canvas, &DashCanvas::elementSelected, this, &MainWindow::onElementSelected);
    connect(m_canvas, &DashCanvas::elementMoved, this, &MainWindow::onElementGeometryChanged);
    connect(m_canvas, &DashCanvas::elementResized, this, &MainWindow::onElementGeometryChanged);
    connect(m_canvas, &DashCanvas::deleteRequested, this, &MainWindow::deleteElement);
    connect(m_propertyPanel, &PropertyPanel::positionChanged, this, repaintCanvas);
    connect(m_propertyPanel, &PropertyPanel::sizeChanged, this, repaintCanvas);
    connect(m_propertyPanel, &PropertyPanel::fontChanged, this, repaintCanvas);
    connect(m_undoStack, &QUndoStack::indexChanged, this, &MainWindow::onUndoIndexChanged);
    connect(m_replayBar, &ReplayBar::timeChanged, m_canvas, &DashCanvas::setReplayTime);
}

void MainWindow::onPageSelected(int index)
{
    m_currentPage = index;
    if (DashPage* const page = currentPage()) {
        m_canvas->setPage(page);
        m_propertyPanel->setPageSize(page->width, page->height);
    }
    clearPanel();
}

void MainWindow::onElementSelected(int index)
{
    if (index < 0) {
        clearPanel();
        return;
    }
    DashPage* const page = currentPage();
    if (page && static_cast<std::size_t>(index) < page->elements.size())
        showElement(page->elements[static_cast<std::size_t>(index)]);
}

void MainWindow::onElementGeometryChanged()
{
    m_propertyPanel->refreshGeometry();
}

/// Runs after every push, undo and redo: the one place where the panes catch up with the document.
void MainWindow::onUndoIndexChanged()
{
    if (m_pageList->count() != m_document.pageCount()) {
        rebuildPageList();
        const int lastPage = std::max(m_document.pageCount() - 1, 0);
        if (m_currentPage > lastPage) {
            m_canvas->setPage(nullptr); // the page that it shows is gone
            onPageSelected(lastPage);
        }
    }
    rebindPanes();
}

DashPage* MainWindow::currentPage()
{
    return m_document.pageAt(m_currentPage);
}

void MainWindow::rebuildPageList()
{
    const QSignalBlocker quiet(m_pageList);
    m_pageList->setPages(m_document.pages());
    m_pageList->setCurrentRow(
        std::clamp(m_currentPage, 0, std::max(m_document.pageCount() - 1, 0)));
}

void MainWindow::showElement(DashElement& element)
{
    m_shownElement = ElementKey(element);
    m_propertyPanel->setElement(&element);
}

void MainWindow::clearPanel()
{
    m_shownElement = {};
    m_propertyPanel->clear();
}

/// Points canvas and panel at the page and element that they showed, wherever these are now.
void MainWindow::rebindPanes()
{
    DashPage* const page = currentPage();
    const int index = m_shownElement.indexIn(page);
    m_canvas->rebindPage(page, m_canvas->selectedIndex() < 0 ? -1 : index);
    if (index < 0)
        clearPanel();
    else
        m_propertyPanel->rebindElement(&page->elements[static_cast<std::size_t>(index)]);
}

void MainWindow::updateWindowTitle()
{
    const QString device = shownText(m_document.deviceType());
    setWindowTitle(mainWindowTitle(QFileInfo(m_currentFilePath).fileName(), device));
    m_targetDeviceBadge->setText(device);
    m_targetDeviceBadge->setToolTip(
        tr("Target device (TypeCode %1)").arg(m_document.deviceTypeCode()));
    m_targetDeviceBadge->setVisible(!device.isEmpty());
}
