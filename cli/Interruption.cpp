#include "cli/Interruption.h"

#include <QFile>

#include <array>
#include <cstring>

#ifdef Q_OS_WIN
#include <QDir>

#include <mutex>
#include <windows.h>
#else
#include <csignal>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#ifdef Q_OS_WIN

namespace {

std::mutex guard;
QString guardedFolder;

/// Runs in a thread of its own. Keeps the guard, so that the program does not begin anything that
/// must not be left half done. Files that are open cannot be removed; all others are.
BOOL WINAPI removeFolder(DWORD /*event*/)
{
    guard.lock();
    if (!guardedFolder.isEmpty())
        QDir(guardedFolder).removeRecursively();
    return FALSE; // the next handler ends the program
}

} // namespace

void Interruption::setFolder(const QString& folder)
{
    guardedFolder = folder;
    SetConsoleCtrlHandler(removeFolder, folder.isEmpty() ? FALSE : TRUE);
}

Interruption::Pause::Pause()
{
    guard.lock();
}

Interruption::Pause::~Pause()
{
    guard.unlock();
}

#else

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};

pthread_t mainThread{};

// Read by the handler, so nothing that allocates. Empty while there is no folder.
std::array<char, 4096> guardedFolder{};

sigset_t allSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : kSignals)
        sigaddset(&set, signal);
    return set;
}

/// Runs in the main thread, which so stops writing into the folder, and which a pause protects. A
/// handler may neither allocate nor list folders; to start a program that does is allowed.
void removeFolder(int signal)
{
    if (pthread_equal(pthread_self(), mainThread) == 0) { // one that Qt or a reader library started
        pthread_kill(mainThread, signal);
        return;
    }
    const pid_t child = guardedFolder[0] != '\0' ? fork() : -1;
    if (child == 0) {
        execl("/bin/rm", "rm", "-rf", "--", guardedFolder.data(), nullptr);
        _exit(1);
    }
    if (child > 0)
        waitpid(child, nullptr, 0);
    std::signal(signal, SIG_DFL);
    raise(signal); // delivered when the handler returns
}

void install(int signal)
{
    struct sigaction action
    {
    };
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        return; // as nohup wants it
    action = {};
    action.sa_handler = removeFolder;
    action.sa_mask = allSignals(); // a second Ctrl+C does not stop the removal
    sigaction(signal, &action, nullptr);
}

} // namespace

void Interruption::setFolder(const QString& folder)
{
    const QByteArray path = QFile::encodeName(folder);
    guardedFolder.fill('\0');
    if (path.size() < static_cast<qsizetype>(guardedFolder.size()))
        std::memcpy(guardedFolder.data(), path.constData(), static_cast<std::size_t>(path.size()));
    mainThread = pthread_self();
    for (const int signal : kSignals)
        install(signal);
}

Interruption::Pause::Pause()
{
    const sigset_t set = allSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

Interruption::Pause::~Pause()
{
    const sigset_t set = allSignals();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

#endif
