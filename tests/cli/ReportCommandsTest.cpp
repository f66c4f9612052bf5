// show, diff, check and recover with packages made here: status, text and JSON.

#include "tests/cli/RanCommand.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using TestPackage::digitElement;
using TestPackage::Object;
using TestPackage::page;

namespace {

class ReportCommands : public ::testing::Test
{
protected:
    [[nodiscard]] QString package(const QString& name, std::vector<Object> elements) const
    {
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(TestPackage::writePackage(
            path, TestPackage::overlayXml({page("Race", 800, 480, std::move(elements))}),
            TestPackage::deviceXml("MXG", 12, {{7, "Engine RPM", "RPM", "rpm"}})));
        return path;
    }

    const QTemporaryDir m_folder;
};

QStringList idsOf(const RanCommand& ran, const QString& list)
{
    QStringList ids;
    for (const QJsonValue value : ran.json().value(list).toArray())
        ids.append(value[u"id"_s].toString());
    return ids;
}

} // namespace

TEST_F(ReportCommands, ShowListsTheLayout)
{
    const QString path = package(u"a.zconf2"_s, {digitElement("mask.1", 1, 2, 30, 40)});
    const RanCommand text = runCommand({u"show"_s, path});
    EXPECT_EQ(text.status, ExitStatus::Clean);
    EXPECT_TRUE(text.answer.contains("\n  element: \"mask.1\"\n    kind: Numeric value\n"));

    const RanCommand ran = runCommand({u"show"_s, u"--format"_s, u"json"_s, path});
    EXPECT_EQ(ran.status, ExitStatus::Clean);
    const QJsonObject json = ran.json();
    EXPECT_EQ(json[u"format"_s], u"gaugewright-cli"_s);
    EXPECT_EQ(json[u"version"_s], 1);
    EXPECT_EQ(json[u"command"_s], u"show"_s);
    EXPECT_EQ(json[u"package"_s], path);
    EXPECT_EQ(json[u"device"_s][u"type"_s], u"MXG"_s);
    EXPECT_EQ(json[u"channels"_s][0][u"longName"_s], u"Engine RPM"_s);
    const QJsonValue element = json[u"pages"_s][0][u"elements"_s][0];
    EXPECT_EQ(element[u"kind"_s], u"numeric-value"_s);
    EXPECT_EQ(element[u"channel"_s][u"longName"_s], u"Engine RPM"_s);
    EXPECT_EQ(element[u"height"_s], 40);
    EXPECT_EQ(element[u"valueStyle"_s][u"color"_s], u"0xffffff00"_s);
    EXPECT_TRUE(element[u"labelStyle"_s].isUndefined());
    EXPECT_EQ(json[u"files"_s][0][u"path"_s], u"device.aimcfg"_s);
}

TEST_F(ReportCommands, DiffEndsWithOneWhenSomethingChanged)
{
    const QString former = package(u"a.zconf2"_s, {digitElement("mask.1", 1, 2, 30, 40)});
    const QString present = package(u"b.zconf2"_s, {digitElement("mask.1", 5, 2, 30, 40)});
    const RanCommand same = runCommand({u"diff"_s, former, former});
    EXPECT_EQ(same.status, ExitStatus::Clean);
    EXPECT_EQ(same.answer, QByteArray());

    const RanCommand text = runCommand({u"diff"_s, former, present});
    EXPECT_EQ(text.status, ExitStatus::Findings);
    EXPECT_EQ(text.answer, "page 1 \"Race\", element \"mask.1\": moved from 1, 2 to 5, 2\n");

    const RanCommand ran = runCommand({u"diff"_s, former, present, u"--format=json"_s});
    EXPECT_EQ(ran.status, ExitStatus::Findings);
    const QJsonValue difference = ran.json()[u"differences"_s][0];
    EXPECT_EQ(difference[u"id"_s], u"element-moved"_s);
    EXPECT_EQ(difference[u"page"_s], 1);
    EXPECT_EQ(difference[u"pageName"_s], u"Race"_s);
    EXPECT_EQ(difference[u"element"_s], u"mask.1"_s);
    EXPECT_EQ(difference[u"before"_s], u"1, 2"_s);
    EXPECT_EQ(difference[u"after"_s], u"5, 2"_s);
}

TEST_F(ReportCommands, CheckEndsWithOneForWarningsAndErrors)
{
    const QString clean = package(u"a.zconf2"_s, {digitElement("mask.1", 1, 2, 30, 40)});
    EXPECT_EQ(runCommand({u"check"_s, clean}).status, ExitStatus::Clean);

    const QString path = package(u"b.zconf2"_s, {digitElement("mask.1", 790, 2, 30, 40, "Other")});
    const RanCommand text = runCommand({u"check"_s, path});
    EXPECT_EQ(text.status, ExitStatus::Findings);
    EXPECT_EQ(text.answer,
              "warning outside-page page 1 \"Race\", element \"mask.1\": reaches beyond its page\n"
              "error unknown-channel page 1 \"Race\", element \"mask.1\": is bound to \"Other\", "
              "which the device does not have\n");
    const RanCommand ran = runCommand({u"check"_s, path, u"--format=json"_s});
    EXPECT_EQ(idsOf(ran, u"findings"_s), (QStringList{u"outside-page"_s, u"unknown-channel"_s}));
    EXPECT_EQ(ran.json()[u"findings"_s][1][u"severity"_s], u"error"_s);
    EXPECT_EQ(ran.json()[u"findings"_s][1][u"element"_s], u"mask.1"_s);
}

