#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/PackageBuilder.h"

#include <gtest/gtest.h>

namespace {

DashElement readElement(const QByteArray& content, const QByteArray& attributes = {})
{
    const LoadedOverlay overlay(LoadedOverlay::around(R"(<e c="GPageParam"><e c="GMaskParam" )" +
                                                      attributes + '>' + content + "</e></e>"));
    DashElement element = overlay.document.pages().at(0).elements.at(0);
    element.node = {}; // its document ends here
    return element;
}

DashPage readPage(const QByteArray& content)
{
    const LoadedOverlay overlay(LoadedOverlay::around(R"(<e c="GPageParam">)" + content + "</e>"));
    DashPage page = overlay.document.pages().at(0);
    page.elements.clear();
    return page;
}

} // namespace

TEST(OverlayReader, ReadsPagesOfTheFirstConfigurationObjectOfTheFirstContainer)
{
    const LoadedOverlay overlay(R"(<overlay_cli><x/>
        <e c="AnythingGoes">
          <e c="GPageParam"><p n="PAGE_NAME">under the container</p></e>
          <e c="Other"><e c="GPageParam"/></e>
          <e c="GConfParam">
            <e c="Other"><e c="GPageParam"><p n="PAGE_NAME">inside another object</p></e></e>
            <e c="GPageParam"><p n="PAGE_NAME">one</p></e>
            <x c="GPageParam"/>
            <e c="GPageParam"><p n="PAGE_NAME">two</p></e>
          </e>
          <e c="GConfParam"><e c="GPageParam"><p n="PAGE_NAME">second configuration</p></e></e>
        </e>
        <e><e c="GConfParam"><e c="GPageParam"/></e></e>
      </overlay_cli>)");
    ASSERT_TRUE(overlay.isLoaded());
    ASSERT_EQ(overlay.document.pageCount(), 2);
    EXPECT_EQ(overlay.document.pages()[0].name, QStringLiteral("one"));
    EXPECT_EQ(overlay.document.pages()[1].name, QStringLiteral("two"));
    EXPECT_EQ(overlay.document.pages()[0].index, 0);
    EXPECT_EQ(overlay.document.pages()[1].index, 1);
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
}

TEST(OverlayReader, WithoutAPageThereIsNoDocument)
{
    for (const char* const xml :
         {"<overlay_cli/>", "<overlay_cli><e/></overlay_cli>", "<other_root/>",
          R"(<overlay_cli><e><e c="GPageParam"/></e></overlay_cli>)",
          R"(<overlay_cli><e><e c="GConfParam"/></e></overlay_cli>)",
          R"(<other_root><e><e c="GConfParam"><e c="GPageParam"/></e></e></other_root>)"}) {
        LoadedOverlay overlay(LoadedOverlay::around(R"(<e c="GPageParam"/>)"));
        ASSERT_EQ(overlay.document.pageCount(), 1);
        EXPECT_FALSE(overlay.load(xml)) << xml;
        EXPECT_EQ(overlay.document.pageCount(), 0) << xml;
    }
}

