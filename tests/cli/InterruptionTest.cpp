// The program in the middle of its work, ended by a signal.

#include "cli/Interruption.h"

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};

/// Sends the signal to another thread of this process while the main thread is in a pause, and
/// writes the file before that ends.
[[noreturn]] void interruptInAPause(const QString& guarded, const QString& file)
{
    std::thread other([] { ::pause(); });
    {
        const Interruption::Pause pause;
        Interruption::setFolder(guarded);
        pthread_kill(other.native_handle(), SIGTERM);
        QThread::msleep(200);
        static_cast<void>(TestPackage::writeFile(file, "complete"));
    }
    _exit(0); // not reached: the signal was only put off
}

/// Waits for a recording that never comes, the package unpacked.
class InterruptionTest : public ::testing::TestWithParam<int>
{
protected:
    InterruptionTest()
    {
        EXPECT_EQ(mkfifo(QFile::encodeName(m_recording).constData(), 0600), 0);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"TMPDIR"_s, m_temporary.path());
        m_program.setProcessEnvironment(environment);
        // A shell lets its background jobs ignore some of them, nohup another.
        m_program.setChildProcessModifier([] {
            for (const int signal : kSignals)
                ::signal(signal, SIG_DFL);
        });
    }
    ~InterruptionTest() override
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    void start(const QString& before = {})
    {
        const QString command =
            before + QStringLiteral("exec '%1' check '%2' --recording '%3'")
                         .arg(QStringLiteral(CLI_PROGRAM),
                              QStringLiteral(SAMPLES_DIR "/compact.zconf2"), m_recording);
        m_program.start(u"/bin/sh"_s, {u"-c"_s, command});
        QElapsedTimer timer;
        timer.start();
        while (!isUnpacked() && timer.elapsed() < 30'000)
            QThread::msleep(5);
        ASSERT_TRUE(isUnpacked());
    }

    [[nodiscard]] bool isUnpacked() const
    {
        return QDirIterator(m_temporary.path(), {u"*.aimcfg"_s}, QDir::Files,
                            QDirIterator::Subdirectories)
            .hasNext();
    }

    void send(int signal) { ::kill(static_cast<pid_t>(m_program.processId()), signal); }

    const QTemporaryDir m_folder;
    const QTemporaryDir m_temporary;
    const QString m_recording = m_folder.filePath(u"never.xrk"_s);
    QProcess m_program;
};

} // namespace

TEST_P(InterruptionTest, RemovesTheUnpackFolder)
{
    start();
    send(GetParam());
    ASSERT_TRUE(m_program.waitForFinished());
    EXPECT_EQ(m_program.exitStatus(), QProcess::CrashExit) << "ended by the signal";
    EXPECT_EQ(m_program.exitCode(), GetParam());
    EXPECT_EQ(FolderTools::names(m_temporary.path()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptionTest, ::testing::ValuesIn(kSignals));

TEST_F(InterruptionTest, IsIgnoredWhereTheCallerWantsThat)
{
    start(u"trap '' HUP; "_s);
    send(SIGHUP);
    EXPECT_FALSE(m_program.waitForFinished(200));
    EXPECT_TRUE(isUnpacked());
    send(SIGTERM);
    ASSERT_TRUE(m_program.waitForFinished());
    EXPECT_EQ(FolderTools::names(m_temporary.path()), QStringList());
}

TEST_F(InterruptionTest, IsPutOffInAPauseWhicheverThreadTheSignalReaches)
{
    const QString guarded = m_folder.filePath(u"guarded"_s);
    const QString file = m_folder.filePath(u"file"_s);
    ASSERT_TRUE(QDir().mkdir(guarded));
    const pid_t child = fork();
    if (child == 0)
        interruptInAPause(guarded, file);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
    EXPECT_EQ(TestPackage::readFile(file), "complete");
    EXPECT_FALSE(QFileInfo::exists(guarded));
}
