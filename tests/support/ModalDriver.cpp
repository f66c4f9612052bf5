#include "tests/support/ModalDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

constexpr int kPollMilliseconds = 1;

} // namespace

ModalDriver::ModalDriver()
{
    // Only Qt's own dialogs are widgets that a test can reach into.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    pollLater();
}

ModalDriver::~ModalDriver()
{
    EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " expected dialog(s) did not appear";
}

void ModalDriver::chooseFile(const QString& path)
{
    expect<QFileDialog>([path](QFileDialog& dialog) { typePath(dialog, path); });
}

void ModalDriver::cancel()
{
    expect<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
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
        ModalDriver::press(box, press);
    });
}

void ModalDriver::expectBox(QMessageBox::Icon icon, const QString& title, const QString& text)
{
    expectBox(icon, title, text, QMessageBox::Ok, QMessageBox::Ok);
}

void ModalDriver::typePath(QFileDialog& dialog, const QString& path)
{
    auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(edit, nullptr);
    edit->setText(path);
    QTest::keyClick(edit, Qt::Key_Return);
}

void ModalDriver::press(QMessageBox& box, QMessageBox::StandardButton button)
{
    ASSERT_NE(box.button(button), nullptr);
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

void ModalDriver::pollLater()
{
    // A new timer each time: one that is being handled does not fire again for a nested dialog.
    QTimer::singleShot(kPollMilliseconds, &m_context, [this] { poll(); });
}

void ModalDriver::poll()
{
    pollLater();
    QWidget* const widget = QApplication::activeModalWidget();
    if (!widget || widget == m_answering)
        return;
    const QScopedValueRollback answering(m_answering, widget);
    if (!m_answers.empty()) {
        // Taken off first: the answer may open the next dialog before it returns.
        const Answer answer = std::move(m_answers.front());
        m_answers.pop_front();
        if (answer(widget))
            return;
    }
    ADD_FAILURE() << "unexpected dialog: " << widget->windowTitle().toStdString();
    widget->close();
}
