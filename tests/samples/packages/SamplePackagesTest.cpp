#include "dialogs/DonorDiscovery.h"
#include "document/DashboardDocument.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace {

QString samplePath(const QString& fileName)
{
    return QStringLiteral(SAMPLES_DIR) + u'/' + fileName;
}

void parse(const QByteArray& text, pugi::xml_document& xml)
{
    ASSERT_TRUE(xml.load_buffer(text.constData(), static_cast<std::size_t>(text.size())));
}

std::string normalised(const pugi::xml_document& xml)
{
    std::ostringstream text;
    xml.save(text, "", pugi::format_raw);
    return text.str();
}

std::string normalised(const QByteArray& text)
{
    pugi::xml_document xml;
    parse(text, xml);
    return normalised(xml);
}

QRect rectOf(const DashElement& element)
{
    return {element.x, element.y, element.w, element.h};
}

class SamplePackage : public testing::Test
{
protected:
    void open(const QString& fileName) { ASSERT_TRUE(m_document.open(samplePath(fileName))); }

    template <typename Visit>
    void forEachElement(Visit visit) const
    {
        for (const DashPage& page : m_document.pages())
            std::for_each(page.elements.begin(), page.elements.end(), visit);
    }

    DashboardDocument m_document;
    QTemporaryDir m_folder;
};

class ClubRacingPackage : public SamplePackage
{
protected:
    void SetUp() override { open(QStringLiteral("club-racing.zconf2")); }
};

struct Promise
{
    const char* fileName;
    int width;
    int height;
    int pages;
    std::size_t fewestElements;
    std::size_t mostElements;
    int images;
};

std::ostream& operator<<(std::ostream& out, const Promise& promise)
{
    return out << promise.fileName;
}

std::string nameOf(const testing::TestParamInfo<Promise>& package)
{
    std::string name = package.param.fileName;
    name.resize(name.find('.'));
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class EverySamplePackage : public SamplePackage, public testing::WithParamInterface<Promise>
{
protected:
    void SetUp() override { open(QString::fromLatin1(GetParam().fileName)); }

    // Saves under a new name and reads every member of the package before and after.
    void save()
    {
        const QString copy = m_folder.filePath(QStringLiteral("copy.zconf2"));
        ASSERT_TRUE(m_document.save(copy));
        m_before = TestPackage::readPackage(samplePath(QString::fromLatin1(GetParam().fileName)));
        m_after = TestPackage::readPackage(copy);
        m_overlay = QDir(m_document.tempDir()).relativeFilePath(m_document.overlayPath());
        ASSERT_TRUE(m_before.contains(m_overlay));
    }

    std::map<QString, QByteArray> m_before;
    std::map<QString, QByteArray> m_after;
    QString m_overlay; // name of the overlay's member
};

} // namespace

TEST_P(EverySamplePackage, holdsWhatItPromises)
{
    const Promise& promise = GetParam();
    EXPECT_EQ(m_document.displayWidth(), promise.width);
    EXPECT_EQ(m_document.displayHeight(), promise.height);
    EXPECT_EQ(m_document.pageCount(), promise.pages);
    int images = 0;
    for (const DashPage& page : m_document.pages()) {
        EXPECT_EQ(QSize(page.width, page.height), QSize(promise.width, promise.height));
        EXPECT_GE(page.elements.size(), promise.fewestElements) << page.name.toStdString();
        EXPECT_LE(page.elements.size(), promise.mostElements) << page.name.toStdString();
        if (page.image.isNull())
            continue;
        ++images;
        EXPECT_EQ(page.image.size(), QSize(promise.width, promise.height));
    }
    EXPECT_EQ(images, promise.images);
}

TEST_P(EverySamplePackage, placesElementsOnThePageWithoutOverlap)
{
    for (const DashPage& page : m_document.pages()) {
        const QRect area(0, 0, page.width, page.height);
        for (auto element = page.elements.begin(); element != page.elements.end(); ++element) {
            const QRect rect = rectOf(*element);
            EXPECT_TRUE(area.contains(rect)) << element->name.toStdString();
            EXPECT_TRUE(std::none_of(
                std::next(element), page.elements.end(),
                [&](const DashElement& other) { return rect.intersects(rectOf(other)); }))
                << page.name.toStdString() << ": " << element->name.toStdString();
        }
    }
}

TEST_P(EverySamplePackage, namesEveryElementOfAPageDifferently)
{
    for (const DashPage& page : m_document.pages()) {
        std::set<QString> names;
        for (const DashElement& element : page.elements)
            EXPECT_TRUE(names.insert(element.name).second) << element.name.toStdString();
    }
}

TEST_P(EverySamplePackage, listsTheChannelsOfItsDevice)
{
    EXPECT_FALSE(m_document.deviceType().isEmpty());
    EXPECT_GT(m_document.deviceTypeCode(), 0);
    EXPECT_THAT(m_document.channels().size(), testing::AllOf(testing::Ge(140), testing::Le(160)));
    std::set<int> fids;
    std::set<QString> names;
    for (const ChannelDef& channel : m_document.channels()) {
        EXPECT_TRUE(fids.insert(channel.fid).second) << channel.fid;
        EXPECT_TRUE(names.insert(channel.longName).second) << channel.longName.toStdString();
        EXPECT_FALSE(channel.shortName.isEmpty());
        EXPECT_FALSE(channel.uiv.isEmpty());
    }
}

