#include "document/ElementGeometry.h"
#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/PackageBuilder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const char* nameOf(pugi::xml_node node)
{
    return node.attribute("i").as_string();
}

QByteArray textOf(pugi::xml_node node)
{
    std::ostringstream text;
    node.print(text, "", pugi::format_raw);
    return QByteArray::fromStdString(text.str());
}

/// Names of a node's child objects, in document order.
QByteArray childNames(pugi::xml_node parent)
{
    QByteArray names;
    for (const pugi::xml_node child : parent.children("e"))
        names += nameOf(child);
    return names;
}

/// Pages and elements named by letters; objects of other classes by digits.
QByteArray lettered(const QByteArray& names, const char* className)
{
    QByteArray xml;
    for (const char name : names) {
        const bool other = name >= '0' && name <= '9';
        xml += QByteArray("<e c=\"") + (other ? "Other" : className) + "\" i=\"" + name + "\"/>";
    }
    return xml;
}

LoadedOverlay withElements(const QByteArray& names)
{
    return LoadedOverlay(
        LoadedOverlay::around(R"(<e c="GPageParam">)" + lettered(names, "GMaskParam") + "</e>"));
}

int lastNewNumber(const DashElement& created)
{
    EXPECT_TRUE(created.name.startsWith(QStringLiteral("new.")));
    return created.name.mid(4).toInt();
}

/// Everything that an operation could change.
QByteArray everything(const LoadedOverlay& overlay)
{
    return InStep::overlayText(overlay.document) + InStep::recordsText(overlay.document);
}

const ChannelDef kChannel{77, QStringLiteral("Oil Temp"), QStringLiteral("OilT"),
                          QStringLiteral("Oil temperature"), QStringLiteral("\u00b0C")};

} // namespace

TEST(DashboardDocumentEditing, NothingWorksOnAnEmptyDocument)
{
    DashboardDocument document;
    DashElement element;
    pugi::xml_node node;
    pugi::xml_document source;
    source.append_child("e");
    EXPECT_FALSE(document.confNode());
    EXPECT_EQ(document.addBlankPage(QStringLiteral("Lap")), -1);
    EXPECT_FALSE(document.insertPageCopy(0, {}, source.first_child(), node));
    EXPECT_FALSE(document.removePage(0));
    EXPECT_EQ(document.addElementFromDonor(0, source.first_child(), kChannel, 0, 0, 1, 1, element),
              -1);
    EXPECT_FALSE(document.insertElementCopy(0, 0, element, source.first_child(), {}, node));
    EXPECT_FALSE(document.removeElement(0, 0));
    EXPECT_EQ(document.pageCount(), 0);
    EXPECT_FALSE(node);
}

TEST(DashboardDocumentEditing, PagesAreFoundByIndexOnly)
{
    LoadedOverlay overlay(LoadedOverlay::around(lettered("1A2B", "GPageParam")));
    EXPECT_STREQ(nameOf(overlay.document.pageNode(0)), "A");
    EXPECT_STREQ(nameOf(overlay.document.pageNode(1)), "B");
    EXPECT_FALSE(overlay.document.pageNode(2));
    EXPECT_FALSE(overlay.document.pageNode(-1));
    EXPECT_EQ(overlay.document.pageAt(0), &overlay.document.pages()[0]);
    EXPECT_EQ(overlay.document.pageAt(1), &overlay.document.pages()[1]);
    EXPECT_EQ(overlay.document.pageAt(2), nullptr);
    EXPECT_EQ(overlay.document.pageAt(-1), nullptr);
}

TEST(AddBlankPage, FollowsTheLastPageWithElevenKeysInOrder)
{
    LoadedOverlay overlay(
        LoadedOverlay::around(R"(<p n="DIMENSIONE_X">320</p><p n="DIMENSIONE_Y">240</p>)" +
                              lettered("A1BC2", "GPageParam")));
    ASSERT_TRUE(overlay.loadDevice(TestPackage::deviceXml("MXS", 12, {})));
    EXPECT_EQ(overlay.document.addBlankPage(QStringLiteral("Lap \u00e9&")), 3);
    EXPECT_EQ(childNames(overlay.document.confNode()), "A1BC32");
    EXPECT_EQ(textOf(overlay.document.pageNode(3)),
              R"(<e c="GPageParam" i="3"><p n="BKGCOL">0</p><p n="BTNXPG">0</p>)"
              R"(<p n="HEIGHT">240</p><p n="NOMEEXT_FILE_RESOURCE"/><p n="ORDINE">4</p>)"
              R"(<p n="PAGE_IDX"/><p n="PAGE_NAME">Lap )"
              "\xc3\xa9"
              R"(&amp;</p><p n="SET_IMAGE_xDISABLE">0</p><p n="USA_MASK_COL_E_THICKNESS">1</p>)"
              R"(<p n="VERSION">1.1</p><p n="WIDTH">320</p></e>)");

    const DashPage& page = overlay.document.pages().at(3);
    EXPECT_EQ(page.name, QStringLiteral("Lap \u00e9&"));
    EXPECT_EQ(page.index, 3);
    EXPECT_EQ(page.width, 320);
    EXPECT_EQ(page.height, 240);
    EXPECT_TRUE(page.imagePath.isEmpty());
    EXPECT_TRUE(page.image.isNull());
    EXPECT_TRUE(page.elements.empty());
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
}

