#pragma once

#include <QMessageBox>
#include <QObject>

#include <deque>
#include <functional>
#include <utility>

class QFileDialog;

/// Answers modal dialogs, one prepared answer per dialog, in order. A dialog without an answer, or
/// of another class than expected, is reported and closed, so that the program never hangs.
class DialogDriver
{
public:
    /// Called with one sentence for each failure.
    using Report = std::function<void(const QString&)>;

    explicit DialogDriver(Report report);

    /// Prepares an answer for a dialog of class Dialog. The answer must close the dialog.
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

    /// Answers a file dialog by typing the path and pressing Return.
    void chooseFile(const QString& path);
    /// Answers a dialog of any class with Escape.
    void cancel();

    /// Number of prepared answers whose dialog has not appeared yet.
    [[nodiscard]] std::size_t pending() const { return m_answers.size(); }

    // For use in answers. Both end the program when the dialog lacks the widget.
    static void typePath(QFileDialog& dialog, const QString& path);
    static void press(QMessageBox& box, QMessageBox::StandardButton button);

private:
    /// Returns whether the dialog has the expected class.
    using Answer = std::function<bool(QWidget*)>;

    void pollLater();
    void poll();

    Report m_report;
    std::deque<Answer> m_answers;
    QWidget* m_answering = nullptr; // its answer is still running, which may take a while
    QObject m_context;              // stops the polling when the driver is destroyed
};
