#include "tests/support/Unprivileged.h"

#include <gtest/gtest.h>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kNobody = 65534;

enum ExitCode
{
    kNo,
    kYes,
    kPrivileged ///< the child could not drop its rights
};

bool dropPrivileges()
{
    return geteuid() != 0 ||
           (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0);
}

ExitCode answer(const std::function<bool()>& body)
{
    if (!dropPrivileges())
        return kPrivileged;
    return body() ? kYes : kNo;
}

} // namespace

bool runUnprivileged(const std::function<bool()>& body)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(answer(body));
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        ADD_FAILURE() << "there is no child process";
    else if (!WIFEXITED(status))
        ADD_FAILURE() << "the child process died of signal " << WTERMSIG(status);
    else if (WEXITSTATUS(status) != kYes && WEXITSTATUS(status) != kNo)
        ADD_FAILURE() << "the child process gave no answer but " << WEXITSTATUS(status);
    return WIFEXITED(status) && WEXITSTATUS(status) == kYes;
}
