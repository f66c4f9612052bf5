// The program itself with the samples: without a display, its answers against the JSON schema, what
// it does with pipes and full disks.

#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/SmallDisk.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Validates answers against a schema, both given as files. A schema that accepts a wrong answer
/// proves nothing, so that is tried too.
constexpr char kValidator[] = R"(
import json, jsonschema, sys
schema, *answers = [json.load(open(path)) for path in sys.argv[1:]]
jsonschema.Draft7Validator.check_schema(schema)
for answer in answers:
    jsonschema.validate(answer, schema)
try:
    jsonschema.validate(dict(answers[0], version=2), schema)
except jsonschema.ValidationError:
    sys.exit(0)
sys.exit("the schema accepts another version")
)";

class Program : public ::testing::Test
{
protected:
    Program()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
            environment.remove(QLatin1String(name));
        environment.insert(u"TMPDIR"_s, m_temporary.path());
        m_process.setProcessEnvironment(environment);
    }
    ~Program() override
    {
        EXPECT_EQ(FolderTools::names(m_temporary.path()), QStringList()) << "left behind";
    }

    static QString sample(const QString& name) { return QStringLiteral(SAMPLES_DIR "/") + name; }

    [[nodiscard]] int run(const QStringList& arguments)
    {
        m_process.start(QStringLiteral(CLI_PROGRAM), arguments);
        EXPECT_TRUE(m_process.waitForFinished(60'000));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        m_answer = m_process.readAllStandardOutput();
        m_errors = m_process.readAllStandardError();
        return m_process.exitCode();
    }

    const QTemporaryDir m_folder;
    const QTemporaryDir m_temporary;
    const QString m_club = sample(u"club-racing.zconf2"_s);
    const QString m_recording = sample(u"club-session.xrk"_s);
    QProcess m_process;
    QByteArray m_answer;
    QByteArray m_errors;
};

} // namespace

TEST_F(Program, ShowsAndChecksTheSamples)
{
    for (const QString& name : {u"club-racing"_s, u"compact"_s, u"endurance-large"_s}) {
        const QString package = sample(name + u".zconf2"_s);
        EXPECT_EQ(run({u"show"_s, package}), 0) << m_errors.toStdString();
        EXPECT_GT(m_answer.count("\n  element: "), 20);
        EXPECT_EQ(run({u"check"_s, package}), 0) << m_answer.toStdString();
        EXPECT_EQ(run({u"diff"_s, package, package}), 0) << m_answer.toStdString();
        EXPECT_EQ(m_answer + m_errors, QByteArray());
    }
}

TEST_F(Program, ChecksChannelsAgainstARecording)
{
    EXPECT_EQ(run({u"check"_s, m_club, u"--recording"_s, m_recording}), 1);
    EXPECT_TRUE(m_answer.contains("warning no-match "));
    EXPECT_TRUE(m_answer.contains("channel \"RPM\" shows recorded \"rpm\" (equal but for case)"));
    EXPECT_EQ(run({u"check"_s, m_club, u"--recording"_s, m_recording, u"--ignore=no-match"_s}), 0);
}

TEST_F(Program, PaintsValuesOfARecording)
{
    const QStringList arguments{u"render"_s,   m_club,          u"--page=1"_s,
                                u"--output"_s, m_folder.path(), u"--force"_s};
    const QString path = m_folder.filePath(u"page-1.png"_s);
    EXPECT_EQ(run(arguments), 0) << m_errors.toStdString();
    EXPECT_EQ(m_errors, QByteArray());
    const QImage plain(path);
    EXPECT_EQ(plain.size(), QSize(800, 480));
    const QStringList live = arguments + QStringList{u"--recording"_s, m_recording, u"--at=30"_s};
    EXPECT_EQ(run(live), 0) << m_errors.toStdString();
    const QImage kilometres(path);
    EXPECT_NE(kilometres, plain);
    EXPECT_EQ(run(live + QStringList{u"--speed-unit=mph"_s}), 0) << m_errors.toStdString();
    EXPECT_NE(QImage(path), kilometres);
}

