// How the main window is put together.

#include "app/MainWindow.h"

#include "app/DroppedFiles.h"
#include "app/PageListPanel.h"
#include "app/ReplayBar.h"
#include "canvas/DashCanvas.h"
#include "canvas/PropertyPanel.h"

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QUndoStack>
#include <QVBoxLayout>

namespace {

constexpr QSize kInitialSize{1280, 750};
constexpr int kPanelWidth = 220;

/// The files of a drag that the window opens. None while a dialog works on the document, and none
/// from a source that only moves files, which would delete them.
DroppedFiles acceptable(const QDropEvent& event)
{
    const bool copies = event.possibleActions().testFlag(Qt::CopyAction);
    if (!copies || QApplication::activeModalWidget())
        return {};
    return droppedFiles(*event.mimeData());
}

} // namespace

MainWindow::MainWindow() : m_undoStack(new QUndoStack(this))
{
    createPanes();
    layOutPanes();
    createMenus();
    createToolBar();
    createStatusBar();
    connectPanes();
    setAcceptDrops(true);
    setContextMenuPolicy(Qt::NoContextMenu); // the default one can hide the toolbar for good
    resize(kInitialSize);
    syncPanes();
}

MainWindow::~MainWindow()
{
    // These are destroyed after the members, and emit signals meanwhile (the undo stack does).
    const std::initializer_list<QObject*> senders{m_undoStack, m_canvas, m_pageList,
                                                  m_propertyPanel, m_replayBar};
    for (QObject* const sender : senders)
        sender->disconnect(this);
    // The window hides after the document is gone. A half-typed number is then still committed.
    m_propertyPanel->clear();
    m_canvas->setPage(nullptr);
}

bool MainWindow::event(QEvent* event)
{
    // A dialog has come up. It takes the mouse from a drag, whose release may never arrive.
    if (event->type() == QEvent::WindowBlocked)
        m_canvas->cancelDrag();
    // Menus send the tip of each entry. Ours have none, and would wipe the status bar.
    if (event->type() == QEvent::StatusTip && static_cast<QStatusTipEvent*>(event)->tip().isEmpty())
        return true;
    return QMainWindow::event(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (acceptable(*event).isEmpty())
        return;
    event->setDropAction(Qt::CopyAction); // the source deletes files that are moved
    event->accept();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const DroppedFiles files = acceptable(*event);
    if (files.isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Queued, because the program that the files come from waits for this handler.
    QMetaObject::invokeMethod(
        this, [this, files] { take(files); }, Qt::QueuedConnection);
}

/// Opens dropped files, unless a dialog has come up since and works on the document.
void MainWindow::take(const DroppedFiles& files)
{
    if (QApplication::activeModalWidget())
        return;
    if (!files.package.isEmpty())
        openPackage(files.package);
    if (!files.recording.isEmpty())
        loadRecording(files.recording);
}

void MainWindow::createPanes()
{
    m_canvas = new DashCanvas;
    m_canvas->setObjectName(QStringLiteral("canvas"));
    m_canvas->setUndoStack(m_undoStack);
    m_canvas->setDocument(&m_document);
    m_pageList = new PageListPanel;
    m_propertyPanel = new PropertyPanel;
    m_propertyPanel->setObjectName(QStringLiteral("propertyPanel"));
    m_propertyPanel->setFixedWidth(kPanelWidth);
    m_replayBar = new ReplayBar;
    // A number field would take a dropped file as text.
    for (QLineEdit* const field : m_propertyPanel->findChildren<QLineEdit*>())
        field->setAcceptDrops(false);
}

void MainWindow::layOutPanes()
{
    auto* const splitter = new QSplitter(Qt::Horizontal);
    splitter->setChildrenCollapsible(false);
    for (QWidget* const pane :
         std::initializer_list<QWidget*>{m_pageList, m_canvas, m_propertyPanel}) {
        splitter->addWidget(pane);
        // Only the canvas grows.
        splitter->setStretchFactor(splitter->indexOf(pane), pane == m_canvas ? 1 : 0);
    }
    // By default the side panes would get more room than they may fill.
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
    const auto refreshGeometry = [this] { m_propertyPanel->refreshGeometry(); };
    connect(m_pageList, &PageListPanel::pageSelected, this, &MainWindow::onPageSelected);
    connect(m_canvas, &DashCanvas::elementSelected, this, &MainWindow::onElementSelected);
    connect(m_canvas, &DashCanvas::elementMoved, this, refreshGeometry);
    connect(m_canvas, &DashCanvas::elementResized, this, refreshGeometry);
    connect(m_canvas, &DashCanvas::deleteRequested, this, &MainWindow::deleteElement);
    connect(m_canvas, &DashCanvas::playToggleRequested, m_replayBar, &ReplayBar::togglePlaying);
    connect(m_canvas, &DashCanvas::pageStepRequested, this, &MainWindow::showPageBeside);
    connect(m_propertyPanel, &PropertyPanel::positionChanged, this, repaintCanvas);
    connect(m_propertyPanel, &PropertyPanel::sizeChanged, this, repaintCanvas);
    connect(m_propertyPanel, &PropertyPanel::fontChanged, this, repaintCanvas);
    connect(m_undoStack, &QUndoStack::indexChanged, this, &MainWindow::syncPanes);
    connect(m_replayBar, &ReplayBar::timeChanged, m_canvas, &DashCanvas::setReplayTime);

    m_playShortcut = new QShortcut(Qt::Key_Space, m_pageList);
    m_playShortcut->setContext(Qt::WidgetShortcut); // other widgets use the key
    m_playShortcut->setAutoRepeat(false);
    m_playShortcut->setEnabled(false); // until a recording is loaded, the key is the list's
    connect(m_playShortcut, &QShortcut::activated, m_replayBar, &ReplayBar::togglePlaying);
}
