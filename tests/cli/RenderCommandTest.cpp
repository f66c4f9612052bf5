#include "tests/cli/RanCommand.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QImage>
#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using TestPackage::page;

namespace {

class RenderCommand : public ::testing::Test
{
protected:
    RenderCommand()
    {
        std::vector<TestPackage::Object> pages(10, page("Race", 40, 30));
        pages.at(1) = page("Pit", 60, 20, {TestPackage::digitElement("mask.1", 0, 0, 60, 20)});
        EXPECT_TRUE(TestPackage::writePackage(m_package, TestPackage::overlayXml(pages)));
    }

    [[nodiscard]] RanCommand render(const QStringList& options) const
    {
        return runCommand(QStringList{u"render"_s, m_package, u"--output"_s, m_output} + options);
    }

    const QTemporaryDir m_folder;
    const QString m_package = m_folder.filePath(u"layout.zconf2"_s);
    const QString m_output = m_folder.filePath(u"new/pictures"_s);
};

} // namespace

TEST_F(RenderCommand, PaintsEveryPageInItsSize)
{
    const RanCommand ran = render({});
    EXPECT_EQ(ran.status, ExitStatus::Clean) << ran.errors.toStdString();
    EXPECT_EQ(ran.answer.count('\n'), 10);
    EXPECT_TRUE(ran.answer.startsWith(QByteArray(m_output.toUtf8() + "/page-01.png\n")));
    const QStringList names = FolderTools::names(m_output);
    EXPECT_EQ(names.size(), 10);
    EXPECT_EQ(names.last(), u"page-10.png"_s);
    EXPECT_EQ(QImage(m_output + u"/page-01.png"_s).size(), QSize(40, 30));
    EXPECT_EQ(QImage(m_output + u"/page-02.png"_s).size(), QSize(60, 20));
    EXPECT_EQ(QImage(m_output + u"/page-01.png"_s).pixelColor(20, 15), QColor(Qt::black));
    EXPECT_NE(QImage(m_output + u"/page-02.png"_s).pixelColor(30, 10), QColor(Qt::black));
}

TEST_F(RenderCommand, PaintsOnePageScaled)
{
    const RanCommand ran = render({u"--page=2"_s, u"--scale"_s, u"2.5"_s, u"--format=json"_s});
    EXPECT_EQ(ran.status, ExitStatus::Clean) << ran.errors.toStdString();
    EXPECT_EQ(FolderTools::names(m_output), QStringList{u"page-02.png"_s});
    EXPECT_EQ(QImage(m_output + u"/page-02.png"_s).size(), QSize(150, 50));
    const QJsonArray pictures = ran.json()[u"pictures"_s].toArray();
    ASSERT_EQ(pictures.size(), 1);
    EXPECT_EQ(pictures[0][u"page"_s], 2);
    EXPECT_EQ(pictures[0][u"pageName"_s], u"Pit"_s);
    EXPECT_EQ(pictures[0][u"width"_s], 150);
}

TEST_F(RenderCommand, WritesOverNothingUnlessForced)
{
    ASSERT_EQ(render({u"--page=5"_s}).status, ExitStatus::Clean);
    const QString path = m_output + u"/page-05.png"_s;
    ASSERT_TRUE(TestPackage::writeFile(path, "precious"));
    const RanCommand ran = render({});
    EXPECT_EQ(ran.status, ExitStatus::Trouble);
    EXPECT_TRUE(ran.errors.contains("/page-05.png: ")) << ran.errors.toStdString();
    EXPECT_EQ(FolderTools::names(m_output), QStringList{u"page-05.png"_s}) << "before any";
    EXPECT_EQ(TestPackage::readFile(path), "precious");
    EXPECT_EQ(render({u"--force"_s}).status, ExitStatus::Clean);
    EXPECT_EQ(QImage(path).size(), QSize(40, 30));
}

TEST_F(RenderCommand, RefusesWhatCannotBePainted)
{
    const RanCommand none = render({u"--page=11"_s});
    EXPECT_EQ(none.status, ExitStatus::Trouble);
    EXPECT_TRUE(none.errors.contains("layout.zconf2: It has no page 11\n"));

    const RanCommand large = render({u"--scale=10000"_s});
    EXPECT_EQ(large.status, ExitStatus::Trouble);
    EXPECT_TRUE(large.errors.contains("Page 1 of 40 x 30")) << large.errors.toStdString();
    EXPECT_EQ(FolderTools::names(m_folder.path()), QStringList{u"layout.zconf2"_s})
        << "nothing was written";
}

TEST_F(RenderCommand, SaysWhenTheFolderCannotBeMade)
{
    ASSERT_TRUE(TestPackage::writeFile(m_folder.filePath(u"new"_s), "a file"));
    const RanCommand ran = render({});
    EXPECT_EQ(ran.status, ExitStatus::Trouble);
    EXPECT_TRUE(ran.errors.contains("/new/pictures: ")) << ran.errors.toStdString();
}
