// A program in the middle of its work, ended by an event of its console.

#include "cli/Interruption.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <windows.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSoon = 20'000; // milliseconds; by itself the program ends after a minute

class InterruptionWindowsTest : public testing::TestWithParam<DWORD>
{
protected:
    InterruptionWindowsTest()
    {
        m_program.setCreateProcessArgumentsModifier(
            [](QProcess::CreateProcessArguments* arguments) {
                arguments->flags |= CREATE_NO_WINDOW; // a console that is not the test's
            });
        EXPECT_TRUE(TestPackage::writeFile(m_guarded + u"/Größe/file"_s, "x"));
        m_program.start(QStringLiteral(GUARDED_PROGRAM), {m_guarded, m_file});
        m_program.waitForReadyRead();
        EXPECT_EQ(m_program.readAllStandardOutput().trimmed(), "ready");
    }
    ~InterruptionWindowsTest() override
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    void raise()
    {
        ASSERT_EQ(QProcess::execute(
                      QStringLiteral(CONSOLE_EVENT),
                      {QString::number(m_program.processId()), QString::number(GetParam())}),
                  0);
    }

    const QTemporaryDir m_folder;
    const QString m_guarded = m_folder.filePath(u"guarded"_s);
    const QString m_file = m_folder.filePath(u"file"_s);
    QProcess m_program;
};

std::string nameOf(const testing::TestParamInfo<DWORD>& event)
{
    return event.param == CTRL_C_EVENT ? "CtrlC" : "CtrlBreak";
}

} // namespace

TEST_P(InterruptionWindowsTest, RemovesTheFolder)
{
    while (!QFileInfo::exists(m_file))
        QThread::msleep(5);
    raise();
    ASSERT_TRUE(m_program.waitForFinished(kSoon));
    EXPECT_FALSE(QFileInfo::exists(m_guarded));
}

TEST_P(InterruptionWindowsTest, IsPutOffInAPause)
{
    ASSERT_FALSE(QFileInfo::exists(m_file));
    raise();
    ASSERT_TRUE(m_program.waitForFinished(kSoon));
    EXPECT_EQ(TestPackage::readFile(m_file), "complete");
    EXPECT_FALSE(QFileInfo::exists(m_guarded));
}

INSTANTIATE_TEST_SUITE_P(Events, InterruptionWindowsTest,
                         testing::Values(CTRL_C_EVENT, CTRL_BREAK_EVENT), nameOf);
