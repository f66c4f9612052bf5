// The commands behind the main window's menus.

#include "app/AboutDialog.h"
#include "app/InsertPlacement.h"
#include "app/MainWindow.h"
#include "app/PageListPanel.h"
#include "app/ReplayBar.h"
#include "app/ReplayText.h"
#include "app/commands/ClearPageCommand.h"
#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "app/commands/NewPageCommand.h"
#include "canvas/DashCanvas.h"
#include "dialogs/AddElementDialog.h"
#include "document/FixedPaths.h"
#include "document/ShownText.h"
#include "widgets/BusyCursor.h"
#include "widgets/PlainMessage.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QStatusBar>
#include <QUndoStack>

namespace {

// How long a message stays in the status bar, in milliseconds. Opening and saving are confirmed
// until the next message.
constexpr int kConfirmationTime = 3000;
constexpr int kRefusalTime = 2000;

QString fileNameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

} // namespace

void MainWindow::openDashboard()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Dashboard"), QString(),
                                                      tr("AIM Dashboard (*.zconf2)"));
    if (path.isEmpty())
        return;
    if (runBusy([&] { return m_document.open(path); }))
        showOpened(path);
    else
        tellPlainly(this, QMessageBox::Critical, tr("Error"),
                    tr("Failed to open file:\n%1").arg(path));
}

/// Everything that the panes show is gone by now: nothing may run before they point elsewhere.
void MainWindow::showOpened(const QString& path)
{
    m_currentFilePath = path;
    m_currentPage = 0;
    rebuildPageList();
    m_canvas->setPage(currentPage());
    clearPanel();
    m_undoStack->clear();
    updateWindowTitle();
    statusBar()->showMessage(
        tr("Opened %1 (%2 pages)").arg(fileNameOf(path), QString::number(m_document.pageCount())));
}

void MainWindow::saveDashboard()
{
    if (m_currentFilePath.isEmpty())
        saveDashboardAs();
    else
        static_cast<void>(saveTo(m_currentFilePath));
}

void MainWindow::saveDashboardAs()
{
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save Dashboard As"), m_currentFilePath, tr("AIM Dashboard (*.zconf2)"));
    if (path.isEmpty() || !saveTo(path))
        return;
    m_currentFilePath = path;
    updateWindowTitle();
}

bool MainWindow::saveTo(const QString& path)
{
    const bool saved = runBusy([&] { return m_document.save(path); });
    if (saved)
        statusBar()->showMessage(tr("Saved %1").arg(fileNameOf(path)));
    else
        tellPlainly(this, QMessageBox::Critical, tr("Error"),
                    tr("Failed to save file:\n%1").arg(path));
    return saved;
}

void MainWindow::loadTelemetry()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Load XRK Telemetry Data"),
                                     FixedPaths::recordingFolder(), tr("XRK Files (*.xrk)"));
    if (path.isEmpty())
        return;
    const QString library = FixedPaths::readerLibrary();
    if (!runBusy([&] { return m_telemetry.load(path, library); })) {
        m_canvas->update(); // the former recording is gone, and its values with it
        tellPlainly(this, QMessageBox::Critical, tr("Error"),
                    tr("Failed to load XRK file:\n%1\n\nCheck DLL path: %2").arg(path, library));
        return;
    }
    m_canvas->setSession(&m_telemetry);
    m_replayBar->setDuration(m_telemetry.duration());
    statusBar()->showMessage(ReplayText::loadedText(
        fileNameOf(path), m_telemetry.channelNames().size(), m_telemetry.duration()));
}

void MainWindow::newPage()
{
    if (m_currentFilePath.isEmpty() && m_document.pageCount() == 0) {
        tellPlainly(this, QMessageBox::Information, tr("New Page"),
                    tr("Open a .zconf2 file first -- new pages need a base config."));
        return;
    }
    bool accepted = false;
    const QString typed =
        QInputDialog::getText(this, tr("New Page"), tr("Page name:"), QLineEdit::Normal,
                              tr("Page %1").arg(m_document.pageCount() + 1), &accepted);
    const QString name = typed.trimmed();
    if (!accepted || name.isEmpty())
        return;

    auto* const command = new NewPageCommand(&m_document, name);
    m_undoStack->push(command);
    m_pageList->setCurrentRow(command->pageIndex());
    onPageSelected(command->pageIndex()); // a first page is current already and emits nothing
    statusBar()->showMessage(tr("Added blank page \"%1\" (%2 x %3)")
                                 .arg(typed, QString::number(m_document.displayWidth()),
                                      QString::number(m_document.displayHeight())),
                             kConfirmationTime);
}

void MainWindow::insertElement()
{
    if (m_document.pageCount() == 0) {
        tellPlainly(this, QMessageBox::Information, tr("Insert Element"),
                    tr("Open a .zconf2 file first."));
        return;
    }
    AddElementDialog dialog(&m_document, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const InsertElementSpec spec = dialog.spec();
    const DashPage* const page = currentPage();
    if (spec.donorNode && page)
        insertOn(*page, spec);
}

void MainWindow::insertOn(const DashPage& page, const InsertElementSpec& spec)
{
    const ElementGeometry place =
        centredPlacement(page.width, page.height, spec.donorWidth, spec.donorHeight);
    const ChannelDef channel{spec.channelFid, spec.channelLongName, spec.channelShortName,
                             spec.channelLabelLongName, spec.channelUiv};
    m_undoStack->push(new InsertElementCommand(&m_document, m_currentPage, channel, place.x,
                                               place.y, place.w, place.h, spec.donorNode));
    m_canvas->setPage(currentPage());
    statusBar()->showMessage(
        tr("Inserted \"%1\" -> %2").arg(spec.templateLabel, shownText(spec.channelLongName)),
        kConfirmationTime);
}

void MainWindow::deleteSelectedElement()
{
    const int index = m_canvas->selectedIndex();
    if (index < 0)
        statusBar()->showMessage(tr("No element selected"), kRefusalTime);
    else
        deleteElement(index);
}

void MainWindow::deleteElement(int index)
{
    const DashPage* const page = currentPage();
    if (!page || index < 0 || static_cast<std::size_t>(index) >= page->elements.size())
        return;
    clearPanel();
    m_undoStack->push(new DeleteCommand(&m_document, m_currentPage, index));
    m_canvas->clearSelectionAndRepaint();
    statusBar()->showMessage(
        tr("Deleted element -- %1 remaining on page").arg(page->elements.size()),
        kConfirmationTime);
}

void MainWindow::clearPage()
{
    const DashPage* const page = currentPage();
    if (!page)
        return;
    const QString count = QString::number(page->elements.size());
    const QString name = shownText(page->name);
    if (page->elements.empty()) {
        statusBar()->showMessage(tr("Page is already empty"), kRefusalTime);
        return;
    }
    const QMessageBox::StandardButton answer =
        askPlainly(this, QMessageBox::Question, tr("Clear Page"),
                   tr("Remove all %1 elements from page \"%2\"?\n\n"
                      "This is undoable with Ctrl+Z.")
                       .arg(count, name),
                   QMessageBox::Yes | QMessageBox::Cancel);
    if (answer != QMessageBox::Yes)
        return;
    clearPanel();
    m_undoStack->push(new ClearPageCommand(&m_document, m_currentPage));
    m_canvas->clearSelectionAndRepaint();
    statusBar()->showMessage(tr("Cleared %1 elements from \"%2\"").arg(count, name),
                             kConfirmationTime);
}

void MainWindow::showAbout()
{
    AboutDialog(FixedPaths::windowIcon(), this).exec();
}
