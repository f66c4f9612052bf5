#include "cli/CommandLine.h"

#include "cli/Console.h"
#include "tests/cli/RanCommand.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList kSubcommands{u"show"_s,   u"diff"_s,     u"check"_s,
                               u"render"_s, u"channels"_s, u"recover"_s};

/// A wrong usage: status 2, one line of error with that text, no answer.
void expectRefused(const QStringList& arguments, const QByteArray& text)
{
    const RanCommand ran = runCommand(arguments);
    EXPECT_EQ(ran.status, ExitStatus::Trouble) << arguments.join(u' ').toStdString();
    EXPECT_EQ(ran.answer, QByteArray());
    EXPECT_EQ(ran.errors.count('\n'), 1) << ran.errors.toStdString();
    EXPECT_TRUE(ran.errors.startsWith("gaugewright-cli: ")) << ran.errors.toStdString();
    EXPECT_TRUE(ran.errors.contains(text)) << ran.errors.toStdString();
}

} // namespace

TEST(CommandLine, HelpListsEverySubcommand)
{
    const RanCommand ran = runCommand({u"--help"_s});
    EXPECT_EQ(ran.status, ExitStatus::Clean);
    for (const QString& name : kSubcommands)
        EXPECT_TRUE(ran.answer.contains(QByteArray("\n  " + name.toUtf8() + ' ')))
            << name.toStdString();
}

TEST(CommandLine, EverySubcommandHasHelp)
{
    for (const QString& name : kSubcommands) {
        const RanCommand ran = runCommand({name, u"--help"_s});
        EXPECT_EQ(ran.status, ExitStatus::Clean);
        EXPECT_TRUE(
            ran.answer.startsWith(QByteArray("Usage: gaugewright-cli " + name.toUtf8() + ' ')))
            << ran.answer.toStdString();
        for (const char* const option : {"--help", "--quiet", "--format"})
            EXPECT_TRUE(ran.answer.contains(option)) << name.toStdString();
    }
}

TEST(CommandLine, LeavesTheVariableForTemporaryFilesAsItWas)
{
    constexpr auto kVariable = FolderTools::kTempVariable;
    const bool wasSet = qEnvironmentVariableIsSet(kVariable);
    const QByteArray former = qgetenv(kVariable);
    const QTemporaryDir folder;
    qputenv(kVariable, QFile::encodeName(folder.path()));
    static_cast<void>(runCommand({u"show"_s, u"missing"_s}));
    EXPECT_EQ(qgetenv(kVariable), QFile::encodeName(folder.path()));
    qunsetenv(kVariable);
    static_cast<void>(runCommand({u"show"_s, u"missing"_s}));
    EXPECT_FALSE(qEnvironmentVariableIsSet(kVariable));
    if (wasSet)
        qputenv(kVariable, former);
}

TEST(CommandLine, SaysItsVersion)
{
    EXPECT_TRUE(runCommand({u"--version"_s}).answer.startsWith("gaugewright-cli 0."));
}

TEST(CommandLine, RefusesWrongUsageInOneLine)
{
    expectRefused({}, "subcommand is missing");
    expectRefused({u"frob\nnicate"_s}, "frob\\u000anicate");
    expectRefused({u"show"_s}, "show: PACKAGE is missing");
    expectRefused({u"diff"_s, u"a"_s}, "NEW is missing");
    expectRefused({u"show"_s, u"a"_s, u"b"_s}, "Too many arguments: \"b\"");
    expectRefused({u"show"_s, u"a"_s, u"--frob"_s}, "frob");
    expectRefused({u"show"_s, u"a"_s, u"--format"_s, u"xml"_s}, "Unknown format \"xml\"");
    expectRefused({u"check"_s, u"a"_s, u"--ignore"_s, u"covered,frob"_s},
                  "Unknown finding \"frob\"");
    expectRefused({u"check"_s, u"a"_s, u"--severity"_s, u"bad"_s}, "Unknown severity \"bad\"");
    expectRefused({u"recover"_s, u"a"_s}, "belong together");
    expectRefused({u"recover"_s, u"--output"_s, u"a"_s}, "belong together");
    expectRefused({u"render"_s, u"a"_s}, "--output FOLDER is missing");
    const QStringList render{u"render"_s, u"a"_s, u"--output"_s, u"b"_s};
    for (const QString& page : {u"0"_s, u"-1"_s, u"1.5"_s, u"x"_s, u"1e99"_s})
        expectRefused(render + QStringList{u"--page"_s, page}, "--page counts from 1");
    for (const QString& scale : {u"0"_s, u"-1"_s, u"nan"_s, u"inf"_s, u"x"_s})
        expectRefused(render + QStringList{u"--scale"_s, scale}, "--scale is a number above 0");
    expectRefused(render + QStringList{u"--at"_s, u"5"_s}, "need --recording");
    expectRefused(render + QStringList{u"--recording"_s, u"c"_s, u"--at"_s, u"x"_s}, "--at is");
    expectRefused(render + QStringList{u"--recording"_s, u"c"_s, u"--speed-unit"_s, u"x"_s},
                  "--speed-unit is one of km/h, mph, knots");
}