TEST(OverlayReader, MoreThanAHundredThousandPagesAreRefused)
{
    const QByteArray most = QByteArray(R"(<e c="GPageParam"/>)").repeated(100'000);
    LoadedOverlay overlay(LoadedOverlay::around(most));
    EXPECT_EQ(overlay.document.pageCount(), 100'000);
    EXPECT_FALSE(overlay.load(LoadedOverlay::around(most + R"(<e c="GPageParam"/>)")));
    EXPECT_EQ(overlay.document.errorString(),
              QStringLiteral("The overlay has more than 100,000 pages"));
    EXPECT_EQ(overlay.document.pageCount(), 100'000) << "the open one stays";
}

TEST(OverlayReader, AFailedParseLeavesEverythingAsItWas)
{
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<e c="GPageParam"><p n="PAGE_NAME">kept</p><e c="GMaskParam" i="kept too"/></e>)"));
    const QByteArray records = InStep::recordsText(overlay.document);
    const QByteArray xml = InStep::overlayText(overlay.document);
    for (const char* const broken : {"", "no XML", "<overlay_cli><e>", "<a></b>", "<a b></a>"}) {
        EXPECT_FALSE(overlay.load(broken)) << broken;
        EXPECT_EQ(InStep::recordsText(overlay.document), records);
        EXPECT_EQ(InStep::overlayText(overlay.document), xml);
        EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
    }
    EXPECT_FALSE(overlay.document.loadOverlay(QStringLiteral("/no/such/file")));
    EXPECT_EQ(InStep::recordsText(overlay.document), records);
}

TEST(OverlayReader, PageFieldsHaveDefaults)
{
    const DashPage page = readPage({});
    EXPECT_EQ(page.name, QString());
    EXPECT_EQ(page.index, 0);
    EXPECT_EQ(page.width, 800);
    EXPECT_EQ(page.height, 480);
    EXPECT_EQ(page.imagePath, QString());
    EXPECT_TRUE(page.image.isNull());
}

TEST(OverlayReader, ReadsPageFieldsAndTheLastOfEachWins)
{
    const DashPage page = readPage(R"(
        <p n="PAGE_NAME">first</p><p n="WIDTH">1</p><p n="HEIGHT">2</p>
        <e c="Other"><p n="WIDTH">3</p></e><p>4</p><x n="WIDTH">5</x><p n="width">6</p>
        <p n="HEIGHT">240</p><p n="WIDTH">320px</p><p n="PAGE_NAME">)"
                                   "T\xc3\xa9l\xc3\xa9 &amp; \xe6\xb0\xb4</p>");
    EXPECT_EQ(page.name, QStringLiteral("T\u00e9l\u00e9 & \u6c34"));
    EXPECT_EQ(page.width, 320);
    EXPECT_EQ(page.height, 240);
    EXPECT_EQ(readPage(R"(<p n="WIDTH">wide</p><p n="HEIGHT"/>)").width, 0);
    EXPECT_EQ(readPage(R"(<p n="WIDTH">wide</p><p n="HEIGHT"/>)").height, 0);
}

TEST(OverlayReader, ReadsTextWithTheDefaultOptionsOfTheLibrary)
{
    EXPECT_EQ(readPage("<p n=\"PAGE_NAME\">a\r\nb\rc&#x41;&lt;</p>").name,
              QStringLiteral("a\nb\ncA<"));
    EXPECT_EQ(readPage(R"(<p n="PAGE_NAME"><![CDATA[&lt;]]></p>)").name, QStringLiteral("&lt;"));
    EXPECT_EQ(readPage(R"(<p n="PAGE_NAME"> a </p>)").name, QStringLiteral(" a "));
    EXPECT_EQ(readPage("<p n=\"PAGE_NAME\"> \n </p>").name, QString());
    EXPECT_EQ(readElement({}, "i=\"a\tb\r\nc &amp; d\"").name, QStringLiteral("a b c & d"));
}

TEST(OverlayReader, APageReadByItselfIsAppendedWithTheOrdinalItIsGiven)
{
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<e c="GPageParam"><p n="PAGE_NAME">P</p><e c="GMaskParam" i="a"/></e>)"));
    overlay.document.readPage(overlay.document.pageNode(0), 7);
    ASSERT_EQ(overlay.document.pageCount(), 2);
    EXPECT_EQ(overlay.document.pages()[1].name, QStringLiteral("P"));
    EXPECT_EQ(overlay.document.pages()[1].index, 7);
    EXPECT_EQ(overlay.document.pages()[1].elements.size(), 1U);
    EXPECT_EQ(overlay.document.pages()[0].index, 0);
}

TEST(OverlayReader, ElementFieldsHaveDefaults)
{
    const DashElement element = readElement({});
    EXPECT_EQ(element.name, QString());
    EXPECT_EQ(element.x, 0);
    EXPECT_EQ(element.y, 0);
    EXPECT_EQ(element.w, 0);
    EXPECT_EQ(element.h, 0);
    EXPECT_EQ(element.channelLongName, QString());
    EXPECT_EQ(element.channelShortName, QString());
    EXPECT_EQ(element.kind, ElementKind::Other);
    EXPECT_EQ(element.valueFont, QString());
    EXPECT_EQ(element.valueFontSize, 0);
    EXPECT_FALSE(element.valueColor.isValid());
    EXPECT_EQ(element.labelFont, QString());
    EXPECT_EQ(element.labelFontSize, 0);
    EXPECT_FALSE(element.labelColor.isValid());
    EXPECT_FALSE(element.hasLabel);
}

TEST(OverlayReader, ReadsNameAndRectangle)
{
    const DashElement element = readElement(R"(
        <p n="XPOS">-1</p><p n="YPOS">2147483647</p><p n="WIDTH">30</p><p n="HEIGHT">4</p>
        <e c="Other"><p n="XPOS">7</p></e><p n="WIDTH">31</p>)",
                                            "i=\"mask.\xc3\xa9\"");
    EXPECT_EQ(element.name, QStringLiteral("mask.\u00e9"));
    EXPECT_EQ(element.x, -1);
    EXPECT_EQ(element.y, 2147483647);
    EXPECT_EQ(element.w, 31);
    EXPECT_EQ(element.h, 4);
}

TEST(OverlayReader, ReadsTheChannelOfTheFirstAxisOnly)
{
    const DashElement element = readElement(R"(
        <e c="Other"><e c="Axis"><p n="lnm">too deep</p></e></e>
        <e c="Axis"><p n="lnm">Engine RPM</p><p n="fid">7</p></e>
        <e c="Axis"><p n="lnm">Oil Temp</p><p n="shn">OilT</p></e>)");
    EXPECT_EQ(element.channelLongName, QStringLiteral("Engine RPM"));
    EXPECT_EQ(element.channelShortName, QString());
    EXPECT_EQ(
        readElement(R"(<e c="Axis"><p n="shn">RPM</p><p n="shn">rpm</p></e>)").channelShortName,
        QStringLiteral("rpm"));
}

