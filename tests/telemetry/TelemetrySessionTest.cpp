#include "telemetry/TelemetrySession.h"

#include "tests/support/ScriptedReader.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

const QString kFile = QStringLiteral("/r.xrk");

QString library()
{
    return QString::fromStdString(ScriptedReader::path());
}

bool loadScript(TelemetrySession& session)
{
    return session.load(kFile, library());
}

void expectEmpty(const TelemetrySession& session)
{
    EXPECT_FALSE(session.isLoaded());
    EXPECT_EQ(session.duration(), 0.0);
    EXPECT_TRUE(session.channelNames().isEmpty());
    EXPECT_TRUE(session.matchChannel(u"rpm"_s).isEmpty());
    EXPECT_TRUE(session.matchedName(u"rpm"_s).isEmpty());
    EXPECT_EQ(session.value(u"rpm"_s, 1.0), 0.0);
}

// Opening

TEST(TelemetrySession, IsEmptyAtFirst)
{
    expectEmpty(TelemetrySession());
}

TEST(TelemetrySession, CallsTheReaderInOrder)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("rpm", 10.0)};
    reader.channels[ReaderHost::kGps] = {endingAt("lat", 10.0)};
    reader.channels[ReaderHost::kGpsRaw] = {endingAt("raw", 10.0)};
    {
        TelemetrySession session;
        EXPECT_TRUE(loadScript(session));
        EXPECT_TRUE(session.isLoaded());
    }
    EXPECT_THAT(reader.log,
                ElementsAre("loaded", "open_file(/r.xrk)", "get_channels_count(3)",
                            "get_channel_name(3,0)", "get_channel_units(3,0)",
                            "get_channel_samples_count(3,0)", "get_channel_samples(3,0)",
                            "get_GPS_channels_count(3)", "get_GPS_channel_name(3,0)",
                            "get_GPS_channel_units(3,0)", "get_GPS_channel_samples_count(3,0)",
                            "get_GPS_channel_samples(3,0)", "get_GPS_raw_channels_count(3)",
                            "get_GPS_raw_channel_name(3,0)", "get_GPS_raw_channel_units(3,0)",
                            "get_GPS_raw_channel_samples_count(3,0)",
                            "get_GPS_raw_channel_samples(3,0)", "close_file_i(3)", "unloaded"));
}

TEST(TelemetrySession, LoadsARecordingWithoutChannels)
{
    const ScriptedReader reader;
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_TRUE(session.isLoaded());
    EXPECT_EQ(session.duration(), 0.0);
    EXPECT_TRUE(session.channelNames().isEmpty());
}

TEST(TelemetrySession, TakesFileIndexZeroForAnOpenFile)
{
    ScriptedReader reader;
    reader.fileIndex = 0;
    {
        TelemetrySession session;
        EXPECT_TRUE(loadScript(session));
    }
    EXPECT_EQ(reader.calls("close_file_i(0)"), 1);
}

TEST(TelemetrySession, HandsOverPathsInUtf8)
{
    ScriptedReader reader;
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"Lesegerät.so"_s);
    ASSERT_TRUE(QFile::copy(QString::fromStdString(ScriptedReader::path()), copy));
    TelemetrySession session;
    EXPECT_TRUE(session.load(u"/Aufnahme-Nürburg.xrk"_s, copy));
    EXPECT_EQ(reader.calls("open_file(/Aufnahme-Nürburg.xrk)"), 1);
}

// Failing, closing and unloading

TEST(TelemetrySession, SaysThatTheLibraryWasNotFound)
{
    TelemetrySession session;
    for (const QString& path : {u"/no/such/library"_s, QString()}) {
        EXPECT_FALSE(session.load(kFile, path));
        EXPECT_EQ(session.errorString(), u"The reader library was not found"_s);
    }
}

