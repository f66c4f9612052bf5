#include "review/Differences.h"

#include "tests/review/OpenedLayout.h"

#include <QStringList>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using ::testing::Contains;
using TestPackage::digitElement;
using TestPackage::labelElement;
using TestPackage::Object;
using TestPackage::page;

namespace {

QStringList sentencesOf(const OpenedLayout& former, const OpenedLayout& present)
{
    QStringList sentences;
    for (const Difference& difference : differences(former.document(), present.document()))
        sentences.append(sentence(difference));
    return sentences;
}

QStringList between(const std::vector<Object>& former, const std::vector<Object>& present)
{
    return sentencesOf(OpenedLayout(former), OpenedLayout(present));
}

/// On one page that both have.
QStringList betweenElements(std::vector<Object> former, std::vector<Object> present)
{
    return between({page("Race", 800, 480, std::move(former))},
                   {page("Race", 800, 480, std::move(present))});
}

QString renamedFromATo(QChar name)
{
    return u"page 1 \"Race\", element \"%1\": renamed from \"a\" to \"%1\""_s.arg(name);
}

Object withProperty(Object object, const QByteArray& key, const QByteArray& value)
{
    object.properties.push_back({key, value});
    return object;
}

} // namespace

TEST(Differences, EqualLayoutsHaveNone)
{
    const std::vector<Object> pages{page("Race", 800, 480, {digitElement("a", 1, 2, 3, 4)})};
    EXPECT_EQ(between(pages, pages), QStringList());
}

TEST(Differences, IndentationIsNone)
{
    const QByteArray overlay =
        TestPackage::overlayXml({page("Race", 800, 480, {digitElement("a", 1, 2, 3, 4)})});
    QByteArray spaced = overlay;
    spaced.replace("><", ">\n  <");
    ASSERT_NE(spaced, overlay);
    EXPECT_EQ(sentencesOf(OpenedLayout(TestPackage::Members{{u"overlay.ov3.xml"_s, overlay}}),
                          OpenedLayout(TestPackage::Members{{u"overlay.ov3.xml"_s, spaced}})),
              QStringList());
}

TEST(Differences, ElementsAddedAndRemoved)
{
    EXPECT_EQ(
        betweenElements({digitElement("a", 1, 2, 3, 4)}, {labelElement("b", 5, 6, 7, 8, "Oil")}),
        (QStringList{u"page 1 \"Race\", element \"a\": removed: Numeric value, channel "
                     "\"Engine RPM\" short \"Engi\", 3 x 4 at 1, 2"_s,
                     u"page 1 \"Race\", element \"b\": added: Static label, channel none, "
                     "7 x 8 at 5, 6"_s}));
}

TEST(Differences, ElementsMovedResizedAndRebound)
{
    EXPECT_EQ(betweenElements({digitElement("a", 1, 2, 3, 4)},
                              {digitElement("a", 10, 2, 3, 40, "Speed")}),
              (QStringList{u"page 1 \"Race\", element \"a\": moved from 1, 2 to 10, 2"_s,
                           u"page 1 \"Race\", element \"a\": resized from 3 x 4 to 3 x 40"_s,
                           u"page 1 \"Race\", element \"a\": bound to another channel, from "
                           "\"Engine RPM\" short \"Engi\" to \"Speed\" short \"Spee\""_s}));
}

TEST(Differences, ElementsRestyled)
{
    Object former = labelElement("a", 1, 2, 3, 4, "Oil");
    former.objects.push_back(TestPackage::styleObject("Digit", "Basic Sans SF", 9, "0xff000000"));
    Object present = labelElement("a", 1, 2, 3, 4, "Water");
    present.objects.at(0).properties.at(0).value = "13";
    present.objects.push_back(TestPackage::styleObject("Digit", "Basic Sans SF", 9, "0xffffffff"));
    EXPECT_EQ(betweenElements({former}, {present}),
              (QStringList{u"page 1 \"Race\", element \"a\": value restyled from \"Basic Sans SF\" "
                           "9 px 0xff000000 to \"Basic Sans SF\" 9 px 0xffffffff"_s,
                           u"page 1 \"Race\", element \"a\": label restyled from \"Basic Sans SF\" "
                           "12 px 0xffffffff to \"Basic Sans SF\" 13 px 0xffffffff"_s,
                           u"page 1 \"Race\", element \"a\": text changed from \"Oil\" to "
                           "\"Water\""_s}));
}

TEST(Differences, ElementsOfTheSameLikenessAreRenamed)
{
    EXPECT_EQ(betweenElements({digitElement("a", 1, 2, 3, 4), digitElement("b", 5, 6, 7, 8)},
                              {digitElement("c", 1, 2, 3, 4), digitElement("b", 5, 6, 7, 8)}),
              QStringList{u"page 1 \"Race\", element \"c\": renamed from \"a\" to \"c\""_s});
}

