#include "tests/support/FaultInjection.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace FaultInjection {

namespace {

struct State
{
    bool armed = false;
    std::string folder;
    Fault fault;
    int count = 0;
};

State& state()
{
    static State instance;
    return instance;
}

bool liesBelow(const char* path)
{
    const std::string& folder = state().folder;
    return path && std::strncmp(path, folder.c_str(), folder.size()) == 0;
}

bool liesBelow(int descriptor)
{
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    return readlink(link.c_str(), path.data(), path.size() - 1) > 0 && liesBelow(path.data());
}

enum class Verdict
{
    Pass,
    Fail,
    Half
};

/// What happens to a call on a watched file.
Verdict judge(Call call)
{
    State& now = state();
    const Fault& fault = now.fault;
    if (std::find(fault.calls.begin(), fault.calls.end(), call) == fault.calls.end())
        return Verdict::Pass;
    ++now.count;
    const bool first = now.count == fault.number;
    const bool later = now.count > fault.number;
    if (first && fault.effect == Effect::Kill)
        std::raise(SIGKILL);
    if (first && fault.effect == Effect::Short)
        return Verdict::Half;
    if (!first && (!later || fault.effect == Effect::Fail))
        return Verdict::Pass;
    errno = fault.error;
    return Verdict::Fail;
}

template <typename File>
Verdict judge(Call call, File file)
{
    return state().armed && liesBelow(file) ? judge(call) : Verdict::Pass;
}

} // namespace

void arm(const QByteArray& folder, const Fault& fault)
{
    state() = {true, folder.toStdString(), fault, 0};
}

bool disarm()
{
    state().armed = false;
    return state().count >= state().fault.number;
}

} // namespace FaultInjection

using FaultInjection::Call;
using FaultInjection::judge;
using FaultInjection::Verdict;

namespace {

/// The C library's own function of that type and name.
template <typename Function>
Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// The C library's functions as the rest of the process sees them. Declared without its headers'
// attributes where those differ between versions; those headers use names reserved to them.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int open64(const char* path, int flags, ...) // NOLINT: its signature
{
    static auto* const next = real<int(const char*, int, ...)>("open64");
    mode_t mode = 0;
    if ((flags & (O_CREAT | __O_TMPFILE)) != 0) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    return judge(Call::Open, path) == Verdict::Pass ? next(path, flags, mode) : -1;
}

FILE* fopen(const char* path, const char* mode)
{
    static auto* const next = real<FILE*(const char*, const char*)>("fopen");
    return judge(Call::Open, path) == Verdict::Pass ? next(path, mode) : nullptr;
}

ssize_t read(int file, void* buffer, size_t size)
{
    static auto* const next = real<ssize_t(int, void*, size_t)>("read");
    return judge(Call::Read, file) == Verdict::Pass ? next(file, buffer, size) : -1;
}

size_t fread(void* buffer, size_t size, size_t count, FILE* file)
{
    static auto* const next = real<size_t(void*, size_t, size_t, FILE*)>("fread");
    return judge(Call::Read, fileno(file)) == Verdict::Pass ? next(buffer, size, count, file) : 0;
}

ssize_t write(int file, const void* buffer, size_t size)
{
    static auto* const next = real<ssize_t(int, const void*, size_t)>("write");
    const Verdict verdict = judge(Call::Write, file);
    if (verdict == Verdict::Fail)
        return -1;
    return next(file, buffer, verdict == Verdict::Half ? size / 2 : size);
}

off64_t lseek64(int file, off64_t offset, int origin) noexcept
{
    static auto* const next = real<off64_t(int, off64_t, int)>("lseek64");
    return judge(Call::Seek, file) == Verdict::Pass ? next(file, offset, origin) : -1;
}

int ftruncate64(int file, off64_t size) noexcept
{
    static auto* const next = real<int(int, off64_t)>("ftruncate64");
    return judge(Call::Truncate, file) == Verdict::Pass ? next(file, size) : -1;
}

int fsync(int file)
{
    static auto* const next = real<int(int)>("fsync");
    return judge(Call::Sync, file) == Verdict::Pass ? next(file) : -1;
}

int fdatasync(int file)
{
    static auto* const next = real<int(int)>("fdatasync");
    return judge(Call::Sync, file) == Verdict::Pass ? next(file) : -1;
}

int close(int file)
{
    static auto* const next = real<int(int)>("close");
    const Verdict verdict = judge(Call::Close, file);
    const int error = errno;
    const int result = next(file); // the descriptor is gone either way
    if (verdict == Verdict::Pass)
        return result;
    errno = error;
    return -1;
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    static auto* const next = real<int(int, const char*, int, const char*, int)>("linkat");
    return judge(Call::Link, to) == Verdict::Pass ? next(fromFolder, from, toFolder, to, flags)
                                                  : -1;
}

int rename(const char* from, const char* to) noexcept
{
    static auto* const next = real<int(const char*, const char*)>("rename");
    return judge(Call::Rename, to) == Verdict::Pass ? next(from, to) : -1;
}

int mkdir(const char* path, mode_t mode) noexcept
{
    static auto* const next = real<int(const char*, mode_t)>("mkdir");
    return judge(Call::MakeFolder, path) == Verdict::Pass ? next(path, mode) : -1;
}

int stat(const char* path, struct stat* status) noexcept
{
    static auto* const next = real<int(const char*, struct stat*)>("stat");
    return judge(Call::Look, path) == Verdict::Pass ? next(path, status) : -1;
}

int statvfs(const char* path, struct statvfs* status) noexcept
{
    static auto* const next = real<int(const char*, struct statvfs*)>("statvfs");
    const int result = next(path, status);
    if (judge(Call::Space, path) != Verdict::Pass)
        status->f_bavail = 0;
    return result;
}

struct dirent64* readdir64(DIR* folder)
{
    static auto* const next = real<struct dirent64*(DIR*)>("readdir64");
    return judge(Call::List, dirfd(folder)) == Verdict::Pass ? next(folder) : nullptr;
}

struct dirent* readdir(DIR* folder)
{
    static auto* const next = real<struct dirent*(DIR*)>("readdir");
    return judge(Call::List, dirfd(folder)) == Verdict::Pass ? next(folder) : nullptr;
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