TEST(TelemetrySession, SaysWhyTheLoaderRefusedTheLibrary)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"reader %1.so"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("plain text, which is no library and longer than any header of one has to be");
    file.close();
    TelemetrySession session;
    EXPECT_FALSE(session.load(kFile, path));
    const QString expected = u"The reader library could not be loaded: "_s;
    EXPECT_TRUE(session.errorString().startsWith(expected)) << session.errorString().toStdString();
    EXPECT_GT(session.errorString().size(), expected.size() + 5) << "the loader's own words";
}

TEST(TelemetrySession, SaysWhatTheLibraryRefused)
{
    ScriptedReader reader;
    const QString incomplete = QString::fromStdString(reader.libraryWithout({"open_file"}));
    TelemetrySession session;
    EXPECT_FALSE(session.load(kFile, incomplete));
    EXPECT_EQ(session.errorString(), u"The reader library has no function \"open_file\""_s);

    reader.fileIndex = -1;
    EXPECT_FALSE(loadScript(session));
    EXPECT_EQ(session.errorString(), u"The recording was not found"_s);

    const QTemporaryDir folder;
    const QString existing = folder.filePath(u"r.xrk"_s);
    ASSERT_TRUE(QFile(existing).open(QIODevice::WriteOnly));
    EXPECT_FALSE(session.load(existing, library()));
    EXPECT_EQ(session.errorString(), u"The reader library could not open the recording"_s);
}

TEST(TelemetrySession, HasNoErrorAfterASuccessOrAClear)
{
    const ScriptedReader reader;
    TelemetrySession session;
    EXPECT_EQ(session.errorString(), QString());
    for (const bool load : {true, false}) {
        EXPECT_FALSE(session.load(kFile, u"/no/such/library"_s));
        EXPECT_NE(session.errorString(), QString());
        if (load)
            EXPECT_TRUE(loadScript(session));
        else
            session.clear();
        EXPECT_EQ(session.errorString(), QString());
    }
}

TEST(TelemetrySession, FailsWithoutALibrary)
{
    TelemetrySession session;
    EXPECT_FALSE(session.load(kFile, u"/no/such/library"_s));
    expectEmpty(session);
    EXPECT_FALSE(session.load(kFile, QString()));
    expectEmpty(session);
}

TEST(TelemetrySession, FailsWithoutOpenFile)
{
    ScriptedReader reader;
    const QString incomplete = QString::fromStdString(reader.libraryWithout({"open_file"}));
    {
        TelemetrySession session;
        EXPECT_FALSE(session.load(kFile, incomplete));
        expectEmpty(session);
    }
    EXPECT_THAT(reader.log, ElementsAre("loaded", "unloaded"));
}

TEST(TelemetrySession, FailsOnAnyNegativeFileIndexAndClosesNothing)
{
    for (const int index : {-1, -7}) {
        ScriptedReader reader;
        reader.fileIndex = index;
        {
            TelemetrySession session;
            EXPECT_FALSE(loadScript(session));
            expectEmpty(session);
        }
        EXPECT_THAT(reader.log, ElementsAre("loaded", "open_file(/r.xrk)", "unloaded"));
    }
}

TEST(TelemetrySession, HoldsTheLibraryAfterAFailureUntilCleared)
{
    ScriptedReader reader;
    reader.fileIndex = -1;
    TelemetrySession session;
    EXPECT_FALSE(loadScript(session));
    EXPECT_EQ(reader.calls("unloaded"), 0);
    session.clear();
    EXPECT_EQ(reader.calls("unloaded"), 1);
}

TEST(TelemetrySession, IsEmptyAfterClear)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("rpm", 10.0)};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_EQ(session.value(u"rpm"_s, 1.0), 1.0);
    session.clear();
    expectEmpty(session);
}

TEST(TelemetrySession, IsEmptyAfterAFailedLoadThatFollowsAGoodOne)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("rpm", 10.0)};
    for (const bool libraryMissing : {true, false}) {
        reader.fileIndex = 3;
        TelemetrySession session;
        EXPECT_TRUE(loadScript(session));
        EXPECT_EQ(session.value(u"rpm"_s, 1.0), 1.0);
        reader.fileIndex = -1;
        EXPECT_FALSE(session.load(kFile, libraryMissing ? u"/no/such/library"_s : library()));
        expectEmpty(session);
    }
}

