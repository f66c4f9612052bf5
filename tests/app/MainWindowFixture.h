#pragma once

#include "driver/WindowDriver.h"
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

/// A main window operated as a user would, with packages to open in it.
class MainWindowFixture : public ::testing::Test, protected WindowDriver
{
protected:
    MainWindowFixture() : WindowDriver(ModalDriver::reportFailure) { activate(); }

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

    // Through the menu, with the dialogs answered.
    void newPage(const QString& name);
    void insertElement(int donorRow = 0, int channelRow = 0);
    void clearPage();

    const QTemporaryDir m_folder{FolderTools::memoryTemplate()};
    ModalDriver m_dialogs;
};
