// The reader library is foreign code and may crash the editor. The edits are on disk by then.

#include "document/DashboardPackage.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/support/ScriptedReader.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSpinBox>

#include <csignal>

namespace {

constexpr const char* kDyingVariable = "GAUGEWRIGHT_READER_DIES";

enum class Moment
{
    Loading, ///< of the library
    Opening,
    Reading,
    Closing ///< of the former recording
};

/// A reader that ends the process without a chance to clean up.
class DyingReader : public ScriptedReader
{
public:
    explicit DyingReader(Moment moment) : m_moment(moment) {}

    void loaded() override { dieAt(Moment::Loading); }
    int openFile(const char* path) override
    {
        dieAt(Moment::Opening);
        return ScriptedReader::openFile(path);
    }
    int channelCount(Family family, int file) override
    {
        dieAt(Moment::Reading);
        return ScriptedReader::channelCount(family, file);
    }
    int closeFile(int file) override
    {
        dieAt(Moment::Closing);
        return ScriptedReader::closeFile(file);
    }

private:
    void dieAt(Moment moment) const
    {
        if (moment == m_moment)
            std::raise(SIGKILL);
    }

    Moment m_moment;
};

class ReaderCrash : public MainWindowFixture, public ::testing::WithParamInterface<Moment>
{
public:
    ~ReaderCrash() override { m_window.reset(); } // the reader must outlive the session

protected:
    void load()
    {
        const QString recording = path(QStringLiteral("lap.xrk"));
        EXPECT_TRUE(TestPackage::writeFile(recording, "recording"));
        m_dialogs.chooseFile(recording);
        trigger("loadTelemetryAction");
    }

    /// One edit of every kind, some of them past the undo stack.
    void editEverything()
    {
        drag(0, QPoint(40, 30));
        clickElement(1);
        child<QSpinBox>("ySpin")->setValue(321);
        child<QSpinBox>("valueSizeSpin")->setValue(77);
        m_window->deleteElement(2);
        insertElement(0, 1);
        clickPage(1);
        clearPage();
        newPage(QStringLiteral("Lap"));
        insertElement();
    }

    /// What the process does that dies.
    void editAndLoad()
    {
        const DyingReader reader(GetParam());
        openUsual();
        if (GetParam() == Moment::Closing)
            load();
        editEverything();
        load();
        m_window.reset();
    }

    /// The unpack folder of the process that died, in the folder that was its temporary one.
    [[nodiscard]] QString onlyUnpackFolder() const
    {
        QStringList found;
        QDirIterator overlays(m_folder.path(), {QStringLiteral("overlay.ov3.xml")}, QDir::Files,
                              QDirIterator::Subdirectories);
        while (overlays.hasNext())
            found << QFileInfo(overlays.next()).path();
        EXPECT_EQ(found.size(), 1);
        return found.value(0);
    }

    /// The overlay of a package, without the numbers that a process gives its new elements.
    static QString overlayOf(const QString& package)
    {
        QString xml =
            QString::fromUtf8(TestPackage::readPackage(package)[QStringLiteral("overlay.ov3.xml")]);
        return xml.replace(QRegularExpression(QStringLiteral("new\\.\\d+")),
                           QStringLiteral("new.n"));
    }
};

} // namespace

TEST_P(ReaderCrash, EveryEditIsInTheUnpackFolder)
{
    // The process that dies starts this test anew, and inherits the variable.
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    const QByteArray temporary = qgetenv("TMPDIR");
    if (!qEnvironmentVariableIsSet(kDyingVariable))
        qputenv("TMPDIR", m_folder.path().toUtf8());
    qputenv(kDyingVariable, "1");
    EXPECT_EXIT(editAndLoad(), ::testing::KilledBySignal(SIGKILL), "");
    qunsetenv(kDyingVariable);
    qputenv("TMPDIR", temporary);

    const QString unpacked = onlyUnpackFolder();
    ASSERT_FALSE(unpacked.isEmpty());
    const QString recovered = path(QStringLiteral("recovered.zconf2"));
    ASSERT_TRUE(DashboardPackage::packDirectory(unpacked, recovered));
    openUsual();
    editEverything();
    trigger("saveAction");
    EXPECT_EQ(overlayOf(recovered), overlayOf(path(QStringLiteral("usual.zconf2"))));
    open(recovered);
    EXPECT_EQ(status(), QStringLiteral("Opened recovered.zconf2 (4 pages)"));
}

INSTANTIATE_TEST_SUITE_P(Moments, ReaderCrash,
                         ::testing::Values(Moment::Loading, Moment::Opening, Moment::Reading,
                                           Moment::Closing));

TEST_F(MainWindowFixture, ARecordingLoadsThoughTheEditsCannotBeKept)
{
    ScriptedReader reader;
    openUsual();
    const QString folder = m_window->document().tempDir();
    FolderTools::remove(folder);
    ASSERT_TRUE(TestPackage::writeFile(folder, "in the way"));
    const QString recording = path(QStringLiteral("lap.xrk"));
    ASSERT_TRUE(TestPackage::writeFile(recording, "recording"));
    m_dialogs.chooseFile(recording);
    trigger("loadTelemetryAction");
    EXPECT_EQ(status(), QStringLiteral("Loaded XRK: lap.xrk | 0 channels | Duration: 00:00"));
    m_window.reset();
}
