#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <utility>

class QWidget;

/// Answers the modal dialogs that the window opens, in the order in which the answers were given.
/// A dialog that nobody expects, or of another kind than expected, is closed and reported, so that
/// the tour never hangs.
class DialogAnswers
{
public:
    /// report is called with a sentence for every dialog that was not expected.
    explicit DialogAnswers(std::function<void(const QString&)> report);

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

    /// Whether every expected dialog has appeared.
    [[nodiscard]] bool allGiven() const { return m_answers.empty(); }

private:
    void pollAgain();
    void answerOpenDialog();

    std::function<void(const QString&)> m_report;
    std::deque<std::function<bool(QWidget*)>> m_answers;
    QObject m_context; // ends the polling when it goes
};
