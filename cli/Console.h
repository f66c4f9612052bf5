#pragma once

#include "cli/Subcommands.h"

#include <QByteArray>
#include <QString>

class QIODevice;
class QJsonObject;

/// Where a subcommand's answer, its errors and its progress go. The answer is held back until
/// flush, so that a reader that closes its end early cannot end the program before it has cleaned
/// up.
class Console
{
public:
    /// The devices must be open for writing and outlive the console.
    /// @param showsProgress whether somebody watches the errors, a terminal for example
    Console(QIODevice& answer, QIODevice& errors, bool showsProgress);

    /// Silences progress.
    void setQuiet() { m_showsProgress = false; }

    void print(const QString& line);
    void print(const QJsonObject& object);

    /// One line: "gaugewright-cli: SUBJECT: reason".
    /// @param subject the file that it is about, as the user named it, or the subcommand
    /// @return the status to end with
    ExitStatus fail(const QString& subject, const QString& reason);
    void progress(const QString& text);

    /// Writes the answer. False, and says so, when it cannot be written completely.
    [[nodiscard]] bool flush();

private:
    QIODevice& m_answer;
    QIODevice& m_errors;
    bool m_showsProgress;
    QByteArray m_pending;
};
