#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Interruption.h"

#include <QFile>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <csignal>
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

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

int main(int argc, char** argv)
{
#ifndef Q_OS_WIN
    // A write beyond the limit on file sizes then fails and is reported.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    const QStringList arguments = argumentsOf(argc, argv);
    // Qt would take options of its own out of the arguments, and files of that name.
    int nameOnly = std::min(argc, 1);
    const std::unique_ptr<QCoreApplication> application =
        CommandLine::needsGui(arguments) ? makeGuiApplication(nameOnly, argv)
                                         : std::make_unique<QCoreApplication>(nameOnly, argv);
    QCoreApplication::setApplicationName(QStringLiteral("gaugewright-cli"));
    QFile answer;
    QFile errors;
    if (!answer.open(stdout, QIODevice::WriteOnly) ||
        !errors.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return static_cast<int>(ExitStatus::Trouble);
    Console console(answer, errors, isTerminal(2));
    const ExitStatus status = CommandLine::run(arguments, console);
    return static_cast<int>(console.flush() ? status : ExitStatus::Trouble);
}
