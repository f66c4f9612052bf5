#include "telemetry/MatchTrace.h"

#include "paths/FixedPaths.h"
#include "telemetry/TelemetrySession.h"
#include "tests/support/ScriptedReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray traced()
{
    QFile file(FixedPaths::channelTraceFile());
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll() : QByteArray();
}

/// Runs in an empty working directory, below which the trace file's path lies where there are no
/// drives. Where there are, the folder is removed after each test, unless its user has one. The
/// names that were traced stay known for the whole program, so every test uses its own.
class MatchTraceTest : public ::testing::Test
{
public:
    ~MatchTraceTest() override
    {
        if (!IsSkipped())
            QDir(traceFolder()).removeRecursively();
        QDir::setCurrent(m_before);
    }

protected:
    MatchTraceTest() : m_before(QDir::currentPath()) { QDir::setCurrent(m_folder.path()); }

    void SetUp() override
    {
        if (QFileInfo::exists(traceFolder()))
            GTEST_SKIP() << "this computer has a folder for traces";
    }

    static QString traceFolder() { return QFileInfo(FixedPaths::channelTraceFile()).path(); }
    static void makeTraceFolder() { QDir().mkpath(traceFolder()); }

    QTemporaryDir m_folder;
    QString m_before;
};

} // namespace

TEST_F(MatchTraceTest, TheSessionTracesEachFirstMatchAndNoOther)
{
    makeTraceFolder();
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("Sump Temp", 10.0)};
    const QString library = QString::fromStdString(ScriptedReader::path());
    TelemetrySession session;
    static_cast<void>(session.value(QStringLiteral("sump"), 1.0));
    EXPECT_EQ(traced(), "") << "without a recording";
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(session.load(QStringLiteral("/r.xrk"), library));
        static_cast<void>(session.value(QString(), 1.0));
        static_cast<void>(session.matchChannel(QStringLiteral("fuel")));
        for (const double seconds : {1.0, 2.0})
            static_cast<void>(session.value(QStringLiteral("sump"), seconds));
        static_cast<void>(session.matchedName(QStringLiteral("gear")));
    }
    EXPECT_EQ(traced(), "OVERLAY: \"sump\"  ->  XRK: \"Sump Temp\"\n"
                        "OVERLAY: \"gear\"  ->  XRK: \"NO MATCH\"\n");
}

TEST_F(MatchTraceTest, ALineNamesTheLayoutChannelAndTheRecordedOne)
{
    EXPECT_EQ(MatchTrace::line(QStringLiteral("Gear_Pos"), QStringLiteral("GearPos")),
              QStringLiteral("OVERLAY: \"Gear_Pos\"  ->  XRK: \"GearPos\"\n"));
}

TEST_F(MatchTraceTest, AChannelWithoutAMatchIsTracedAsSuch)
{
    EXPECT_EQ(MatchTrace::line(QStringLiteral("star boost"), QString()),
              QStringLiteral("OVERLAY: \"star boost\"  ->  XRK: \"NO MATCH\"\n"));
}

TEST_F(MatchTraceTest, EachNameIsWrittenOnceAndAppended)
{
    makeTraceFolder();
    MatchTrace::record(QStringLiteral("once.a"), QStringLiteral("A"));
    MatchTrace::record(QStringLiteral("once.b"), QStringLiteral("B"));
    MatchTrace::record(QStringLiteral("once.a"), QStringLiteral("A"));
    MatchTrace::record(QStringLiteral("once.a"), QStringLiteral("another match"));
    EXPECT_EQ(traced(),
              "OVERLAY: \"once.a\"  ->  XRK: \"A\"\nOVERLAY: \"once.b\"  ->  XRK: \"B\"\n");
}

TEST_F(MatchTraceTest, AnExistingFileIsContinued)
{
    makeTraceFolder();
    {
        QFile file(FixedPaths::channelTraceFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("before\n");
    }
    MatchTrace::record(QStringLiteral("continued"), QString());
    EXPECT_EQ(traced(), "before\nOVERLAY: \"continued\"  ->  XRK: \"NO MATCH\"\n");
}

TEST_F(MatchTraceTest, NamesAreComparedCaseSensitively)
{
    makeTraceFolder();
    MatchTrace::record(QStringLiteral("case"), QString());
    MatchTrace::record(QStringLiteral("CASE"), QString());
    EXPECT_EQ(traced().count('\n'), 2);
}

TEST_F(MatchTraceTest, WithoutItsFolderNothingIsWrittenAndNoFolderIsMade)
{
    MatchTrace::record(QStringLiteral("no folder"), QString());
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(FixedPaths::channelTraceFile()).path()));
    EXPECT_TRUE(QDir().isEmpty());
}

TEST_F(MatchTraceTest, ANameWhoseLineCouldNotBeWrittenIsNotTriedAgain)
{
    MatchTrace::record(QStringLiteral("failed"), QString());
    makeTraceFolder();
    MatchTrace::record(QStringLiteral("failed"), QString());
    EXPECT_FALSE(QFileInfo::exists(FixedPaths::channelTraceFile()));
}

TEST_F(MatchTraceTest, NamesBeyondAsciiAreWrittenAsUtf8)
{
    makeTraceFolder();
    MatchTrace::record(QString::fromUtf8("Öldruck"), QString());
    EXPECT_EQ(traced(), "OVERLAY: \"\xC3\x96ldruck\"  ->  XRK: \"NO MATCH\"\n");
}
