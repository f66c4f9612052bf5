#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Interruption.h"

#include <QFile>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <memory>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool isTerminal(int descriptor)
{
#ifdef Q_OS_WIN
    return _isatty(descriptor) != 0;
#else
    return isatty(descriptor) != 0;
#endif
}

/// Painting needs a platform of Qt's, but no display. Windows always has one.
std::unique_ptr<QCoreApplication> makeGuiApplication(int& argc, char** argv)
{
#ifndef Q_OS_WIN
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Where the session has no folder for sockets, Qt complains and leaves one behind.
    static constexpr char kSocketFolder[] = "XDG_RUNTIME_DIR";
    if (!qEnvironmentVariableIsSet(kSocketFolder)) {
        const Interruption::Pause untilRemoved;
        const QTemporaryDir sockets;
        qputenv(kSocketFolder, QFile::encodeName(sockets.path()));
        const auto unset = qScopeGuard([] { qunsetenv(kSocketFolder); });
        return std::make_unique<QGuiApplication>(argc, argv);
    }
#endif
    return std::make_unique<QGuiApplication>(argc, argv);
}

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    if (!CommandLine::needsGui(arguments))
        return std::make_unique<QCoreApplication>(argc, argv);
    return makeGuiApplication(argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("gaugewright-cli"));
    QFile answer;
    QFile errors;
    if (!answer.open(stdout, QIODevice::WriteOnly) ||
        !errors.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return static_cast<int>(ExitStatus::Trouble);
    Console console(answer, errors, isTerminal(2));
    const ExitStatus status = CommandLine::run(QCoreApplication::arguments().mid(1), console);
    return static_cast<int>(console.flush() ? status : ExitStatus::Trouble);
}