TEST_F(Program, AnswersJsonOfItsSchema)
{
    const QString left = m_folder.filePath(u"left"_s);
    ASSERT_TRUE(QDir().mkdir(left));
    ASSERT_EQ(QProcess::execute(u"python3"_s, {u"-m"_s, u"zipfile"_s, u"-e"_s, m_club, left}), 0);
    ASSERT_TRUE(QDir(m_temporary.path()).mkdir(u"Gaugewright-abcdef"_s));
    const QString listed = m_temporary.filePath(u"Gaugewright-abcdef"_s);
    ASSERT_EQ(QProcess::execute(u"python3"_s, {u"-m"_s, u"zipfile"_s, u"-e"_s, m_club, listed}), 0);

    const std::vector<QStringList> commands{
        {u"show"_s, m_club},
        {u"diff"_s, m_club, sample(u"compact.zconf2"_s)},
        {u"check"_s, m_club, u"--recording"_s, m_recording},
        {u"render"_s, m_club, u"--page=1"_s, u"--output"_s, m_folder.path()},
        {u"channels"_s, m_recording},
        {u"recover"_s},
        {u"recover"_s, left, u"--output"_s, m_folder.filePath(u"recovered.zconf2"_s)}};
    QStringList answers;
    for (const QStringList& command : commands) {
        EXPECT_LE(run(command + QStringList{u"--format=json"_s}), 1) << m_errors.toStdString();
        answers.append(m_folder.filePath(QString::number(answers.size()) + u".json"_s));
        QFile file(answers.last());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(m_answer), m_answer.size());
    }
    FolderTools::remove(listed);

    QProcess python;
    python.setProcessChannelMode(QProcess::MergedChannels);
    python.start(u"python3"_s,
                 QStringList{u"-c"_s, QString::fromLatin1(kValidator),
                             QStringLiteral(SOURCE_DIR "/cli/gaugewright-cli.schema.json")} +
                     answers);
    ASSERT_TRUE(python.waitForFinished(120'000)) << "needs python3 with jsonschema";
    EXPECT_EQ(python.exitCode(), 0) << python.readAll().toStdString();
}

TEST_F(Program, SaysWhenTheAnswerCannotBeWritten)
{
    m_process.setStandardOutputFile(u"/dev/full"_s);
    EXPECT_EQ(run({u"show"_s, m_club}), 2);
    EXPECT_TRUE(m_errors.startsWith("gaugewright-cli: standard output: "))
        << m_errors.toStdString();
}

TEST_F(Program, AReaderThatGoesAwayLeavesNothingBehind)
{
    m_process.start(u"/bin/sh"_s, {u"-c"_s, QStringLiteral("'%1' show '%2' | head -n 1 >&2")
                                                .arg(QStringLiteral(CLI_PROGRAM),
                                                     sample(u"endurance-large.zconf2"_s))});
    ASSERT_TRUE(m_process.waitForFinished());
    EXPECT_EQ(m_process.readAllStandardError().count('\n'), 1);
}

TEST_F(Program, AReaderOfErrorsThatGoesAwayLeavesNothingBehind)
{
    const QString broken = m_folder.filePath(u"broken.zconf2"_s);
    ASSERT_TRUE(TestPackage::writeFile(broken, "no archive"));
    m_process.start(u"/bin/sh"_s, {u"-c"_s, QStringLiteral("(sleep 0.2; '%1' show '%2') 2>&1 | :")
                                                .arg(QStringLiteral(CLI_PROGRAM), broken)});
    ASSERT_TRUE(m_process.waitForFinished());
}

TEST_F(Program, SaysWhenALimitOnFileSizesIsReached)
{
    for (const QString& command :
         {QString(u"show '"_s + m_club + u'\''),
          QString(u"render '"_s + m_club + u"' --output '"_s + m_folder.path() + u'\'')}) {
        m_process.start(
            u"/bin/sh"_s,
            {u"-c"_s,
             QStringLiteral("ulimit -f 8; '%1' ").arg(QStringLiteral(CLI_PROGRAM)) + command});
        ASSERT_TRUE(m_process.waitForFinished());
        EXPECT_EQ(m_process.exitCode(), 2);
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        const QByteArray errors = m_process.readAllStandardError();
        EXPECT_EQ(errors.count('\n'), 1) << errors.toStdString();
    }
    EXPECT_EQ(FolderTools::names(m_folder.path()), QStringList());
}

TEST_F(Program, ReportsAFullDiskInOneLine)
{
    const QString folder = m_folder.filePath(u"disk"_s);
    ASSERT_TRUE(QDir().mkdir(folder));
    const SmallDisk disk(folder, 4);
    if (!disk.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    EXPECT_EQ(run({u"render"_s, m_club, u"--page=1"_s, u"--output"_s, folder}), 2);
    EXPECT_EQ(m_errors, QByteArray("gaugewright-cli: " + folder.toUtf8() +
                                   "/page-1.png: No space left on device\n"));
    EXPECT_EQ(FolderTools::names(folder), QStringList());
}

TEST_F(Program, FilesMayHaveTheNamesOfQtsOptions)
{
    m_process.setWorkingDirectory(m_folder.path());
    for (const QString& name : {u"-platform"_s, u"-reverse"_s, u"-qmljsdebugger=x"_s}) {
        ASSERT_TRUE(QFile::copy(m_club, m_folder.filePath(name)));
        EXPECT_EQ(run({u"show"_s, u"--"_s, name}), 0) << m_errors.toStdString();
        EXPECT_EQ(run({u"render"_s, u"--page=1"_s, u"--force"_s, u"--output=."_s, u"--"_s, name}),
                  0)
            << m_errors.toStdString();
    }
    EXPECT_EQ(run({u"render"_s, m_club, u"--output=."_s, u"-platform"_s, u"none"_s}), 2);
    EXPECT_EQ(m_errors.count('\n'), 1) << m_errors.toStdString();
}

TEST_F(Program, LoadsNoWidgets)
{
    QProcess ldd;
    ldd.start(u"ldd"_s, {QStringLiteral(CLI_PROGRAM)});
    ASSERT_TRUE(ldd.waitForFinished());
    const QByteArray libraries = ldd.readAllStandardOutput();
    EXPECT_TRUE(libraries.contains("Qt6Core")) << libraries.toStdString();
    EXPECT_FALSE(libraries.contains("Qt6Widgets"));
}
