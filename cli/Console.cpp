#include "cli/Console.h"

#include "cli/CliText.h"
#include "review/FactText.h"

#include <QFileDevice>
#include <QJsonDocument>
#include <QJsonObject>

Console::Console(QIODevice& answer, QIODevice& errors, bool showsProgress)
    : m_answer(answer),
      m_errors(errors),
      m_showsProgress(showsProgress)
{
}

void Console::print(const QString& line)
{
    m_pending += line.toUtf8() + '\n';
}

void Console::print(const QJsonObject& object)
{
    m_pending += QJsonDocument(object).toJson();
}

ExitStatus Console::fail(const QString& subject, const QString& reason)
{
    m_errors.write(QStringLiteral("gaugewright-cli: %1: %2\n")
                       .arg(FactText::oneLine(subject), FactText::oneLine(reason))
                       .toUtf8());
    return ExitStatus::Trouble;
}

void Console::progress(const QString& text)
{
    if (m_showsProgress)
        m_errors.write(FactText::oneLine(text).toUtf8() + '\n');
}

bool Console::flush()
{
    const bool written = m_answer.write(m_pending) == m_pending.size();
    m_pending.clear();
    auto* const file = qobject_cast<QFileDevice*>(&m_answer);
    if (written && (!file || file->flush()))
        return true;
    fail(CliText::tr("standard output"), m_answer.errorString());
    return false;
}