TEST(TelemetrySession, ClosesEachFileOnceAndBeforeUnloading)
{
    // Every sequence of up to four of: a good load, a load whose file fails, a load whose library
    // is missing, a clear; then destruction.
    constexpr int kSteps = 4;
    constexpr int kActions = 4;
    for (int sequence = 0; sequence < kActions * kActions * kActions * kActions; ++sequence) {
        ScriptedReader reader;
        std::vector<std::string> expected;
        const char* held = ""; // what the library in the session has open
        const auto release = [&] {
            if (*held == 'f')
                expected.emplace_back("close_file_i(3)");
            if (*held != '\0')
                expected.emplace_back("unloaded");
            held = "";
        };
        {
            TelemetrySession session;
            for (int step = 0, rest = sequence; step < kSteps; ++step, rest /= kActions) {
                release();
                const int action = rest % kActions;
                reader.fileIndex = action == 0 ? 3 : -1;
                if (action == 2)
                    EXPECT_FALSE(session.load(kFile, u"/no/such/library"_s));
                else if (action == 3)
                    session.clear();
                else
                    EXPECT_EQ(loadScript(session), action == 0);
                if (action == 0 || action == 1) {
                    expected.insert(expected.end(), {"loaded", "open_file(/r.xrk)"});
                    held = action == 0 ? "file" : "library";
                }
            }
            release();
        }
        std::erase_if(reader.log,
                      [](const std::string& entry) { return entry.starts_with("get_"); });
        EXPECT_EQ(reader.log, expected) << sequence;
    }
}

TEST(TelemetrySession, UnloadsWithoutClosingWhereTheLibraryCannotClose)
{
    ScriptedReader reader;
    const QString incomplete = QString::fromStdString(reader.libraryWithout({"close_file_i"}));
    {
        TelemetrySession session;
        EXPECT_TRUE(session.load(kFile, incomplete));
    }
    EXPECT_EQ(reader.calls("close_file_i(3)"), 0);
    EXPECT_EQ(reader.log.back(), "unloaded");
}

TEST(TelemetrySession, CallsNothingAfterLoading)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("rpm", 10.0)};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    const std::size_t calls = reader.log.size();
    EXPECT_EQ(session.value(u"rpm"_s, 1.0), 1.0);
    EXPECT_EQ(session.matchChannel(u"RPM"_s), u"rpm"_s);
    EXPECT_EQ(session.channelNames().size(), 1);
    EXPECT_EQ(reader.log.size(), calls);
}

// Names

TEST(TelemetrySession, ListsNamesInTheOrderOfTheirLowerCase)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("b", 1.0), endingAt("C", 1.0),
                                           endingAt("a", 1.0)};
    reader.channels[ReaderHost::kGps] = {endingAt("B2", 1.0), endingAt("_", 1.0)};
    reader.channels[ReaderHost::kGpsRaw] = {endingAt("é", 1.0), endingAt("Z", 1.0)};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_THAT(session.channelNames(),
                ElementsAre(u"_"_s, u"a"_s, u"b"_s, u"B2"_s, u"C"_s, u"Z"_s, u"é"_s));
}

TEST(TelemetrySession, KeepsTheLastOfNamesThatDifferInCase)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {{"Speed", {0.0, 10.0}, {1.0, 1.0}},
                                           {"SPEED", {0.0, 10.0}, {2.0, 2.0}}};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_THAT(session.channelNames(), ElementsAre(u"SPEED"_s));
    EXPECT_EQ(session.value(u"speed"_s, 5.0), 2.0);
}