// Of candidates that are equally alike, the first is taken.
TEST(Differences, TheSameChannelCountsAsMuchAsTheSameKind)
{
    const Object former = digitElement("a", 1, 2, 3, 4);
    const Object sameKind = digitElement("b", 1, 2, 3, 4, "Speed");
    Object sameChannel = digitElement("c", 1, 2, 3, 4);
    sameChannel.objects.push_back({"BargraphTrapezio", {}, {}, {}});
    EXPECT_THAT(betweenElements({former}, {sameKind, sameChannel}), Contains(renamedFromATo(u'b')));
    EXPECT_THAT(betweenElements({former}, {sameChannel, sameKind}), Contains(renamedFromATo(u'c')));
}

TEST(Differences, TheSamePlaceCountsAsMuchAsTheSameSize)
{
    const Object former = digitElement("a", 1, 2, 3, 4);
    const Object samePlace = digitElement("b", 1, 2, 30, 40);
    const Object sameSize = digitElement("c", 10, 20, 3, 4);
    EXPECT_THAT(betweenElements({former}, {samePlace, sameSize}), Contains(renamedFromATo(u'b')));
    EXPECT_THAT(betweenElements({former}, {sameSize, samePlace}), Contains(renamedFromATo(u'c')));
}

TEST(Differences, ElementsInAnotherOrder)
{
    const Object a = digitElement("a", 1, 2, 3, 4);
    const Object b = digitElement("b", 5, 6, 7, 8);
    const Object c = digitElement("c", 9, 6, 7, 8);
    EXPECT_EQ(betweenElements({a, b, c}, {c, a, b}),
              QStringList{u"page 1 \"Race\", element \"c\": order changed from place 3 to 1"_s});
}

TEST(Differences, ElementsOfAnotherKind)
{
    Object bar = digitElement("a", 1, 2, 3, 4);
    bar.objects.push_back({"BargraphTrapezio", {}, {}, {}});
    EXPECT_EQ(
        betweenElements({digitElement("a", 1, 2, 3, 4)}, {bar}),
        (QStringList{
            u"page 1 \"Race\", element \"a\": kind changed from Numeric value to Bar + value"_s,
            u"page 1 \"Race\", element \"a\": other settings changed"_s}));
}

TEST(Differences, SettingsThatTheEditorDoesNotModel)
{
    const Object element = digitElement("a", 1, 2, 3, 4);
    EXPECT_EQ(betweenElements({element}, {withProperty(element, "BLINK", "1")}),
              QStringList{u"page 1 \"Race\", element \"a\": other settings changed"_s});
    EXPECT_EQ(
        between({page("Race", 800, 480)}, {withProperty(page("Race", 800, 480), "BKGCOL", "7")}),
        QStringList{u"page 1 \"Race\": other settings changed"_s});

    Object rewired = element;
    rewired.objects.at(0).properties.at(3).value = "8"; // fid: the names stay
    EXPECT_EQ(betweenElements({element}, {rewired}),
              QStringList{u"page 1 \"Race\", element \"a\": other settings changed"_s});

    const QByteArray overlay = TestPackage::overlayXml({page("Race", 800, 480)});
    const OpenedLayout former(TestPackage::Members{{u"overlay.ov3.xml"_s, overlay}});
    for (const char* const object : {"i=\"conf\">", "i=\"root\">"}) {
        QByteArray changed = overlay;
        changed.replace(object, QByteArray(QByteArray(object) + "<p n=\"THEME\">2</p>"));
        EXPECT_EQ(sentencesOf(former,
                              OpenedLayout(TestPackage::Members{{u"overlay.ov3.xml"_s, changed}})),
                  QStringList{u"other settings of the layout changed"_s});
    }
}

TEST(Differences, PagesAddedRemovedAndReordered)
{
    const Object race = page("Race", 800, 480, {digitElement("a", 1, 2, 3, 4)});
    const Object pit = page("Pit", 800, 480, {digitElement("b", 1, 2, 3, 4)});
    const Object fuel = page("Fuel", 800, 480, {digitElement("c", 1, 2, 3, 4)});
    EXPECT_EQ(between({race, pit}, {pit, race, fuel}),
              (QStringList{u"page 3 \"Fuel\": added"_s,
                           u"page 1 \"Pit\": order changed from place 2 to 1"_s}));
    EXPECT_EQ(between({race, pit}, {pit}), QStringList{u"page 1 \"Race\": removed"_s});
}