TEST(AddBlankPage, WithoutAPageItGoesToTheEnd)
{
    LoadedOverlay overlay(LoadedOverlay::around(R"(<p n="A"/><e c="Other" i="o"/>)"));
    ASSERT_FALSE(overlay.isLoaded());
    EXPECT_EQ(overlay.document.addBlankPage({}), 0);
    const pugi::xml_node node = overlay.document.confNode().last_child();
    EXPECT_EQ(node, overlay.document.pageNode(0));
    EXPECT_STREQ(nameOf(node), "0");
    const QByteArray text = textOf(node);
    EXPECT_TRUE(text.contains(R"(<p n="ORDINE">1</p>)")) << text.constData();
    EXPECT_TRUE(text.contains(R"(<p n="PAGE_NAME"/>)")) << "an empty name gets no text";
    EXPECT_TRUE(text.contains(R"(<p n="WIDTH">800</p>)"));
    EXPECT_TRUE(text.contains(R"(<p n="HEIGHT">480</p>)"));
}

TEST(AddBlankPage, NumbersCountPagesNotNames)
{
    LoadedOverlay overlay(LoadedOverlay::around(lettered("AB", "GPageParam")));
    ASSERT_TRUE(overlay.document.removePage(0));
    EXPECT_EQ(overlay.document.addBlankPage(QStringLiteral("x")), 1);
    EXPECT_STREQ(nameOf(overlay.document.pageNode(1)), "1");
    EXPECT_EQ(overlay.document.pages()[0].index, 1) << "never renumbered";
    EXPECT_EQ(overlay.document.pages()[1].index, 1);
}

TEST(InsertPageCopy, PutsACopyAtEveryIndex)
{
    for (int index = 0; index <= 2; ++index) {
        LoadedOverlay overlay(LoadedOverlay::around(lettered("1A2B3", "GPageParam")));
        pugi::xml_document source;
        ASSERT_TRUE(source.load_string(
            R"(<e c="GPageParam" i="N"><p n="PAGE_NAME">Saved</p><e c="GMaskParam" i="m"/></e>)"));
        DashPage page;
        page.name = QStringLiteral("Saved");
        page.index = 42;
        page.width = 11;
        page.height = 12;
        page.imagePath = QStringLiteral("p.png");
        page.image = QPixmap(3, 4);
        page.elements.resize(5); // those of the record are not used
        pugi::xml_node node;
        ASSERT_TRUE(overlay.document.insertPageCopy(index, page, source.first_child(), node));

        const QByteArray expected[] = {"1NA2B3", "1A2NB3", "1A2BN3"};
        EXPECT_EQ(childNames(overlay.document.confNode()), expected[index]);
        EXPECT_EQ(node, overlay.document.pageNode(index));
        EXPECT_NE(node, source.first_child());
        const DashPage* const record = overlay.document.pageAt(index);
        EXPECT_EQ(record->name, page.name);
        EXPECT_EQ(record->index, 42);
        EXPECT_EQ(record->width, 11);
        EXPECT_EQ(record->height, 12);
        EXPECT_EQ(record->imagePath, page.imagePath);
        EXPECT_EQ(record->image.cacheKey(), page.image.cacheKey());
        ASSERT_EQ(record->elements.size(), 1U);
        EXPECT_EQ(record->elements[0].name, QStringLiteral("m"));
        EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
        EXPECT_EQ(overlay.document.pageAt(index == 0 ? 1 : 0)->index, 0) << "others keep theirs";
    }
}

TEST(InsertPageCopy, WithoutAPageItGoesToTheEnd)
{
    LoadedOverlay overlay(LoadedOverlay::around(R"(<e c="Other" i="o"/><p n="A"/>)"));
    pugi::xml_document source;
    ASSERT_TRUE(source.load_string(R"(<e c="GPageParam" i="N"/>)"));
    pugi::xml_node node;
    ASSERT_TRUE(overlay.document.insertPageCopy(0, {}, source.first_child(), node));
    EXPECT_EQ(node, overlay.document.confNode().last_child());
}

