// The inputs of the fuzzers as packages: whatever they hold, show and check answer, say in one line
// why they cannot, and leave nothing behind.

#include "tests/cli/RanCommand.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

void expectAnswered(const QString& package)
{
    for (const QString& subcommand : {u"show"_s, u"check"_s}) {
        const RanCommand ran = runCommand({subcommand, package});
        if (ran.status == ExitStatus::Trouble) {
            EXPECT_EQ(ran.answer, QByteArray());
            EXPECT_EQ(ran.errors.count('\n'), 1) << ran.errors.toStdString();
            EXPECT_TRUE(
                ran.errors.startsWith(QByteArray("gaugewright-cli: " + package.toUtf8() + ": ")));
        } else {
            EXPECT_EQ(ran.errors, QByteArray());
        }
        const bool hasAnswer = !ran.answer.isEmpty();
        EXPECT_TRUE(subcommand == u"check" || hasAnswer == (ran.status != ExitStatus::Trouble));
    }
}

class Corpus : public ::testing::Test
{
protected:
    /// Runs the seeds of a fuzzer and the inputs recorded for it.
    /// @param write makes a package at a path of an input
    void runAll(const char* fuzzer, const QString& name,
                const std::function<bool(const QString&, const QByteArray&)>& write)
    {
        const QDir inputs(m_folder.path() + u"/inputs"_s);
        ASSERT_TRUE(inputs.mkpath(u"."_s));
        ASSERT_EQ(QProcess::execute(QString::fromUtf8(fuzzer), {u"--write-seeds"_s, inputs.path()}),
                  0);
        const QString package = m_folder.filePath(u"package"_s);
        const QStringList before = FolderTools::names(QDir::tempPath());
        int count = 0;
        for (const QDir& folder :
             {inputs, QDir(QStringLiteral(SOURCE_DIR "/tests/fuzz_regression/") + name)}) {
            for (const QFileInfo& input : folder.entryInfoList(QDir::Files)) {
                SCOPED_TRACE(input.filePath().toStdString());
                ASSERT_TRUE(write(package, TestPackage::readFile(input.filePath())));
                expectAnswered(package);
                ++count;
            }
        }
        EXPECT_GT(count, 2);
        EXPECT_EQ(FolderTools::names(QDir::tempPath()), before);
    }

    const QTemporaryDir m_folder;
};

} // namespace

TEST_F(Corpus, Archives)
{
    runAll(UNPACK_FUZZER, u"unpack_fuzzer"_s, TestPackage::writeFile);
}

TEST_F(Corpus, Overlays)
{
    runAll(OVERLAY_FUZZER, u"overlay_fuzzer"_s, [](const QString& path, const QByteArray& input) {
        return TestPackage::writePackage(path, input,
                                         TestPackage::deviceXml("MXG", 12, {{7, "A", "a", "x"}}));
    });
}

TEST_F(Corpus, DeviceFiles)
{
    runAll(DEVICE_FUZZER, u"device_fuzzer"_s, [](const QString& path, const QByteArray& input) {
        return TestPackage::writePackage(
            path, TestPackage::overlayXml({TestPackage::page("Race", 800, 480)}), input);
    });
}