TEST(TelemetrySession, ReplacesAcrossFamilies)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {{"a", {0.0, 10.0}, {1.0, 1.0}},
                                           {"b", {0.0, 10.0}, {1.0, 1.0}}};
    reader.channels[ReaderHost::kGps] = {{"A", {0.0, 10.0}, {2.0, 2.0}},
                                         {"B", {0.0, 10.0}, {2.0, 2.0}}};
    reader.channels[ReaderHost::kGpsRaw] = {{"b", {0.0, 10.0}, {3.0, 3.0}}};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_THAT(session.channelNames(), ElementsAre(u"A"_s, u"b"_s));
    EXPECT_EQ(session.value(u"a"_s, 5.0), 2.0);
    EXPECT_EQ(session.value(u"b"_s, 5.0), 3.0);
}

TEST(TelemetrySession, DecodesNamesThatAreNotUtf8)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("\xff\xfe rpm", 1.0), endingAt("\xc3", 1.0),
                                           endingAt("\xed\xa0\x80", 1.0), endingAt("", 1.0)};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_EQ(session.channelNames().size(), 4);
    EXPECT_EQ(session.matchChannel(u"rpm"_s), QString::fromUtf8("\xff\xfe rpm"));
    EXPECT_EQ(session.value(u"rpm"_s, 1.0), 10.0);
}

TEST(TelemetrySession, TreatsAMatchWithAnEmptyNameAsNone)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("", 1.0)};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_EQ(session.channelNames().size(), 1);
    EXPECT_EQ(session.value(u"_"_s, 1.0), 0.0); // compacts to the empty name
    EXPECT_EQ(session.matchedName(u"_"_s), QString());
}

TEST(TelemetrySession, MatchesLayoutNamesToRecordedOnes)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("rpm", 10.0), endingAt("GearPos", 10.0),
                                           endingAt("Stbd RPM", 10.0)};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_EQ(session.matchChannel(u"RPM"_s), u"rpm"_s);
    EXPECT_EQ(session.matchedName(u"RPM"_s), u"rpm"_s);
    EXPECT_EQ(session.matchChannel(u"Gear_Pos"_s), u"GearPos"_s);
    EXPECT_EQ(session.value(u"Gear_Pos"_s, 5.0), 5.0);
    EXPECT_EQ(session.matchedName(u"star rpm"_s), QString());
    for (const double time : {-1.0, 0.0, 5.0, 20.0})
        EXPECT_EQ(session.value(u"star rpm"_s, time), 0.0);
}

TEST(TelemetrySession, ListsTheChannelsByLowerCaseName)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("RPM", 10.0), endingAt("Gear", 5.0)};
    TelemetrySession session;
    EXPECT_TRUE(session.channels().empty());
    EXPECT_TRUE(loadScript(session));
    ASSERT_EQ(session.channels().size(), 2U);
    EXPECT_EQ(session.channels().begin()->first, u"gear"_s);
    EXPECT_EQ(session.channels().at(u"rpm"_s).name, u"RPM"_s);
    EXPECT_EQ(session.channels().at(u"rpm"_s).times.back(), 10.0);
}

TEST(TelemetrySession, ForgetsMatchesWithTheRecording)
{
    ScriptedReader reader;
    reader.channels[ReaderHost::kPlain] = {endingAt("Oil Temp", 10.0)};
    TelemetrySession session;
    EXPECT_TRUE(loadScript(session));
    EXPECT_EQ(session.matchedName(u"oil"_s), u"Oil Temp"_s);
    EXPECT_EQ(session.matchedName(u"water"_s), QString());

    reader.channels[ReaderHost::kPlain] = {endingAt("Water Temp", 10.0)};
    EXPECT_TRUE(loadScript(session));
    EXPECT_EQ(session.matchedName(u"oil"_s), QString());
    EXPECT_EQ(session.value(u"oil"_s, 5.0), 0.0);
    EXPECT_EQ(session.matchedName(u"water"_s), u"Water Temp"_s);
    EXPECT_EQ(session.value(u"water"_s, 5.0), 5.0);
}

} // namespace
