#pragma once

#include "driver/DialogDriver.h"

/// A DialogDriver for tests: an unexpected dialog fails the test, and so does an answer that was
/// not needed by the time the driver is destroyed.
class ModalDriver : public DialogDriver
{
public:
    ModalDriver();
    ~ModalDriver();
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;

    /// Fails the running test. For every driver used in tests.
    static void reportFailure(const QString& text);

    /// A message box with exactly this content, answered by clicking a button.
    void expectBox(QMessageBox::Icon icon, const QString& title, const QString& text,
                   QMessageBox::StandardButtons buttons, QMessageBox::StandardButton press);
    /// The same with OK only.
    void expectBox(QMessageBox::Icon icon, const QString& title, const QString& text);
};
