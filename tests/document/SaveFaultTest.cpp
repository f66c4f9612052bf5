// Every system call that a save makes fails once, and the process dies at every one of them.

#include "tests/document/FaultScenario.h"
#include "tests/document/OpenPackageFixture.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <cerrno>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

using FaultInjection::Call;
using FaultInjection::Effect;

namespace {

constexpr int kEndless = 10000; ///< more calls of a kind than any save here makes

class SaveFaultTest : public OpenPackageFixture, public testing::WithParamInterface<FaultScenario>
{
protected:
    /// Saves until a save passes without the fault. @param prepare is called before each save
    void saveWithFaults(const std::function<void()>& prepare)
    {
        int number = 1;
        for (bool struck = true; struck && !HasFailure(); ++number) {
            ASSERT_LT(number, kEndless);
            SCOPED_TRACE(number);
            prepare();
            FaultInjection::arm(world(), GetParam().at(number));
            const bool saved = m_document->save(m_package);
            struck = FaultInjection::disarm();
            if (!struck) {
                EXPECT_TRUE(saved);
            }
            expectNothingLost(saved);
        }
        EXPECT_GT(number, 2) << "no call of this kind was made";
    }
};
class SaveKillTest : public OpenPackageFixture
{
};

} // namespace

TEST_P(SaveFaultTest, LosesNothingWhicheverCallFails)
{
    saveWithFaults([] {});
}

TEST_P(SaveFaultTest, LosesNothingWhenThePackageHasChanged)
{
    saveWithFaults([this] { changePackage(); });
}

TEST_P(SaveFaultTest, LosesNothingWhenTheFolderIsEmpty)
{
    saveWithFaults([this] { emptyFolder(); });
}

INSTANTIATE_TEST_SUITE_P(
    Calls, SaveFaultTest,
    testing::Values(FaultScenario{"OpenFails", Call::Open, Effect::Fail, EIO},
                    FaultScenario{"NoDescriptorsFromHereOn", Call::Open, Effect::FailOnward,
                                  EMFILE},
                    FaultScenario{"ReadFails", Call::Read, Effect::Fail, EIO},
                    FaultScenario{"WriteFails", Call::Write, Effect::Fail, EIO},
                    FaultScenario{"DiskFullFromHereOn", Call::Write, Effect::FailOnward, ENOSPC},
                    FaultScenario{"WriteFallsShort", Call::Write, Effect::Short, ENOSPC},
                    FaultScenario{"SeekFails", Call::Seek, Effect::Fail, EIO},
                    FaultScenario{"SyncFails", Call::Sync, Effect::Fail, EIO},
                    FaultScenario{"QuotaNoticedAtSync", Call::Sync, Effect::FailOnward, EDQUOT},
                    FaultScenario{"CloseFails", Call::Close, Effect::Fail, EIO},
                    FaultScenario{"LinkFails", Call::Link, Effect::Fail, EPERM},
                    FaultScenario{"RenameFails", Call::Rename, Effect::Fail, EACCES},
                    FaultScenario{"ListingFails", Call::List, Effect::Fail, EIO},
                    FaultScenario{"FolderCannotBeListed", Call::List, Effect::FailOnward, EIO},
                    FaultScenario{"EntryCannotBeLookedAt", Call::Look, Effect::Fail, EIO}),
    titleOf);

TEST_F(SaveKillTest, LeavesTheOldPackageOrTheNewOne)
{
    const std::vector<Call> all(std::begin(FaultInjection::kCalls),
                                std::end(FaultInjection::kCalls));
    bool killed = true;
    for (int number = 1; killed && !HasFailure(); ++number) {
        ASSERT_LT(number, kEndless);
        SCOPED_TRACE(number);
        const pid_t child = fork();
        if (child == 0) {
            FaultInjection::arm(world(), {all, number, Effect::Kill});
            _exit(m_document->save(m_package) ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        killed = WIFSIGNALED(status);
        if (!killed) {
            EXPECT_EQ(WEXITSTATUS(status), 0);
        }
        if (TestPackage::readFile(m_package) != m_old) {
            EXPECT_TRUE(isComplete(m_package, kMoved));
        }
        // Between getting its name and being renamed the new package stands beside the old one.
        for (const QString& name : FolderTools::names(m_folder)) {
            const QString path = m_folder + u'/' + name;
            if (path == m_package)
                continue;
            EXPECT_TRUE(isComplete(path, kMoved));
            QFile::remove(path);
        }
        TestPackage::writeFile(m_package, m_old);
        reopen(); // as after starting the program again
        EXPECT_TRUE(m_document->save(m_package));
        expectNothingLost(true);
    }
}
