#pragma once

#include "dialogs/AddElementDialog.h"
#include "document/DashboardDocument.h"
#include "tests/support/PackageBuilder.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

[[nodiscard]] inline TestPackage::Object barElement(const QByteArray& name)
{
    return {"GMaskParam",
            name,
            {TestPackage::number("WIDTH", 300), TestPackage::number("HEIGHT", 20)},
            {{"BargraphTrapezio", {}, {}, {}}}};
}

/// An insert dialog on a document, shown and active.
class InsertDialog : public ::testing::Test
{
protected:
    void open(const std::vector<TestPackage::Object>& elements,
              const std::vector<TestPackage::Channel>& channels)
    {
        const QString path = m_folder.filePath(QStringLiteral("dialog.zconf2"));
        ASSERT_TRUE(TestPackage::writePackage(
            path, TestPackage::overlayXml({TestPackage::page("One", 800, 480, elements)}),
            TestPackage::deviceXml("MXS", 1, channels)));
        ASSERT_TRUE(m_document.open(path));
        show(&m_document);
    }

    void openUsual()
    {
        open({TestPackage::digitElement("digit.1", 0, 0, 120, 40, "RPM"), barElement("bar.1")},
             {{7, "Engine Speed", "rpm", "1/min"},
              {9, "Water Temp", "WT", "C"},
              {11, "Oil Temp", "OT", "C"}});
    }

    void show(DashboardDocument* document)
    {
        m_dialog = std::make_unique<AddElementDialog>(document, nullptr);
        m_types = m_dialog->findChild<QListWidget*>(QStringLiteral("typeList"));
        m_filter = m_dialog->findChild<QLineEdit*>(QStringLiteral("filterEdit"));
        m_channels = m_dialog->findChild<QListWidget*>(QStringLiteral("channelList"));
        m_summary = m_dialog->findChild<QLabel*>(QStringLiteral("summaryLabel"));
        m_buttons = m_dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        ASSERT_TRUE(m_types && m_filter && m_channels && m_summary && m_buttons);
        m_dialog->show();
        m_dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    }

    [[nodiscard]] QPushButton* insertButton() const
    {
        return m_buttons->button(QDialogButtonBox::Ok);
    }

    static void clickRow(QListWidget* list, int row, Qt::KeyboardModifiers modifiers = {})
    {
        const QRect rectangle = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, rectangle.center());
    }

    const QTemporaryDir m_folder;
    DashboardDocument m_document;
    std::unique_ptr<AddElementDialog> m_dialog;
    QListWidget* m_types = nullptr;
    QLineEdit* m_filter = nullptr;
    QListWidget* m_channels = nullptr;
    QLabel* m_summary = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};