TEST(InsertPageCopy, FailuresChangeNothing)
{
    LoadedOverlay overlay(LoadedOverlay::around(lettered("AB", "GPageParam")));
    pugi::xml_document source;
    ASSERT_TRUE(source.load_string(R"(<e c="GPageParam"/>)"));
    const QByteArray before = everything(overlay);
    pugi::xml_node node;
    EXPECT_FALSE(overlay.document.insertPageCopy(-1, {}, source.first_child(), node));
    EXPECT_FALSE(overlay.document.insertPageCopy(3, {}, source.first_child(), node));
    EXPECT_FALSE(overlay.document.insertPageCopy(0, {}, {}, node)) << "nothing to copy";
    EXPECT_FALSE(node);
    EXPECT_EQ(everything(overlay), before);
}

TEST(RemovePage, RemovesNodeAndRecordAndRenumbersNothing)
{
    LoadedOverlay overlay(LoadedOverlay::around(lettered("1A2BC3", "GPageParam")));
    EXPECT_TRUE(overlay.document.removePage(1));
    EXPECT_EQ(childNames(overlay.document.confNode()), "1A2C3");
    EXPECT_TRUE(overlay.document.removePage(0));
    EXPECT_EQ(childNames(overlay.document.confNode()), "12C3");
    ASSERT_EQ(overlay.document.pageCount(), 1);
    EXPECT_EQ(overlay.document.pages()[0].index, 2);
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
    EXPECT_TRUE(overlay.document.removePage(0)) << "the last one goes like any other";
    EXPECT_EQ(childNames(overlay.document.confNode()), "123");
    EXPECT_EQ(overlay.document.pageCount(), 0);
}

TEST(RemovePage, OutOfRangeChangesNothing)
{
    LoadedOverlay overlay(LoadedOverlay::around(lettered("AB", "GPageParam")));
    const QByteArray before = everything(overlay);
    EXPECT_FALSE(overlay.document.removePage(-1));
    EXPECT_FALSE(overlay.document.removePage(2));
    EXPECT_EQ(everything(overlay), before);
}

TEST(AddElementFromDonor, CopiesTheDonorWithRectangleNameAndChannel)
{
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<e c="GPageParam"><e c="GMaskParam" i="donor" more="1"><p n="XPOS">1</p>)"
        R"(<p n="XPOS">2</p><p n="OTHER">3</p><p n="HEIGHT">4</p><p n="WIDTH">5</p>)"
        R"(<p n="YPOS">6</p><e c="Axis"><p n="lnm">Engine RPM</p><p n="shn">RPM</p></e>)"
        R"(<e c="Digit"><p n="CHAR_SET_ID_2">F</p><p n="CHARSET_DIM">9</p></e>)"
        R"(<e c="Label"/><e c="Unknown"/></e><e c="Other"/></e>)"));
    DashElement created;
    const pugi::xml_node donor = overlay.element(0, 0).node;
    const QByteArray donorText = textOf(donor);
    ASSERT_EQ(overlay.document.addElementFromDonor(0, donor, kChannel, -10, 20, 30, 40, created),
              1);

    EXPECT_EQ(textOf(donor), donorText) << "the donor stays as it is";
    EXPECT_EQ(created.node, overlay.document.pageNode(0).last_child());
    const QByteArray name = created.name.toUtf8();
    EXPECT_EQ(textOf(created.node),
              R"(<e c="GMaskParam" i=")" + name +
                  R"(" more="1"><p n="XPOS">-10</p><p n="XPOS">2</p><p n="OTHER">3</p>)"
                  R"(<p n="HEIGHT">40</p><p n="WIDTH">30</p><p n="YPOS">20</p>)"
                  R"(<e c="Axis"><p n="lnm">Oil Temp</p><p n="shn">OilT</p></e>)"
                  R"(<e c="Digit"><p n="CHAR_SET_ID_2">F</p><p n="CHARSET_DIM">9</p></e>)"
                  R"(<e c="Label"/><e c="Unknown"/></e>)");
    EXPECT_GT(lastNewNumber(created), 0);
    EXPECT_EQ(created.x, -10) << "the argument, although a second key reads differently";
    EXPECT_EQ(created.y, 20);
    EXPECT_EQ(created.w, 30);
    EXPECT_EQ(created.h, 40);
    EXPECT_EQ(created.channelLongName, kChannel.longName);
    EXPECT_EQ(created.channelShortName, kChannel.shortName);
    EXPECT_EQ(created.kind, ElementKind::Digit);
    EXPECT_EQ(created.valueFont, QStringLiteral("F"));
    EXPECT_EQ(created.valueFontSize, 9);
    EXPECT_TRUE(created.hasLabel);
    const DashElement& stored = overlay.element(0, 1);
    EXPECT_EQ(stored.name, created.name);
    EXPECT_EQ(stored.node, created.node);
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
}

