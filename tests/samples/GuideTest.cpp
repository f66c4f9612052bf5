// The user guide and the README: their pictures are those that the tour takes, their links lead
// somewhere.

#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <set>

namespace {

const QString kRoot = QStringLiteral(SOURCE_DIR);

QString pathOf(const QString& relative)
{
    return kRoot + u'/' + relative;
}

// The targets of the links and pictures of a Markdown file that are files of this repository.
std::set<QString> linksOf(const QString& document)
{
    static const QRegularExpression link(QStringLiteral(R"(\]\(([^)#:]+)(#[^)]*)?\))"));
    const QString text = QString::fromUtf8(TestPackage::readFile(pathOf(document)));
    std::set<QString> links;
    for (const QRegularExpressionMatch& match : link.globalMatch(text))
        links.insert(match.captured(1));
    return links;
}

std::set<QString> picturesOf(const QString& document)
{
    std::set<QString> pictures;
    for (const QString& link : linksOf(document)) {
        if (link.endsWith(QStringLiteral(".png")))
            pictures.insert(QFileInfo(link).fileName());
    }
    return pictures;
}

std::set<QString> filesIn(const QString& folder)
{
    const QStringList names = QDir(folder).entryList(QDir::Files);
    return {names.begin(), names.end()};
}

std::set<QString> keptPictures()
{
    return filesIn(pathOf(QStringLiteral("docs/images")));
}

class Guide : public testing::TestWithParam<const char*>
{
protected:
    QString m_document = QString::fromLatin1(GetParam());
};

} // namespace

TEST_P(Guide, showsPictures)
{
    EXPECT_FALSE(picturesOf(m_document).empty());
}

TEST_P(Guide, linksToFilesThatExist)
{
    const QDir folder = QFileInfo(pathOf(m_document)).dir();
    for (const QString& link : linksOf(m_document))
        EXPECT_TRUE(QFileInfo::exists(folder.filePath(link))) << link.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Documents, Guide, testing::Values("README.md", "docs/user-guide.md"));

TEST(GuidePictures, areAllShownSomewhere)
{
    std::set<QString> shown = picturesOf(QStringLiteral("README.md"));
    shown.merge(picturesOf(QStringLiteral("docs/user-guide.md")));
    EXPECT_EQ(keptPictures(), shown);
}

TEST(GuidePictures, areThoseThatTheTourTakes)
{
    const QTemporaryDir folder;
    ASSERT_EQ(QProcess::execute(QStringLiteral(TOUR), {folder.path()}), 0);
    const std::set<QString> taken = filesIn(folder.path());
    for (const QString& picture : keptPictures())
        EXPECT_TRUE(taken.contains(picture)) << picture.toStdString();
}

TEST(GuidePictures, areOfTheWholeWindow)
{
    for (const QString& picture : keptPictures()) {
        const QImage image(pathOf(QStringLiteral("docs/images/") + picture));
        EXPECT_EQ(image.size(), QSize(1280, 750)) << picture.toStdString();
    }
}