TEST(Differences, PagesResizedRenamedAndWithAnotherImage)
{
    const std::vector<Object> elements{digitElement("a", 1, 2, 3, 4)};
    EXPECT_EQ(
        between({page("Race", 800, 480, elements)},
                {withProperty(page("Rain", 320, 240, elements), "PATH_IMAGE", "rain.png")}),
        (QStringList{u"page 1 \"Rain\": renamed from \"Race\" to \"Rain\""_s,
                     u"page 1 \"Rain\": resized from 800 x 480 to 320 x 240"_s,
                     u"page 1 \"Rain\": background image changed from \"\" to \"rain.png\""_s}));
}

TEST(Differences, APageOfAnotherNameIsTheSameWhenHalfOfItsElementsAre)
{
    const auto withElements = [](const QByteArray& name, const QByteArrayList& elements) {
        std::vector<Object> objects;
        for (const QByteArray& element : elements)
            objects.push_back(digitElement(element, 1, 2, 3, 4));
        return page(name, 800, 480, objects);
    };
    const Object former = withElements("Race", {"a", "b", "c", "d"});
    EXPECT_THAT(between({former}, {withElements("Rain", {"a", "b", "e", "f"})}),
                Contains(u"page 1 \"Rain\": renamed from \"Race\" to \"Rain\""_s));
    EXPECT_EQ(between({former}, {withElements("Rain", {"a", "e", "f", "g"})}),
              (QStringList{u"page 1 \"Race\": removed"_s, u"page 1 \"Rain\": added"_s}));
}

TEST(Differences, DeviceChannelsAndOtherFiles)
{
    const std::vector<Object> pages{page("Race", 800, 480)};
    using TestPackage::deviceXml;
    const OpenedLayout former(pages, deviceXml("MXG", 12, {{1, "A", "a", "x"}, {2, "B", "b", "y"}}),
                              {{u"1.txt"_s, "1"}, {u"2.txt"_s, "2"}});
    const OpenedLayout present(pages,
                               deviceXml("MXS", 12, {{1, "A", "a", "z"}, {3, "C", "c", "y"}}),
                               {{u"1.txt"_s, "!"}, {u"3.txt"_s, "3"}});
    QStringList sentences = sentencesOf(former, present);
    EXPECT_FALSE(sentences.filter(u"file \"device.aimcfg\": changed from "_s).isEmpty());
    sentences.removeIf([](const QString& text) { return text.contains(u"device.aimcfg"_s); });
    EXPECT_EQ(sentences,
              (QStringList{u"device changed from \"MXG\" code 12 to \"MXS\" code 12"_s,
                           u"channel \"B\": removed: short \"b\" unit \"y\" id 2"_s,
                           u"channel \"C\": added: short \"c\" unit \"y\" id 3"_s,
                           u"channel \"A\": changed from short \"a\" unit \"x\" id 1 to short "
                           "\"a\" unit \"z\" id 1"_s,
                           u"file \"2.txt\": removed: 1 bytes crc 0x1ad5be0d"_s,
                           u"file \"3.txt\": added: 1 bytes crc 0x6dd28e9b"_s,
                           u"file \"1.txt\": changed from 1 bytes crc 0x83dcefb7 to 1 bytes crc "
                           "0x9e6bffd3"_s}));
}

TEST(Differences, TheDisplay)
{
    const auto layout = [](int width) {
        return TestPackage::Members{
            {u"overlay.ov3.xml"_s, TestPackage::overlayXml({page("Race", 800, 480)}, width, 480)},
            {u"device.aimcfg"_s, TestPackage::deviceXml("MXG", 12, {})}};
    };
    EXPECT_EQ(sentencesOf(OpenedLayout(layout(800)), OpenedLayout(layout(1024))),
              QStringList{u"display changed from 800 x 480 to 1024 x 480"_s});
}

TEST(Differences, EveryChangeHasAnIdentifierOfItsOwn)
{
    QStringList ids;
    for (int i = 0; i <= static_cast<int>(Difference::Change::FileChanged); ++i)
        ids.append(identifier(static_cast<Difference::Change>(i)));
    EXPECT_EQ(ids.removeDuplicates(), 0);
    EXPECT_TRUE(ids.contains(u"element-moved"_s));
}

TEST(Differences, PlaceholdersInNamesStayAsTheyAre)
{
    EXPECT_EQ(
        betweenElements({digitElement("%1 %2", 1, 2, 3, 4)}, {digitElement("%1 %2", 1, 3, 3, 4)}),
        QStringList{u"page 1 \"Race\", element \"%1 %2\": moved from 1, 2 to 1, 3"_s});
}
