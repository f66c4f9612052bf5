// The commands behind the main window's menus.

#include "app/AboutDialog.h"
#include "app/InsertPlacement.h"
#include "app/MainWindow.h"
#include "app/PageListPanel.h"
#include "app/ReplayBar.h"
#include "app/ReplayText.h"
#include "app/StartPath.h"
#include "app/commands/ClearPageCommand.h"
#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "app/commands/NewPageCommand.h"
#include "app/commands/PageCommand.h"
#include "canvas/DashCanvas.h"
#include "dialogs/AddElementDialog.h"
#include "paths/FixedPaths.h"
#include "widgets/BusyCursor.h"
#include "widgets/PlainMessage.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QShortcut>
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
    if (!path.isEmpty())
        openPackage(path);
}

void MainWindow::openPackage(const QString& path)
{
    m_canvas->cancelDrag();
    if (!runBusy([&] { return m_document.open(path); })) {
        tellPlainly(this, QMessageBox::Critical, tr("Error"),
                    tr("Failed to open file:\n%1").arg(path), m_document.errorString());
        return;
    }
    // Everything that the panes show is gone: nothing may run before they are in step.
    m_currentFilePath = path;
    m_currentPage = 0;
    m_selected = {};
    syncPanes();
    m_undoStack->clear();
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
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Dashboard As"), nearestPath(m_currentFilePath),
                                     tr("AIM Dashboard (*.zconf2)"));
    if (path.isEmpty() || !saveTo(path))
        return;
    m_currentFilePath = path;
    updateWindowTitle();
}

bool MainWindow::saveTo(const QString& path)
{
    m_canvas->cancelDrag();
    const bool saved = runBusy([&] { return m_document.save(path); });
    if (saved)
        statusBar()->showMessage(tr("Saved %1").arg(fileNameOf(path)));
    else
        tellPlainly(this, QMessageBox::Critical, tr("Error"),
                    tr("Failed to save file:\n%1").arg(path), m_document.errorString());
    return saved;
}

void MainWindow::loadTelemetry()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Load XRK Telemetry Data"),
                                                      nearestFolder(FixedPaths::recordingFolder()),
                                                      tr("XRK Files (*.xrk)"));
    if (!path.isEmpty())
        loadRecording(path);
}

void MainWindow::loadRecording(const QString& path)
{
    m_canvas->cancelDrag();
    // The reader library is foreign code. When it crashes, the edits are in the unpack folder.
    static_cast<void>(m_document.keepEdits());
    const QString library = FixedPaths::readerLibrary();
    if (!runBusy([&] { return m_telemetry.load(path, library); })) {
        m_canvas->update(); // the former recording is gone, and its values with it
        m_replayBar->setRecordingTip({});
        tellPlainly(this, QMessageBox::Critical, tr("Error"),
                    tr("Failed to load XRK file:\n%1\n\nCheck DLL path: %2").arg(path, library),
                    m_telemetry.errorString());
        return;
    }
    const QStringList channels = m_telemetry.channelNames();
    const QString name = fileNameOf(path);
    m_canvas->setSession(&m_telemetry);
    m_replayBar->setDuration(m_telemetry.duration());
    m_playShortcut->setEnabled(true);
    m_replayBar->setRecordingTip(ReplayText::recordingTip(name, channels, m_telemetry.duration()));
    statusBar()->showMessage(ReplayText::loadedText(name, channels.size(), m_telemetry.duration()));
}

void MainWindow::undo()
{
    if (m_undoStack->canUndo())
        travel(m_undoStack->index() - 1, &QUndoStack::undo, tr("Undone: %1"));
}

void MainWindow::redo()
{
    if (m_undoStack->canRedo())
        travel(m_undoStack->index(), &QUndoStack::redo, tr("Redone: %1"));
}

/// Undoes or redoes a command. Says what that was when its page is not shown.
void MainWindow::travel(int command, void (QUndoStack::*step)(), const QString& message)
{
    const auto* const change = dynamic_cast<const PageCommand*>(m_undoStack->command(command));
    const int shownPage = m_currentPage;
    const int pageCount = m_document.pageCount();
    m_canvas->cancelDrag();
    (m_undoStack->*step)();
    if (!change || change->page().index() < 0 || change->page().index() == shownPage)
        return;
    // A page that came or went is named by the text itself.
    const DashPage* const page =
        m_document.pageCount() == pageCount ? change->page().resolve() : nullptr;
    const QString what =
        page ? tr("%1 (page \"%2\")").arg(change->text(), page->name) : change->text();
    statusBar()->showMessage(message.arg(what), kConfirmationTime);
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
    if (command->pageIndex() < 0)
        return;
    m_pageList->setCurrentRow(command->pageIndex());
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
    const std::size_t before = page.elements.size();
    m_selected = {};
    m_undoStack->push(new InsertElementCommand(&m_document, m_currentPage, channel, place.x,
                                               place.y, place.w, place.h, spec.donorNode));
    if (page.elements.size() == before)
        return;
    statusBar()->showMessage(
        tr("Inserted \"%1\" -> %2").arg(spec.templateLabel, spec.channelLongName),
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
    m_canvas->cancelDrag();
    DashPage* const page = currentPage();
    if (!PageRef(page).element(index))
        return;
    const std::size_t before = page->elements.size();
    m_selected = {};
    m_undoStack->push(new DeleteCommand(&m_document, m_currentPage, index));
    if (page->elements.size() == before)
        return;
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
    const QString& name = page->name;
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
    m_selected = {};
    m_undoStack->push(new ClearPageCommand(&m_document, m_currentPage));
    if (!page->elements.empty())
        return;
    statusBar()->showMessage(tr("Cleared %1 elements from \"%2\"").arg(count, name),
                             kConfirmationTime);
}

void MainWindow::showAbout()
{
    AboutDialog(FixedPaths::windowIcon(), this).exec();
}
