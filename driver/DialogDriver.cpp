#include "driver/DialogDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>

DialogDriver::DialogDriver(Report report) : m_report(std::move(report))
{
    // Native dialogs have no widgets to operate.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    pollLater();
}

void DialogDriver::chooseFile(const QString& path)
{
    expect<QFileDialog>([path](QFileDialog& dialog) { typePath(dialog, path); });
}

void DialogDriver::cancel()
{
    expect<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

void DialogDriver::typePath(QFileDialog& dialog, const QString& path)
{
    auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!edit)
        qFatal("the file dialog has no field for a name");
    edit->setText(path);
    QTest::keyClick(edit, Qt::Key_Return);
}

void DialogDriver::press(QMessageBox& box, QMessageBox::StandardButton button)
{
    if (!box.button(button))
        qFatal("the message box has no button %#x", static_cast<unsigned>(button));
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

void DialogDriver::pollLater()
{
    constexpr int kPollMilliseconds = 1;
    // A new timer each time: a timer that is being handled does not fire for a nested dialog.
    QTimer::singleShot(kPollMilliseconds, &m_context, [this] { poll(); });
}

void DialogDriver::poll()
{
    pollLater();
    QWidget* const widget = QApplication::activeModalWidget();
    if (!widget || widget == m_answering)
        return;
    const QScopedValueRollback answering(m_answering, widget);
    if (!m_answers.empty()) {
        // Removed first: the answer may open the next dialog before it returns.
        const Answer answer = std::move(m_answers.front());
        m_answers.pop_front();
        if (answer(widget))
            return;
    }
    m_report(QStringLiteral("unexpected dialog: ") + widget->windowTitle());
    widget->close();
}
