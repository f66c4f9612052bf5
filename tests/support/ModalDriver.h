#pragma once

#include <QMessageBox>
#include <QObject>

#include <deque>
#include <functional>
#include <utility>

class QFileDialog;

/// Answers the modal dialogs that the code under test opens, in the order in which the answers were
/// given. A dialog that nobody expects fails the test and is closed, so that a test never hangs; an
/// answer that was never needed fails the test when the driver is destroyed.
class ModalDriver
{
public:
    ModalDriver();
    ~ModalDriver();
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;

    /// The next dialog must be a Dialog; answer is called with it and must close it.
    template <typename Dialog>
    void expect(std::function<void(Dialog&)> answer)
    {
        m_answers.push_back([answer = std::move(answer)](QWidget* widget) {
            auto* const dialog = qobject_cast<Dialog*>(widget);
            if (dialog)
                answer(*dialog);
            return dialog != nullptr;
        });
    }

    /// A file dialog, answered by typing the path and pressing Return.
    void chooseFile(const QString& path);
    /// A dialog of any kind, answered with Escape.
    void cancel();
    /// A message box with exactly this content, answered by clicking a button.
    void expectBox(QMessageBox::Icon icon, const QString& title, const QString& text,
                   QMessageBox::StandardButtons buttons, QMessageBox::StandardButton press);
    /// The same with OK only.
    void expectBox(QMessageBox::Icon icon, const QString& title, const QString& text);

    // What answers are made of, as a user would do it.
    static void typePath(QFileDialog& dialog, const QString& path);
    static void press(QMessageBox& box, QMessageBox::StandardButton button);

private:
    /// Returns whether the dialog is of the expected kind.
    using Answer = std::function<bool(QWidget*)>;

    void pollLater();
    void poll();

    std::deque<Answer> m_answers;
    QWidget* m_answering = nullptr; // left alone while its answer runs, which may take its time
    QObject m_context;              // of the timers, so that none outlives the driver
};