TEST(AddElementFromDonor, CreatesNothingThatTheDonorLacks)
{
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<e c="GPageParam"><e c="GMaskParam"><e c="Axis"><p n="fid">1</p></e></e></e>)"));
    DashElement created;
    ASSERT_EQ(overlay.document.addElementFromDonor(0, overlay.element(0, 0).node, kChannel, 1, 2, 3,
                                                   4, created),
              1);
    EXPECT_EQ(textOf(created.node), R"(<e c="GMaskParam"><e c="Axis"><p n="fid">77</p></e></e>)");
    EXPECT_EQ(geometryOf(created), (ElementGeometry{1, 2, 3, 4}))
        << "the record holds what was asked for";
    EXPECT_EQ(created.channelLongName, kChannel.longName);
    EXPECT_EQ(created.channelShortName, kChannel.shortName);
    EXPECT_TRUE(created.name.startsWith(QStringLiteral("new.")));
}

TEST(AddElementFromDonor, CountsForTheWholeRunAndNotForFailures)
{
    DashElement first;
    DashElement second;
    DashElement unused;
    LoadedOverlay overlay = withElements("a");
    ASSERT_EQ(overlay.document.addElementFromDonor(0, overlay.element(0, 0).node, kChannel, 0, 0, 1,
                                                   1, first),
              1);
    const QByteArray before = everything(overlay);
    const pugi::xml_node donor = overlay.element(0, 0).node;
    EXPECT_EQ(overlay.document.addElementFromDonor(-1, donor, kChannel, 0, 0, 1, 1, unused), -1);
    EXPECT_EQ(overlay.document.addElementFromDonor(1, donor, kChannel, 0, 0, 1, 1, unused), -1);
    EXPECT_EQ(overlay.document.addElementFromDonor(0, {}, kChannel, 0, 0, 1, 1, unused), -1);
    EXPECT_EQ(everything(overlay), before);

    LoadedOverlay another = withElements("b");
    ASSERT_EQ(another.document.addElementFromDonor(0, another.element(0, 0).node, kChannel, 0, 0, 1,
                                                   1, second),
              1);
    EXPECT_EQ(lastNewNumber(second), lastNewNumber(first) + 1);
}

TEST(AddElementFromDonor, TakesDonorsOfOtherPagesAndDocuments)
{
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<e c="GPageParam"/><e c="GPageParam"><e c="GMaskParam" i="a"/></e>)"));
    LoadedOverlay other = withElements("b");
    DashElement created;
    EXPECT_EQ(overlay.document.addElementFromDonor(0, overlay.element(1, 0).node, kChannel, 0, 0, 1,
                                                   1, created),
              0);
    EXPECT_EQ(overlay.document.addElementFromDonor(0, other.element(0, 0).node, kChannel, 0, 0, 1,
                                                   1, created),
              1);
    EXPECT_EQ(created.node.root(), overlay.document.confNode().root());
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
    EXPECT_EQ(InStep::firstDisagreement(other.document), "");
}

TEST(InsertElementCopy, GoesAfterTheGivenNodeOrBeforeTheFirstElement)
{
    struct Case
    {
        const char* page;
        int position;
        const char* expected;
    };
    for (const Case& c : {Case{"ab", 0, "Nab"}, Case{"ab", 1, "aNb"}, Case{"ab", 2, "abN"},
                          Case{"1a2b3", 0, "1Na2b3"}, Case{"1a2b3", 1, "1aN2b3"},
                          Case{"1a2b3", 2, "1a2bN3"}, Case{"12", 0, "12N"}, Case{"", 0, "N"}}) {
        LoadedOverlay overlay = withElements(c.page);
        pugi::xml_document source;
        ASSERT_TRUE(source.load_string(R"(<e c="GMaskParam" i="N"><p n="KEEP">1</p></e>)"));
        DashElement element;
        element.name = QStringLiteral("N");
        element.x = 7;
        const pugi::xml_node after =
            c.position == 0 ? pugi::xml_node() : overlay.element(0, c.position - 1).node;
        pugi::xml_node node;
        ASSERT_TRUE(overlay.document.insertElementCopy(0, c.position, element, source.first_child(),
                                                       after, node));
        EXPECT_EQ(childNames(overlay.document.pageNode(0)), c.expected);
        EXPECT_EQ(textOf(node), textOf(source.first_child()));
        const DashElement& record = overlay.element(0, c.position);
        EXPECT_EQ(record.node, node);
        EXPECT_EQ(record.x, 7) << "the record comes from the argument, not from the XML";
        EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
    }
}

