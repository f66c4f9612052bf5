#include "document/DashboardDocument.h"

#include "tests/support/InStep.h"
#include "tests/support/PackageBuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

namespace {

using TestPackage::Members;

const QString kOverlay = QStringLiteral("overlay.ov3.xml");
const QString kDevice = QStringLiteral("dash.aimcfg");

class DashboardDocumentTest : public ::testing::Test
{
protected:
    [[nodiscard]] QString path(const char* name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    [[nodiscard]] QString package(const Members& members) const
    {
        EXPECT_TRUE(TestPackage::writePackage(path("made.zconf2"), members));
        return path("made.zconf2");
    }

    static QByteArray overlay(const QByteArray& pageName, int displayWidth = 320)
    {
        return TestPackage::overlayXml(
            {TestPackage::page(pageName, 300, 200,
                               {TestPackage::digitElement("mask.1", 1, 2, 30, 40),
                                TestPackage::labelElement("mask.2", 5, 6, 7, 8, "Oil")}),
             TestPackage::page("Second", 300, 200)},
            displayWidth, 240);
    }

    static QByteArray device(const QByteArray& type, int code, const QByteArray& channel)
    {
        return TestPackage::deviceXml(type, code, {{7, channel, "s", "u"}});
    }

    QTemporaryDir m_folder;
    DashboardDocument m_document;
};

/// All that an open sets.
QByteArray everything(const DashboardDocument& document)
{
    QByteArray text = InStep::overlayText(document) + InStep::recordsText(document);
    for (const QString& field :
         {document.tempDir(), document.overlayPath(), document.devicePath(), document.deviceType()})
        text += field.toUtf8() + '\n';
    for (const int field :
         {document.deviceTypeCode(), document.displayWidth(), document.displayHeight()})
        text += QByteArray::number(field) + '\n';
    for (const ChannelDef& channel : document.channels())
        text += channel.longName.toUtf8() + '\n';
    return text;
}

} // namespace

TEST_F(DashboardDocumentTest, StartsEmpty)
{
    EXPECT_EQ(m_document.pageCount(), 0);
    EXPECT_TRUE(m_document.pages().empty());
    EXPECT_EQ(m_document.pageAt(0), nullptr);
    EXPECT_FALSE(m_document.confNode());
    EXPECT_FALSE(m_document.pageNode(0));
    EXPECT_TRUE(m_document.channels().empty());
    EXPECT_EQ(m_document.deviceType(), QString());
    EXPECT_EQ(m_document.deviceTypeCode(), -1);
    EXPECT_EQ(m_document.displayWidth(), 800);
    EXPECT_EQ(m_document.displayHeight(), 480);
    EXPECT_EQ(m_document.tempDir(), QString());
    EXPECT_EQ(m_document.overlayPath(), QString());
    EXPECT_EQ(m_document.devicePath(), QString());
    EXPECT_FALSE(m_document.save(path("out.zconf2")));
    EXPECT_FALSE(QFileInfo::exists(path("out.zconf2")));
}

TEST_F(DashboardDocumentTest, OpenReadsOverlayAndDevice)
{
    ASSERT_TRUE(
        m_document.open(package({{kOverlay, overlay("Race")},
                                 {QStringLiteral("x/") + kDevice, device("MXS", 12, "RPM")}})));
    ASSERT_EQ(m_document.pageCount(), 2);
    EXPECT_EQ(m_document.pages()[0].name, QStringLiteral("Race"));
    EXPECT_EQ(m_document.pages()[0].width, 300);
    ASSERT_EQ(m_document.pages()[0].elements.size(), 2U);
    EXPECT_EQ(m_document.pages()[0].elements[0].h, 40);
    EXPECT_EQ(m_document.pages()[1].index, 1);
    EXPECT_EQ(m_document.deviceType(), QStringLiteral("MXS"));
    EXPECT_EQ(m_document.deviceTypeCode(), 12);
    ASSERT_EQ(m_document.channels().size(), 1U);
    EXPECT_EQ(m_document.displayWidth(), 320);
    EXPECT_EQ(m_document.displayHeight(), 240);
    EXPECT_EQ(m_document.overlayPath(), m_document.tempDir() + u'/' + kOverlay);
    EXPECT_EQ(m_document.devicePath(), m_document.tempDir() + QStringLiteral("/x/") + kDevice);
    EXPECT_EQ(InStep::firstDisagreement(m_document), "") << "handles must survive the take-over";
}

TEST_F(DashboardDocumentTest, WithoutADeviceFileTheDefaultsStay)
{
    ASSERT_TRUE(m_document.open(package({{kOverlay, overlay("Race")}})));
    EXPECT_EQ(m_document.displayWidth(), 800) << "although the overlay says 320";
    EXPECT_EQ(m_document.displayHeight(), 480);
    EXPECT_TRUE(m_document.channels().empty());
    EXPECT_EQ(m_document.deviceTypeCode(), -1);
    EXPECT_EQ(m_document.devicePath(), QString());
}

TEST_F(DashboardDocumentTest, ABrokenDeviceFileIsNoDeviceFile)
{
    for (const char* const broken : {"", "<CfgFileFormat>", "<Other><e/></Other>"}) {
        ASSERT_TRUE(m_document.open(package({{kOverlay, overlay("Race")}, {kDevice, broken}})));
        EXPECT_EQ(m_document.displayWidth(), 800) << broken;
        EXPECT_EQ(m_document.deviceType(), QString());
        EXPECT_EQ(m_document.deviceTypeCode(), -1);
        EXPECT_TRUE(m_document.channels().empty());
        EXPECT_FALSE(m_document.devicePath().isEmpty()) << "it was found all the same";
    }
}

TEST_F(DashboardDocumentTest, UnpacksIntoAFolderThatOutlivesTheDocument)
{
    const QString file = package({{kOverlay, overlay("Race")}});
    QString first;
    QString second;
    {
        DashboardDocument document;
        ASSERT_TRUE(document.open(file));
        first = document.tempDir();
        ASSERT_TRUE(document.open(file));
        second = document.tempDir();
    }
    EXPECT_NE(first, second);
    EXPECT_TRUE(QFileInfo::exists(first + u'/' + kOverlay));
    EXPECT_TRUE(QFileInfo::exists(second + u'/' + kOverlay));
}

TEST_F(DashboardDocumentTest, UnpacksIntoAFolderOfTheUsualNameThatOutlivesAFailedOpenToo)
{
    const QString pattern = QCoreApplication::applicationName() + QStringLiteral("-??????");
    const auto folders = [&] {
        return QDir(QDir::tempPath()).entryInfoList({pattern}, QDir::Dirs | QDir::NoDotAndDotDot);
    };
    const auto before = folders();
    EXPECT_FALSE(m_document.open(path("missing.zconf2")));
    EXPECT_EQ(folders(), before) << "nothing to unpack";
    EXPECT_FALSE(m_document.open(package({{kOverlay, "broken"}})));
    const auto after = folders();
    ASSERT_EQ(after.size(), before.size() + 1);
    for (const QFileInfo& folder : after) {
        if (!before.contains(folder)) {
            EXPECT_EQ(TestPackage::readFile(folder.filePath() + u'/' + kOverlay), "broken");
        }
    }
}

TEST_F(DashboardDocumentTest, TakesRelativePathsFromTheWorkingFolder)
{
    const QString workingFolder = QDir::currentPath();
    const auto goBack = qScopeGuard([&] { QDir::setCurrent(workingFolder); });
    static_cast<void>(package({{kOverlay, overlay("Race")}}));
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    ASSERT_TRUE(m_document.open(QStringLiteral("made.zconf2")));
    EXPECT_TRUE(QDir::isAbsolutePath(m_document.tempDir()));
    m_document.pageAt(0)->elements[0].x = 77;
    ASSERT_TRUE(m_document.save(QStringLiteral("./made.zconf2")));
    ASSERT_TRUE(m_document.open(QStringLiteral("made.zconf2")));
    EXPECT_EQ(m_document.pages()[0].elements[0].x, 77);
    EXPECT_EQ(m_document.overlayPath(), m_document.tempDir() + u'/' + kOverlay);
}

TEST_F(DashboardDocumentTest, AFurtherPackageReplacesPagesAndAppendsChannels)
{
    ASSERT_TRUE(m_document.open(
        package({{kOverlay, overlay("One", 320)}, {kDevice, device("MXS", 12, "RPM")}})));
    ASSERT_TRUE(m_document.open(
        package({{kOverlay, overlay("Two", 640)}, {kDevice, device("MXG", 13, "Oil")}})));
    EXPECT_EQ(m_document.pageCount(), 2);
    EXPECT_EQ(m_document.pages()[0].name, QStringLiteral("Two"));
    EXPECT_EQ(m_document.deviceType(), QStringLiteral("MXG"));
    EXPECT_EQ(m_document.deviceTypeCode(), 13);
    EXPECT_EQ(m_document.displayWidth(), 640);
    ASSERT_EQ(m_document.channels().size(), 2U);
    EXPECT_EQ(m_document.channels()[0].longName, QStringLiteral("RPM"));
    EXPECT_EQ(m_document.channels()[1].longName, QStringLiteral("Oil"));
    EXPECT_EQ(InStep::firstDisagreement(m_document), "");
}

TEST_F(DashboardDocumentTest, DeviceValuesCarryOverToAPackageWithoutAUsableDeviceFile)
{
    ASSERT_TRUE(m_document.open(
        package({{kOverlay, overlay("One", 320)}, {kDevice, device("MXS", 12, "RPM")}})));
    for (const Members& members : {Members{{kOverlay, overlay("Two", 640)}},
                                   Members{{kOverlay, overlay("Two", 640)}, {kDevice, "broken"}}}) {
        ASSERT_TRUE(m_document.open(package(members)));
        EXPECT_EQ(m_document.pages()[0].name, QStringLiteral("Two"));
        EXPECT_EQ(m_document.deviceType(), QStringLiteral("MXS"));
        EXPECT_EQ(m_document.deviceTypeCode(), 12);
        EXPECT_EQ(m_document.displayWidth(), 320);
        EXPECT_EQ(m_document.displayHeight(), 240);
        EXPECT_EQ(m_document.channels().size(), 1U);
    }
    EXPECT_EQ(m_document.addBlankPage(QStringLiteral("New")), 2);
    EXPECT_EQ(m_document.pages()[2].width, 320) << "a new page takes the size that was kept";
}

TEST_F(DashboardDocumentTest, AFailedOpenLeavesTheOpenDocumentAsItWas)
{
    ASSERT_TRUE(m_document.open(
        package({{kOverlay, overlay("Race")}, {kDevice, device("MXS", 12, "RPM")}})));
    m_document.pageAt(0)->elements[0].x = 99; // not saved yet
    const QByteArray before = everything(m_document);

    ASSERT_TRUE(TestPackage::writeFile(path("text.zconf2"), "no archive"));
    EXPECT_FALSE(m_document.open(path("missing.zconf2")));
    EXPECT_FALSE(m_document.open(path("text.zconf2")));
    EXPECT_FALSE(m_document.open(m_folder.path()));
    EXPECT_FALSE(m_document.open({}));
    for (const QByteArray& content : {QByteArray("broken"), QByteArray(),
                                      QByteArray("<overlay_cli/>"), TestPackage::overlayXml({})})
        EXPECT_FALSE(
            m_document.open(package({{kOverlay, content}, {kDevice, device("MXG", 13, "Oil")}})));
    EXPECT_FALSE(m_document.open(package({{kDevice, device("MXG", 13, "Oil")}})));
    EXPECT_FALSE(m_document.open(package({})));

    EXPECT_EQ(everything(m_document), before);
    EXPECT_EQ(InStep::firstDisagreement(m_document), "");
    EXPECT_TRUE(m_document.removeElement(0, 1)) << "still editable";
    ASSERT_TRUE(m_document.save(path("saved.zconf2"))) << "still to be saved";
    ASSERT_TRUE(m_document.open(path("saved.zconf2")));
    ASSERT_EQ(m_document.pages()[0].elements.size(), 1U);
    EXPECT_EQ(m_document.pages()[0].elements[0].x, 99);
}

TEST_F(DashboardDocumentTest, AFailedFirstOpenLeavesTheDocumentEmpty)
{
    EXPECT_FALSE(m_document.open(package({{kOverlay, "broken"}})));
    EXPECT_EQ(m_document.tempDir(), QString());
    EXPECT_EQ(m_document.overlayPath(), QString());
    EXPECT_EQ(m_document.addBlankPage(QStringLiteral("x")), -1);
    EXPECT_FALSE(m_document.save(path("saved.zconf2")));
}

TEST_F(DashboardDocumentTest, SaveWritesBackAndKeepsEveryOtherFile)
{
    const Members members{{kOverlay, overlay("Race")},
                          {kDevice, device("MXS", 12, "RPM")},
                          {QStringLiteral("expansions/overlay.ov3.xml"), "anything"},
                          {QStringLiteral("pics/\u00e9.bin"), QByteArray(5000, '\0')}};
    ASSERT_TRUE(m_document.open(package(members)));
    m_document.pageAt(0)->elements[1].y = -7;
    ASSERT_TRUE(m_document.save(path("saved.zconf2")));

    Members saved = TestPackage::readPackage(path("saved.zconf2"));
    EXPECT_EQ(saved[kOverlay], TestPackage::readFile(m_document.overlayPath()));
    EXPECT_EQ(saved[kOverlay].count("<p n=\"YPOS\">-7</p>"), 1);
    saved[kOverlay] = members.at(kOverlay);
    EXPECT_EQ(saved, members);
}

TEST_F(DashboardDocumentTest, SaveOntoTheOpenPackageAndOpenAgain)
{
    const QString file = package({{kOverlay, overlay("Race")}});
    ASSERT_TRUE(m_document.open(file));
    m_document.pageAt(0)->elements[0].x = 77;
    ASSERT_EQ(m_document.addBlankPage(QStringLiteral("Third")), 2);
    ASSERT_TRUE(m_document.save(file));
    const QByteArray records = InStep::recordsText(m_document);
    const QByteArray xml = InStep::overlayText(m_document);
    ASSERT_TRUE(m_document.open(file));
    EXPECT_EQ(InStep::recordsText(m_document), records);
    EXPECT_EQ(InStep::overlayText(m_document), xml);
}

TEST_F(DashboardDocumentTest, AFailedSaveKeepsTheOldPackageAndTheDocument)
{
    const QString file = package({{kOverlay, overlay("Race")}});
    ASSERT_TRUE(m_document.open(file));
    m_document.pageAt(0)->elements[0].x = 77;
    const QByteArray old = TestPackage::readFile(file);
    const QByteArray records = InStep::recordsText(m_document);

    EXPECT_FALSE(m_document.save(m_folder.path())) << "a folder";
    EXPECT_FALSE(m_document.save(path("missing/out.zconf2")));
    const QByteArray written = TestPackage::readFile(m_document.overlayPath());
    EXPECT_EQ(written.count("<p n=\"XPOS\">77</p>"), 1) << "a retry packs what was written";
    // The overlay cannot be written: a folder stands in its place.
    ASSERT_TRUE(QFile::remove(m_document.overlayPath()));
    ASSERT_TRUE(QDir().mkdir(m_document.overlayPath()));
    EXPECT_FALSE(m_document.save(file));
    EXPECT_EQ(TestPackage::readFile(file), old);
    EXPECT_EQ(InStep::recordsText(m_document), records);

    ASSERT_TRUE(QDir().rmdir(m_document.overlayPath()));
    ASSERT_TRUE(m_document.save(file)) << "a second try works";
    ASSERT_TRUE(m_document.open(file));
    EXPECT_EQ(m_document.pages()[0].elements[0].x, 77);
}

TEST_F(DashboardDocumentTest, WithoutItsConfigurationObjectNothingIsSaved)
{
    const QString file = package({{kOverlay, overlay("Race")}});
    ASSERT_TRUE(m_document.open(file));
    const QByteArray old = TestPackage::readFile(file);
    const QByteArray unpacked = TestPackage::readFile(m_document.overlayPath());
    m_document.confNode().parent().remove_child(m_document.confNode());
    EXPECT_FALSE(m_document.save(file));
    EXPECT_EQ(TestPackage::readFile(file), old);
    EXPECT_EQ(TestPackage::readFile(m_document.overlayPath()), unpacked);
}

TEST_F(DashboardDocumentTest, SaysWhyItCouldNotOpen)
{
    const auto reason = [this](const QString& file) {
        EXPECT_FALSE(m_document.open(file));
        return m_document.errorString();
    };
    EXPECT_EQ(reason(path("missing.zconf2")), QStringLiteral("There is no such file"));
    EXPECT_EQ(reason(package({{QStringLiteral("a.txt"), "x"}})),
              QStringLiteral("There is no overlay in it"));
    EXPECT_EQ(reason(package({{kOverlay, "<overlay_cli>"}})),
              QStringLiteral("\"overlay.ov3.xml\" is not well-formed XML"));
    EXPECT_EQ(reason(package({{kOverlay, TestPackage::overlayXml({})}})),
              QStringLiteral("There is no page in the overlay"));
    ASSERT_TRUE(TestPackage::writeFile(path("made.zconf2"), "no archive"));
    EXPECT_FALSE(reason(path("made.zconf2")).isEmpty());

    ASSERT_TRUE(m_document.open(package({{kOverlay, overlay("Race")}, {kDevice, "<broken"}})));
    EXPECT_EQ(m_document.errorString(), QString()) << "it opens without a device";
}

TEST_F(DashboardDocumentTest, SaysWhenTheUnpackFolderIsWhatCannotBeWritten)
{
    ASSERT_TRUE(m_document.open(package({{kOverlay, overlay("Race")}})));
    ASSERT_TRUE(QFile::remove(m_document.overlayPath()));
    ASSERT_TRUE(QDir().mkdir(m_document.overlayPath()));
    const QString reason = QStringLiteral("\"%1\" cannot be written: "
                                          "The destination is not an ordinary file")
                               .arg(m_document.overlayPath());
    EXPECT_FALSE(m_document.save(path("out.zconf2")));
    EXPECT_EQ(m_document.errorString(), reason);
    EXPECT_FALSE(m_document.keepEdits());
    EXPECT_EQ(m_document.errorString(), reason);
}

TEST_F(DashboardDocumentTest, SaysWhyItCouldNotReadOrWriteAFile)
{
    EXPECT_FALSE(m_document.save(path("out.zconf2")));
    EXPECT_EQ(m_document.errorString(), QStringLiteral("No package is open"));
    EXPECT_FALSE(m_document.writeBack(path("out.xml")));
    EXPECT_EQ(m_document.errorString(), QStringLiteral("No overlay is open"));

    ASSERT_TRUE(m_document.open(package({{kOverlay, overlay("Race")}})));
    EXPECT_FALSE(m_document.writeBack(m_folder.path()));
    EXPECT_EQ(m_document.errorString(), QStringLiteral("The destination is not an ordinary file"));
    EXPECT_FALSE(m_document.save(m_folder.path()));
    EXPECT_FALSE(m_document.errorString().isEmpty());
    ASSERT_TRUE(m_document.save(path("out.zconf2")));
    EXPECT_EQ(m_document.errorString(), QString());

    EXPECT_FALSE(m_document.loadOverlay(path("missing.xml")));
    EXPECT_EQ(m_document.errorString(),
              QStringLiteral("\"missing.xml\" cannot be read: ") + qt_error_string(ENOENT));
    ASSERT_TRUE(TestPackage::writeFile(path("other.aimcfg"), "<other/>"));
    EXPECT_FALSE(m_document.loadDeviceFile(path("other.aimcfg")));
    EXPECT_EQ(m_document.errorString(), QStringLiteral("There is no device in the device file"));
}

TEST_F(DashboardDocumentTest, KeepsEditsInTheUnpackFolder)
{
    EXPECT_FALSE(m_document.keepEdits()) << "nothing is open";
    const QString file = package({{kOverlay, overlay("Race")}});
    const QByteArray before = TestPackage::readFile(file);
    ASSERT_TRUE(m_document.open(file));
    m_document.pageAt(0)->elements[0].x = 77;
    ASSERT_EQ(m_document.addBlankPage(QStringLiteral("Kept")), 2);
    ASSERT_TRUE(m_document.keepEdits());
    EXPECT_EQ(TestPackage::readFile(file), before) << "the package stays as it is";

    DashboardDocument recovered;
    ASSERT_TRUE(recovered.loadOverlay(m_document.overlayPath()));
    EXPECT_EQ(recovered.pages()[0].elements[0].x, 77);
    EXPECT_EQ(recovered.pages()[2].name, QStringLiteral("Kept"));
}
