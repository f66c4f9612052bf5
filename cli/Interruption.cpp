#include "cli/Interruption.h"

#include <QFile>

#include <array>
#include <cstring>

#ifdef Q_OS_WIN
#include <filesystem>
#include <mutex>
#include <string>
#include <system_error>
#include <windows.h>
#else
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

#ifdef Q_OS_WIN

namespace {

std::mutex folderGuard;
std::wstring guardedFolder;

/// Runs in a thread of its own while the program goes on. A file that is open cannot be removed.
BOOL WINAPI removeFolder(DWORD /*event*/)
{
    const std::scoped_lock lock(folderGuard);
    std::error_code error;
    if (!guardedFolder.empty())
        std::filesystem::remove_all(guardedFolder, error);
    return FALSE; // the next handler ends the program
}

} // namespace

void Interruption::setFolder(const QString& folder)
{
    const std::scoped_lock lock(folderGuard);
    guardedFolder = folder.toStdWString();
    SetConsoleCtrlHandler(removeFolder, folder.isEmpty() ? FALSE : TRUE);
}

Interruption::Pause::Pause() = default;
Interruption::Pause::~Pause() = default;

#else

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

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

/// Runs in the main thread, which so stops writing into the folder. A handler may neither allocate
/// nor list folders; to start a program that does is allowed.
void removeFolder(int signal)
{
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