TEST_F(ReportCommands, CheckLeavesOutWhatIsNotWanted)
{
    const QString path = package(u"a.zconf2"_s, {digitElement("mask.1", 790, 2, 30, 40, "Other")});
    const auto found = [&](const QStringList& options) {
        return idsOf(runCommand(QStringList{u"check"_s, path, u"--format=json"_s} + options),
                     u"findings"_s);
    };
    EXPECT_EQ(found({u"--severity=error"_s}), QStringList{u"unknown-channel"_s});
    EXPECT_EQ(found({u"--severity=warning"_s}).size(), 2);
    EXPECT_EQ(found({u"--ignore=unknown-channel"_s}), QStringList{u"outside-page"_s});
    EXPECT_EQ(found({u"--ignore=unknown-channel,outside-page"_s}), QStringList());
    const RanCommand none = runCommand(
        {u"check"_s, path, u"--ignore=unknown-channel"_s, u"--ignore"_s, u"outside-page"_s});
    EXPECT_EQ(none.status, ExitStatus::Clean);
}

TEST_F(ReportCommands, AnInformationAloneIsClean)
{
    const QString path = m_folder.filePath(u"a.zconf2"_s);
    ASSERT_TRUE(TestPackage::writePackage(path, TestPackage::overlayXml({page("Race", 1, 1)})));
    const RanCommand ran = runCommand({u"check"_s, path});
    EXPECT_EQ(ran.status, ExitStatus::Clean);
    EXPECT_TRUE(ran.answer.startsWith("information no-device: ")) << ran.answer.toStdString();
}

TEST_F(ReportCommands, RecoverMakesAPackageOfAFolder)
{
    const QString left = m_folder.filePath(u"left"_s);
    TestPackage::writeFolder(
        left, {{u"overlay.ov3.xml"_s, TestPackage::overlayXml({page("Race", 800, 480)})}});
    const QString output = m_folder.filePath(u"saved.zconf2"_s);
    const QStringList arguments{u"recover"_s, left, u"--output"_s, output};
    const RanCommand ran = runCommand(arguments);
    EXPECT_EQ(ran.status, ExitStatus::Clean) << ran.errors.toStdString();
    EXPECT_EQ(ran.answer, output.toUtf8() + '\n');
    EXPECT_EQ(runCommand({u"show"_s, output}).status, ExitStatus::Clean);

    ASSERT_TRUE(TestPackage::writeFile(output, "precious"));
    const RanCommand refused = runCommand(arguments);
    EXPECT_EQ(refused.status, ExitStatus::Trouble);
    EXPECT_TRUE(refused.errors.contains("--force"));
    EXPECT_EQ(TestPackage::readFile(output), "precious");
    EXPECT_EQ(runCommand(arguments + QStringList{u"--force"_s}).status, ExitStatus::Clean);
    EXPECT_NE(TestPackage::readFile(output), "precious");

    const RanCommand nothing = runCommand(
        {u"recover"_s, m_folder.path() + u"/none"_s, u"--output"_s, m_folder.filePath(u"x"_s)});
    EXPECT_EQ(nothing.status, ExitStatus::Trouble);
    EXPECT_TRUE(nothing.errors.contains("/none: There is no such folder"));
}

TEST_F(ReportCommands, RecoverListsUnpackFolders)
{
    const QByteArray former = qgetenv(FolderTools::kTempVariable);
    qputenv(FolderTools::kTempVariable, m_folder.path().toLocal8Bit());
    const QString left = m_folder.filePath(u"Gaugewright-AbCdEf"_s);
    TestPackage::writeFolder(
        left, {{u"overlay.ov3.xml"_s,
                TestPackage::overlayXml({page("Race", 800, 480), page("Pit", 800, 480)})}});
    const RanCommand text = runCommand({u"recover"_s});
    const RanCommand ran = runCommand({u"recover"_s, u"--format=json"_s});
    qputenv(FolderTools::kTempVariable, former);
    EXPECT_EQ(text.status, ExitStatus::Clean);
    EXPECT_TRUE(text.answer.contains(QByteArray(left.toUtf8() + " pages \"Race\", \"Pit\"\n")));
    const QJsonValue folder = ran.json()[u"folders"_s][0];
    EXPECT_EQ(folder[u"folder"_s], left);
    EXPECT_TRUE(folder[u"changed"_s].toString().endsWith(u'Z'));
    EXPECT_EQ(folder[u"pages"_s][1], u"Pit"_s);
}