TEST_P(EverySamplePackage, bindsElementsToChannelsOfItsDevice)
{
    std::map<QString, QString> shortNames;
    for (const ChannelDef& channel : m_document.channels())
        shortNames[channel.longName] = channel.shortName;
    forEachElement([&](const DashElement& element) {
        if (element.channelLongName.isEmpty())
            return;
        ASSERT_TRUE(shortNames.contains(element.channelLongName));
        EXPECT_EQ(element.channelShortName, shortNames[element.channelLongName]);
    });
}

TEST_P(EverySamplePackage, comesBackUnchangedFromASave)
{
    ASSERT_NO_FATAL_FAILURE(save());
    EXPECT_EQ(normalised(m_after[m_overlay]), normalised(m_before[m_overlay]));
    m_before.erase(m_overlay);
    m_after.erase(m_overlay);
    EXPECT_EQ(m_after, m_before);
}

TEST_P(EverySamplePackage, changesInTheFileOnlyWhatWasEdited)
{
    DashElement& element = m_document.pageAt(0)->elements.back();
    element.x += 7;
    ASSERT_NO_FATAL_FAILURE(save());

    pugi::xml_document expected;
    parse(m_before[m_overlay], expected);
    const pugi::xml_node page = expected.select_node("//e[@c='GPageParam'][1]").node();
    const pugi::xml_node x = page.select_node("e[@c='GMaskParam'][last()]/p[@n='XPOS']").node();
    ASSERT_TRUE(x.text().set(element.x));
    EXPECT_EQ(normalised(m_after[m_overlay]), normalised(expected));
}

TEST_P(EverySamplePackage, keepsWhatNoEditorUnderstandsThroughASave)
{
    ASSERT_NO_FATAL_FAILURE(save());
    const std::string overlay = normalised(m_after[m_overlay]);
    for (const char* unknown :
         {"c=\"Palette\"", "c=\"ShiftLights\"", "c=\"PageKeys\"", "c=\"PageNotes\"",
          "c=\"AlarmList\"", "c=\"History\"", "c=\"ZoneParam\"", "n=\"DECIMALS\"", "n=\"VISIBLE\"",
          "n=\"MIN\"", "layer=\"3\"", "align=\"centre\"", "build=\"2026.1\""})
        EXPECT_THAT(overlay, testing::HasSubstr(unknown));
    for (const char* extra : {"expansions/keypad/overlay.ov3.xml", "devices/spare.aimcfg",
                              "notes/setup für Regen.txt", "resources/shift-lights.bin"})
        EXPECT_TRUE(m_after.contains(QString::fromUtf8(extra))) << extra;
}

INSTANTIATE_TEST_SUITE_P(Samples, EverySamplePackage,
                         testing::Values(Promise{"club-racing.zconf2", 800, 480, 8, 12, 30, 6},
                                         Promise{"compact.zconf2", 320, 240, 4, 7, 12, 3},
                                         Promise{"endurance-large.zconf2", 1024, 600, 20, 60, 60,
                                                 20}),
                         nameOf);

TEST_F(ClubRacingPackage, showsEveryKindOfElementWithAndWithoutLabel)
{
    std::set<ElementKind> kinds;
    std::set<bool> labelled;
    forEachElement([&](const DashElement& element) {
        kinds.insert(element.kind);
        labelled.insert(element.hasLabel);
    });
    EXPECT_EQ(kinds.size(), 4U);
    EXPECT_EQ(labelled.size(), 2U);
}

TEST_F(ClubRacingPackage, showsSeveralFontsAndColoursSomeTranslucent)
{
    std::set<QString> fonts;
    std::set<QRgb> colors;
    std::set<int> alphas;
    forEachElement([&](const DashElement& element) {
        fonts.insert({element.valueFont, element.labelFont});
        for (const QColor& color : {element.valueColor, element.labelColor}) {
            if (!color.isValid())
                continue;
            colors.insert(color.rgba());
            alphas.insert(color.alpha());
        }
    });
    fonts.erase(QString());
    EXPECT_EQ(fonts.size(), 3U);
    EXPECT_GE(colors.size(), 5U);
    EXPECT_GE(alphas.size(), 3U);
}

TEST_F(ClubRacingPackage, offersADonorOfEveryKind)
{
    EXPECT_EQ(DonorDiscovery::findDonors(m_document).size(), 8U);
}

TEST_F(ClubRacingPackage, showsTheChannelsOfTheSampleRecording)
{
    std::set<QString> shown;
    forEachElement([&](const DashElement& element) { shown.insert(element.channelLongName); });
    for (const char* name :
         {"RPM", "Gear_Pos", "port rpm", "stbd rpm", "Water Temp", "Oil Press", "Oil Temp",
          "GPS Speed", "GPS LatAcc", "Throttle", "Brake Press F", "Fuel Level", "Lap Time",
          "star boost", "Battery", "Lambda 1", "GPS Altitude"})
        EXPECT_TRUE(shown.contains(QString::fromLatin1(name))) << name;
}

TEST_F(SamplePackage, isTheSameEachTimeItIsMade)
{
    ASSERT_EQ(QProcess::execute(QStringLiteral(SAMPLE_PACKAGES_TOOL), {m_folder.path()}), 0);
    const QStringList names = QDir(m_folder.path()).entryList(QDir::Files);
    EXPECT_EQ(names.size(), 3);
    for (const QString& name : names) {
        EXPECT_TRUE(TestPackage::readPackage(m_folder.filePath(name)) ==
                    TestPackage::readPackage(samplePath(name)))
            << name.toStdString();
    }
}
