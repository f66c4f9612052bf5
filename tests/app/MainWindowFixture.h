#pragma once

#include "app/MainWindow.h"
#include "app/PageListPanel.h"
#include "canvas/DashCanvas.h"
#include "canvas/PropertyPanel.h"
#include "tests/support/FolderTools.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/PackageBuilder.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

#include <gtest/gtest.h>

#include <memory>

/// A real main window, shown and active, with its panes at hand and packages to open in it.
/// Every edit goes through the widgets and dialogs, as a user's would.
class MainWindowFixture : public ::testing::Test
{
protected:
    MainWindowFixture() : m_window(std::make_unique<MainWindow>())
    {
        m_window->show();
        activate();
    }

    void activate() const;

    /// Writes a package of the usual three pages: "Race" with the four elements race.0 to race.3 in
    /// a row, "Box" with one, "Empty" with none; device type "MXS", code 12, two channels.
    QString writeUsualPackage(const QString& fileName = QStringLiteral("usual.zconf2"));
    QString writePackage(const QString& fileName, const std::vector<TestPackage::Object>& pages,
                         const QByteArray& device = {});
    [[nodiscard]] QString path(const QString& fileName) const
    {
        return m_folder.filePath(fileName);
    }

    /// Opens a package through the file dialog.
    void open(const QString& path);
    void openUsual() { open(writeUsualPackage()); }

    template <typename T>
    [[nodiscard]] T* child(const char* name) const
    {
        T* const found = m_window->findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    [[nodiscard]] DashCanvas& canvas() const { return *child<DashCanvas>("canvas"); }
    [[nodiscard]] PropertyPanel& panel() const { return *child<PropertyPanel>("propertyPanel"); }
    [[nodiscard]] PageListPanel& pageList() const { return *child<PageListPanel>("pageList"); }
    [[nodiscard]] QUndoStack& stack() const { return *m_window->findChild<QUndoStack*>(); }
    [[nodiscard]] QString status() const { return m_window->statusBar()->currentMessage(); }
    [[nodiscard]] QString shownId() const { return child<QLabel>("idLabel")->text(); }
    [[nodiscard]] const std::vector<DashPage>& pages() const
    {
        return m_window->document().pages();
    }
    [[nodiscard]] const std::vector<DashElement>& elements(int page = 0) const
    {
        return pages().at(static_cast<std::size_t>(page)).elements;
    }
    /// The names of a page's elements, blank-separated.
    [[nodiscard]] QString names(int page = 0) const;

    /// A key stroke with the window active, as it is again when a dialog has closed.
    void press(QWidget& pane, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
    void trigger(const char* action) const { child<QAction>(action)->trigger(); }
    void clickPage(int row) const;
    /// The middle of an element of the page that the canvas shows, in its pixels.
    [[nodiscard]] QPoint centerOf(int element) const;
    void clickElement(int element) const;
    void drag(int element, const QPoint& by) const;

    // Through the menu, with the dialogs answered.
    void newPage(const QString& name);
    void insertElement(int donorRow = 0, int channelRow = 0);
    void clearPage();

    const QTemporaryDir m_folder{FolderTools::memoryTemplate()};
    ModalDriver m_dialogs;
    std::unique_ptr<MainWindow> m_window;
};