TEST(OverlayReader, TheFirstOfThreeClassesDecidesTheKind)
{
    EXPECT_EQ(readElement(R"(<e c="Analog"/>)").kind, ElementKind::Analog);
    EXPECT_EQ(readElement(R"(<e c="Digit"/>)").kind, ElementKind::Digit);
    EXPECT_EQ(readElement(R"(<e c="Icon"/>)").kind, ElementKind::Icon);
    EXPECT_EQ(readElement(R"(<e c="Axis"/><e c="Icon"/><e c="Analog"/>)").kind, ElementKind::Icon);
    EXPECT_EQ(readElement(R"(<e c="Other"><e c="Analog"/></e>)").kind, ElementKind::Other);
    EXPECT_EQ(readElement(R"(<e c="analog"/>)").kind, ElementKind::Other);
}

TEST(OverlayReader, ALabelNeverSetsTheKind)
{
    const DashElement label = readElement(R"(<e c="Label"/>)");
    EXPECT_EQ(label.kind, ElementKind::Other);
    EXPECT_TRUE(label.hasLabel);

    const DashElement both = readElement(R"(
        <e c="Label"><p n="CHAR_SET_ID_2">Label Font</p></e>
        <e c="Digit"><p n="CHAR_SET_ID_2">Digit Font</p></e>)");
    EXPECT_EQ(both.kind, ElementKind::Digit);
    EXPECT_TRUE(both.hasLabel);
    EXPECT_EQ(both.labelFont, QStringLiteral("Label Font"));
    EXPECT_EQ(both.valueFont, QStringLiteral("Digit Font"));
}

TEST(OverlayReader, ReadsStyles)
{
    const DashElement element = readElement(R"(
        <e c="Digit"><p n="CHARSET_DIM">24</p><p n="CHAR_SET_ID_2"> Sans </p>
          <p n="COLORE">0x80FF0000</p></e>
        <e c="Label"><p n="COLORE">red</p><p n="CHARSET_DIM">12pt</p></e>)");
    EXPECT_EQ(element.valueFontSize, 24);
    EXPECT_EQ(element.valueFont, QStringLiteral(" Sans "));
    EXPECT_EQ(element.valueColor, QColor(255, 0, 0, 128));
    EXPECT_EQ(element.labelFontSize, 12);
    EXPECT_EQ(element.labelFont, QString());
    EXPECT_FALSE(element.labelColor.isValid());
}

TEST(OverlayReader, TheLastOfEachStyleKeyWins)
{
    const DashElement element = readElement(R"(
        <e c="Digit"><p n="CHARSET_DIM">24</p><p n="CHAR_SET_ID_2">A</p>
          <p n="COLORE">0x80FF0000</p><p n="COLORE">red</p><p n="CHARSET_DIM"/>
          <p n="CHAR_SET_ID_2">B</p><e c="x"><p n="CHAR_SET_ID_2">deeper</p></e></e>)");
    EXPECT_EQ(element.valueFontSize, 0);
    EXPECT_EQ(element.valueFont, QStringLiteral("B"));
    EXPECT_FALSE(element.valueColor.isValid());
}

TEST(OverlayReader, TheLastStyleObjectWinsAsAWhole)
{
    const DashElement element = readElement(R"(
        <e c="Digit"><p n="CHARSET_DIM">24</p><p n="CHAR_SET_ID_2">A</p>
          <p n="COLORE">0x80FF0000</p></e>
        <e c="Label"><p n="CHAR_SET_ID_2">L</p></e>
        <e c="Digit"><p n="CHAR_SET_ID_2">B</p></e>
        <e c="Label"/>)");
    EXPECT_EQ(element.valueFont, QStringLiteral("B"));
    EXPECT_EQ(element.valueFontSize, 0) << "each style starts afresh";
    EXPECT_FALSE(element.valueColor.isValid());
    EXPECT_EQ(element.labelFont, QString());
    EXPECT_TRUE(element.hasLabel);
}

TEST(OverlayReader, ReadsElementsInDocumentOrderBetweenOtherObjects)
{
    const LoadedOverlay overlay(LoadedOverlay::around(R"(<e c="GPageParam">
        <e c="GMaskParam" i="a"/><e c="Other"><e c="GMaskParam" i="hidden"/></e>
        <e c="GMaskParam" i="b"/><x c="GMaskParam" i="c"/><e c="GMaskParam" i="d"/></e>)"));
    const std::vector<DashElement>& elements = overlay.document.pages().at(0).elements;
    ASSERT_EQ(elements.size(), 3U);
    EXPECT_EQ(elements[0].name, QStringLiteral("a"));
    EXPECT_EQ(elements[1].name, QStringLiteral("b"));
    EXPECT_EQ(elements[2].name, QStringLiteral("d"));
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
}

TEST(OverlayReader, CopyingARecordCopiesTheHandle)
{
    const LoadedOverlay overlay(
        LoadedOverlay::around(R"(<e c="GPageParam"><e c="GMaskParam"/></e>)"));
    const DashElement copy = overlay.document.pages().at(0).elements.at(0);
    EXPECT_EQ(copy.node, overlay.document.pageNode(0).child("e"));
}
