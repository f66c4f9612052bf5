#include "tests/cli/RanCommand.h"

#include "cli/CommandLine.h"
#include "cli/Console.h"

#include <QBuffer>
#include <QJsonDocument>

#include <gtest/gtest.h>

QJsonObject RanCommand::json() const
{
    return QJsonDocument::fromJson(answer).object();
}

RanCommand runCommand(const QStringList& arguments)
{
    QBuffer answer;
    QBuffer errors;
    EXPECT_TRUE(answer.open(QIODevice::WriteOnly) && errors.open(QIODevice::WriteOnly));
    Console console(answer, errors, false);
    const ExitStatus status = CommandLine::run(arguments, console);
    EXPECT_TRUE(console.flush());
    return {status, answer.data(), errors.data()};
}
