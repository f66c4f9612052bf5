#include "samples/tour/DialogAnswers.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

DialogAnswers::DialogAnswers(std::function<void(const QString&)> report)
    : m_report(std::move(report))
{
    pollAgain();
}

// A new timer each time: one that is still in its slot would not fire in the event loop of a dialog
// that an answer opens.
void DialogAnswers::pollAgain()
{
    constexpr int kPollInterval = 5; // milliseconds
    QTimer::singleShot(kPollInterval, &m_context, [this] { answerOpenDialog(); });
}

void DialogAnswers::answerOpenDialog()
{
    pollAgain();
    QWidget* const dialog = QApplication::activeModalWidget();
    if (!dialog)
        return;
    if (!m_answers.empty()) {
        // Taken off first: the answer may open the next dialog before it returns.
        const auto answer = std::move(m_answers.front());
        m_answers.pop_front();
        if (answer(dialog))
            return;
    }
    m_report(QStringLiteral("unexpected dialog \"%1\"").arg(dialog->windowTitle()));
    dialog->close();
}
