#include "tests/support/Unprivileged.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

TEST(UnprivilegedTest, HandsOverTheAnswer)
{
    EXPECT_TRUE(runUnprivileged([] { return true; }));
    EXPECT_FALSE(runUnprivileged([] { return false; }));
}

TEST(UnprivilegedTest, RunsWithoutRights)
{
    EXPECT_TRUE(runUnprivileged([] { return geteuid() != 0 && getegid() != 0; }));
}

TEST(UnprivilegedTest, TakesADeadChildForNoAnswer)
{
    const auto killed = [] {
        static_cast<void>(runUnprivileged([] { return std::raise(SIGKILL) == 0; }));
    };
    EXPECT_NONFATAL_FAILURE(killed(), "died of signal 9");
    const auto ended = [] { static_cast<void>(runUnprivileged([]() -> bool { _exit(77); })); };
    EXPECT_NONFATAL_FAILURE(ended(), "no answer but 77");
}