TEST(CommandLine, RefusesEmptyNamesAndValues)
{
    expectRefused({u"show"_s, QString()}, "PACKAGE is empty");
    expectRefused({u"diff"_s, u"a"_s, QString()}, "NEW is empty");
    expectRefused({u"recover"_s, QString(), u"--output"_s, u"a"_s}, "FOLDER is empty");
    expectRefused({u"recover"_s, u"a"_s, u"--output="_s}, "--output is empty");
    expectRefused({u"render"_s, u"a"_s, u"--output"_s, QString()}, "--output is empty");
    expectRefused({u"check"_s, u"a"_s, u"--recording"_s, QString()}, "--recording is empty");
    expectRefused({u"check"_s, u"a"_s, u"--ignore=covered"_s, u"--ignore="_s}, "--ignore is empty");
}

TEST(CommandLine, SaysWhenTheFolderForTemporaryFilesCannotBeUsed)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"file"_s);
    ASSERT_TRUE(TestPackage::writeFile(file, "not a folder"));
    const QByteArray former = qgetenv(FolderTools::kTempVariable);
    qputenv(FolderTools::kTempVariable, QFile::encodeName(file));
    expectRefused({u"show"_s, file},
                  QByteArray("gaugewright-cli: " + QFile::encodeName(file) + ": "));
    qputenv(FolderTools::kTempVariable, former);
}

TEST(CommandLine, ErrorsNameTheFile)
{
    expectRefused({u"show"_s, u"missing.zconf2"_s}, "missing.zconf2: There is no such file\n");
    expectRefused({u"show"_s, u"-"_s}, "gaugewright-cli: -: There is no such file\n");
    expectRefused({u"channels"_s, u"missing.xrk"_s}, "missing.xrk: There is no such file\n");
#ifndef Q_OS_WIN // where no name holds a line feed
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"bad\n.zconf2"_s);
    ASSERT_TRUE(TestPackage::writeFile(path, "not an archive"));
    for (const QString& name : {u"show"_s, u"check"_s})
        expectRefused({name, path}, "/bad\\u000a.zconf2: ");
    expectRefused({u"diff"_s, path, path}, "/bad\\u000a.zconf2: ");
#endif
}

TEST(CommandLine, NamesThatBeginWithADashFollowTwoDashes)
{
    const QTemporaryDir folder;
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    ASSERT_TRUE(TestPackage::writePackage(
        u"--quiet"_s, TestPackage::overlayXml({TestPackage::page("Race", 800, 480)})));
    const RanCommand ran = runCommand({u"show"_s, u"--"_s, u"--quiet"_s});
    QDir::setCurrent(former);
    EXPECT_EQ(ran.status, ExitStatus::Clean) << ran.errors.toStdString();
    EXPECT_TRUE(ran.answer.contains("page: \"Race\""));
}

TEST(CommandLine, LeavesNothingBehind)
{
    const QTemporaryDir folder;
    const QString good = folder.filePath(u"good.zconf2"_s);
    const QString bad = folder.filePath(u"bad.zconf2"_s);
    ASSERT_TRUE(TestPackage::writePackage(
        good, TestPackage::overlayXml({TestPackage::page("Race", 800, 480)})));
    ASSERT_TRUE(TestPackage::writePackage(bad, "no overlay"));
    const QStringList before = FolderTools::names(QDir::tempPath());
    EXPECT_EQ(runCommand({u"show"_s, good}).status, ExitStatus::Clean);
    EXPECT_EQ(runCommand({u"show"_s, bad}).status, ExitStatus::Trouble);
    EXPECT_EQ(runCommand({u"diff"_s, good, bad}).status, ExitStatus::Trouble);
    EXPECT_EQ(runCommand({u"check"_s, good, u"--recording"_s, bad}).status, ExitStatus::Trouble);
    EXPECT_EQ(FolderTools::names(QDir::tempPath()), before);
}

TEST(CommandLine, OnlyPaintingNeedsTheGui)
{
    EXPECT_TRUE(CommandLine::needsGui({u"render"_s}));
    for (const QStringList& arguments :
         {QStringList{u"show"_s, u"render"_s}, {u"--help"_s}, QStringList()})
        EXPECT_FALSE(CommandLine::needsGui(arguments));
}

TEST(Console, ShowsProgressUnlessQuiet)
{
    QBuffer answer;
    QBuffer errors;
    ASSERT_TRUE(answer.open(QIODevice::WriteOnly) && errors.open(QIODevice::WriteOnly));
    Console console(answer, errors, true);
    console.progress(u"Opening a\nb"_s);
    EXPECT_EQ(errors.data(), "Opening a\\u000ab\n");
    console.setQuiet();
    console.progress(u"Opening"_s);
    EXPECT_EQ(errors.data(), "Opening a\\u000ab\n");
    Console unwatched(answer, errors, false);
    unwatched.progress(u"Opening"_s);
    EXPECT_EQ(errors.data(), "Opening a\\u000ab\n");
}

TEST(Console, HoldsTheAnswerBackUntilItIsFlushed)
{
    QBuffer answer;
    QBuffer errors;
    ASSERT_TRUE(answer.open(QIODevice::WriteOnly) && errors.open(QIODevice::WriteOnly));
    Console console(answer, errors, false);
    console.print(u"°"_s);
    EXPECT_EQ(answer.data(), QByteArray());
    EXPECT_TRUE(console.flush());
    EXPECT_EQ(answer.data(), "°\n");
    answer.close();
    console.print(u"lost"_s);
    EXPECT_FALSE(console.flush());
    EXPECT_TRUE(errors.data().startsWith("gaugewright-cli: standard output: "));
}
