#include "review/LayoutListing.h"

#include "tests/review/OpenedLayout.h"

using namespace Qt::StringLiterals;
using TestPackage::digitElement;
using TestPackage::labelElement;
using TestPackage::page;

TEST(LayoutListing, SaysOneFactALine)
{
    TestPackage::Object race = page(
        "Race", 800, 480,
        {digitElement("mask.1", 10, 20, 120, 60), labelElement("mask.2", 5, 6, 70, 8, "Oil\n")});
    race.properties.push_back({"PATH_IMAGE", "race.png"});
    const OpenedLayout layout({race, page("Pit", 800, 480)},
                              TestPackage::deviceXml("MXG", 12, {{7, "Engine RPM", "RPM", "rpm"}}),
                              {{u"x.txt"_s, "123456789"}});
    QStringList lines = layoutListing(layout.document());
    ASSERT_EQ(lines.size(), 23);
    EXPECT_TRUE(lines.takeAt(21).startsWith(u"file: \"device.aimcfg\" "_s));
    EXPECT_EQ(lines, (QStringList{u"device: \"MXG\" code 12"_s,
                                  u"display: 800 x 480"_s,
                                  u"channel: \"Engine RPM\" short \"RPM\" unit \"rpm\" id 7"_s,
                                  u"page: \"Race\""_s,
                                  u"  size: 800 x 480"_s,
                                  u"  image: \"race.png\""_s,
                                  u"  element: \"mask.1\""_s,
                                  u"    kind: Numeric value"_s,
                                  u"    channel: \"Engine RPM\" short \"Engi\""_s,
                                  u"    position: 10, 20"_s,
                                  u"    size: 120 x 60"_s,
                                  u"    value: \"Basic Sans SF\" 24 px 0xffffff00"_s,
                                  u"  element: \"mask.2\""_s,
                                  u"    kind: Static label"_s,
                                  u"    channel: none"_s,
                                  u"    position: 5, 6"_s,
                                  u"    size: 70 x 8"_s,
                                  u"    label: \"Basic Sans SF\" 12 px 0xffffffff"_s,
                                  u"    text: \"Oil\\u000a\""_s,
                                  u"page: \"Pit\""_s,
                                  u"  size: 800 x 480"_s,
                                  u"file: \"x.txt\" 9 bytes crc 0xcbf43926"_s}));
}

TEST(LayoutListing, AnInsertionChangesNoOtherLine)
{
    const OpenedLayout former(
        std::vector{page("Race", 800, 480, {digitElement("mask.2", 1, 2, 3, 4)})});
    const OpenedLayout present(std::vector{
        page("New", 800, 480),
        page("Race", 800, 480,
             {digitElement("mask.1", 5, 6, 7, 8), digitElement("mask.2", 1, 2, 3, 4)})});
    const QStringList lines = layoutListing(present.document());
    qsizetype at = 0;
    for (const QString& line : layoutListing(former.document())) {
        at = lines.indexOf(line, at) + 1;
        EXPECT_GT(at, 0) << line.toStdString();
    }
}

TEST(LayoutListing, SaysWhenThereIsNoDevice)
{
    const OpenedLayout layout(std::vector{page("Race", 800, 480)});
    EXPECT_EQ(layoutListing(layout.document()).at(0), u"device: none"_s);
}

TEST(LayoutListing, ADeviceHasATypeOrACode)
{
    const auto deviceLine = [](const QByteArray& type, int code) {
        const OpenedLayout layout({page("Race", 800, 480)}, TestPackage::deviceXml(type, code, {}));
        return layoutListing(layout.document()).at(0);
    };
    EXPECT_EQ(deviceLine("MXG", -1), u"device: \"MXG\" code -1"_s);
    EXPECT_EQ(deviceLine({}, 12), u"device: \"\" code 12"_s);
}
