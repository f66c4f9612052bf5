#include "tests/support/ModalDriver.h"

#include <QApplication>

#include <gtest/gtest.h>

ModalDriver::ModalDriver() : DialogDriver(reportFailure) {}

ModalDriver::~ModalDriver()
{
    EXPECT_EQ(pending(), 0U) << "expected dialogs that did not appear";
}

void ModalDriver::reportFailure(const QString& text)
{
    ADD_FAILURE() << text.toStdString();
}

void ModalDriver::expectBox(QMessageBox::Icon icon, const QString& title, const QString& text,
                            QMessageBox::StandardButtons buttons, QMessageBox::StandardButton press)
{
    expect<QMessageBox>([=](QMessageBox& box) {
        EXPECT_EQ(box.icon(), icon);
        EXPECT_EQ(box.windowTitle(), title);
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.standardButtons(), buttons);
        EXPECT_NE(box.parentWidget(), nullptr) << "a box that belongs to no window";
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "busy cursor over a message box";
        DialogDriver::press(box, press);
    });
}

void ModalDriver::expectBox(QMessageBox::Icon icon, const QString& title, const QString& text)
{
    expectBox(icon, title, text, QMessageBox::Ok, QMessageBox::Ok);
}