TEST(InsertElementCopy, FailuresChangeNothing)
{
    LoadedOverlay overlay = withElements("ab");
    pugi::xml_document source;
    ASSERT_TRUE(source.load_string(R"(<e c="GMaskParam"/>)"));
    const pugi::xml_node copy = source.first_child();
    const QByteArray before = everything(overlay);
    pugi::xml_node node;
    EXPECT_FALSE(overlay.document.insertElementCopy(-1, 0, {}, copy, {}, node));
    EXPECT_FALSE(overlay.document.insertElementCopy(1, 0, {}, copy, {}, node));
    EXPECT_FALSE(overlay.document.insertElementCopy(0, -1, {}, copy, {}, node));
    EXPECT_FALSE(overlay.document.insertElementCopy(0, 3, {}, copy, {}, node));
    EXPECT_FALSE(overlay.document.insertElementCopy(0, 0, {}, {}, {}, node)) << "nothing to copy";
    EXPECT_FALSE(overlay.document.insertElementCopy(0, 0, {}, copy, copy, node))
        << "a neighbour of another document";
    EXPECT_FALSE(node);
    EXPECT_EQ(everything(overlay), before);
}

TEST(RemoveElement, RemovesNodeAndRecord)
{
    LoadedOverlay overlay = withElements("1a2b3c4");
    EXPECT_TRUE(overlay.document.removeElement(0, 1));
    EXPECT_EQ(childNames(overlay.document.pageNode(0)), "1a23c4");
    EXPECT_EQ(overlay.element(0, 1).name, QStringLiteral("c"));
    EXPECT_TRUE(overlay.document.removeElement(0, 1));
    EXPECT_TRUE(overlay.document.removeElement(0, 0));
    EXPECT_EQ(childNames(overlay.document.pageNode(0)), "1234");
    EXPECT_TRUE(overlay.document.pages()[0].elements.empty());
}

TEST(RemoveElement, OutOfRangeChangesNothing)
{
    LoadedOverlay overlay = withElements("ab");
    const QByteArray before = everything(overlay);
    EXPECT_FALSE(overlay.document.removeElement(0, 2));
    EXPECT_FALSE(overlay.document.removeElement(0, -1));
    EXPECT_FALSE(overlay.document.removeElement(1, 0));
    EXPECT_FALSE(overlay.document.removeElement(-1, 0));
    EXPECT_EQ(everything(overlay), before);
}

TEST(RemoveElement, ARecordWithoutXmlIsRemovedAlone)
{
    LoadedOverlay overlay = withElements("a");
    overlay.document.pageAt(0)->elements.emplace_back();
    EXPECT_TRUE(overlay.document.removeElement(0, 1));
    EXPECT_EQ(childNames(overlay.document.pageNode(0)), "a");
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
}

TEST(WriteChannelBinding, SetsSixKeysOfEveryAxis)
{
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<e c="GPageParam"><e c="GMaskParam"><p n="lnm">outside</p>)"
        R"(<e c="Axis"><p n="FID_OK">a</p><p n="FID_PREF">b</p><p n="UDM"/><p n="fid">c</p>)"
        R"(<p n="lnm">d</p><p n="shn">e</p><p n="MAX">9</p><p n="fid">f</p></e>)"
        R"(<e c="Other"><p n="lnm">other</p><e c="Axis"><p n="lnm">deep</p></e></e>)"
        R"(<e c="Axis"><p n="lnm">g</p></e></e></e>)"));
    const pugi::xml_node node = overlay.element(0, 0).node;
    overlay.document.writeChannelBinding(node, kChannel);
    EXPECT_EQ(textOf(node),
              R"(<e c="GMaskParam"><p n="lnm">outside</p>)"
              R"(<e c="Axis"><p n="FID_OK">Oil Temp</p><p n="FID_PREF">77</p><p n="UDM">)"
              "\xc2\xb0"
              R"(C</p><p n="fid">77</p><p n="lnm">Oil Temp</p><p n="shn">OilT</p>)"
              R"(<p n="MAX">9</p><p n="fid">77</p></e>)"
              R"(<e c="Other"><p n="lnm">other</p><e c="Axis"><p n="lnm">deep</p></e></e>)"
              R"(<e c="Axis"><p n="lnm">Oil Temp</p></e></e>)");
}
