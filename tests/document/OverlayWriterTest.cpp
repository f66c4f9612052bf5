#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/PackageBuilder.h"

#include <gtest/gtest.h>

namespace {

/// The file around the children of one element, as it is written.
QByteArray writtenElement(const QByteArray& children)
{
    return R"(<?xml version="1.0"?>
<overlay_cli>
  <e c="Overlay">
    <e c="GConfParam">
      <e c="GPageParam">
        <e c="GMaskParam">
)" + children +
           R"(        </e>
      </e>
    </e>
  </e>
</overlay_cli>
)";
}

LoadedOverlay withElement(const QByteArray& children)
{
    return LoadedOverlay(
        LoadedOverlay::around(R"(<e c="GPageParam"><e c="GMaskParam">)" + children + "</e></e>"));
}

} // namespace

TEST(OverlayWriter, WritesGeometryAndNothingElse)
{
    LoadedOverlay overlay = withElement(
        R"(<p n="XPOS">1</p><p n="LOCKED">1</p><p n="YPOS">2</p><p n="WIDTH">3</p>)"
        R"(<p n="HEIGHT">4</p><e c="Other" i="o"><p n="XPOS">5</p></e><p>6</p><x n="XPOS">7</x>)");
    DashElement& element = overlay.element(0, 0);
    element.x = 10;
    element.y = -20;
    element.w = 2147483647;
    element.h = -2147483647 - 1;
    EXPECT_EQ(overlay.written(), writtenElement(R"(          <p n="XPOS">10</p>
          <p n="LOCKED">1</p>
          <p n="YPOS">-20</p>
          <p n="WIDTH">2147483647</p>
          <p n="HEIGHT">-2147483648</p>
          <e c="Other" i="o">
            <p n="XPOS">5</p>
          </e>
          <p>6</p>
          <x n="XPOS">7</x>
)"));
}

TEST(OverlayWriter, WritesEveryOccurrenceOfAKeyAndCreatesNone)
{
    LoadedOverlay overlay = withElement(R"(<p n="XPOS">1</p><p n="XPOS">2<x/></p>)");
    overlay.element(0, 0).x = 9;
    overlay.element(0, 0).y = 9;
    EXPECT_EQ(overlay.written(), writtenElement(R"(          <p n="XPOS">9</p>
          <p n="XPOS">9</p>
)"));
}

TEST(OverlayWriter, WritesEveryOccurrenceOfAStyleKey)
{
    LoadedOverlay overlay = withElement(
        R"(<e c="Label"><p n="CHARSET_DIM">1</p><p n="CHAR_SET_ID_2">a</p><p n="COLORE">x</p>)"
        R"(<p n="COLORE">y</p><p n="CHAR_SET_ID_2">b</p><p n="CHARSET_DIM">2</p></e>)");
    DashElement& element = overlay.element(0, 0);
    element.labelFont = QStringLiteral("L");
    element.labelFontSize = 9;
    element.labelColor = Qt::white;
    const QByteArray written = overlay.written();
    EXPECT_EQ(written.count("<p n=\"CHARSET_DIM\">9</p>"), 2);
    EXPECT_EQ(written.count("<p n=\"CHAR_SET_ID_2\">L</p>"), 2);
    EXPECT_EQ(written.count("<p n=\"COLORE\">0xffffffff</p>"), 2);
}

TEST(OverlayWriter, WritesStylesIntoEveryDigitAndLabel)
{
    LoadedOverlay overlay =
        withElement(R"(<e c="Digit"><p n="COLORE">0x00000000</p><p n="OTHER">1</p></e>)"
                    R"(<e c="Label"><p n="CHARSET_DIM">1</p><p n="CHAR_SET_ID_2">a</p>)"
                    R"(<p n="COLORE">0xffffffff</p></e>)"
                    R"(<e c="Icon"><p n="CHARSET_DIM">1</p><p n="COLORE">0x00000000</p></e>)"
                    R"(<e c="Digit"><p n="CHARSET_DIM">1</p><p n="CHAR_SET_ID_2">a</p></e>)");
    DashElement& element = overlay.element(0, 0);
    element.valueFont = QStringLiteral("V\u00e9 & <sons>");
    element.valueFontSize = 24;
    element.valueColor = QColor(255, 128, 0, 8);
    element.labelFont = QStringLiteral("L");
    element.labelFontSize = -1;
    element.labelColor = QColor();
    EXPECT_EQ(overlay.written(), writtenElement(R"(          <e c="Digit">
            <p n="COLORE">0x08ff8000</p>
            <p n="OTHER">1</p>
          </e>
          <e c="Label">
            <p n="CHARSET_DIM">-1</p>
            <p n="CHAR_SET_ID_2">L</p>
            <p n="COLORE">0xff000000</p>
          </e>
          <e c="Icon">
            <p n="CHARSET_DIM">1</p>
            <p n="COLORE">0x00000000</p>
          </e>
          <e c="Digit">
            <p n="CHARSET_DIM">24</p>
            <p n="CHAR_SET_ID_2">V)"
                                                "\xc3\xa9"
                                                R"( &amp; &lt;sons&gt;</p>
          </e>
)"));
}

TEST(OverlayWriter, LeavesTextsAloneThatNobodyEdited)
{
    const QByteArray children = R"(          <p n="XPOS">12.7</p>
          <p n="YPOS" />
          <p n="WIDTH">0x40</p>
          <p n="HEIGHT">1</p>
          <p n="HEIGHT">+02</p>
          <e c="Digit">
            <p n="CHARSET_DIM"> 9pt</p>
            <p n="CHAR_SET_ID_2">a)"
                                "\xff"
                                R"(</p>
            <p n="COLORE">0XFFAABBCC</p>
          </e>
          <e c="Label">
            <p n="CHAR_SET_ID_2">A</p>
            <p n="COLORE">0xff8000</p>
          </e>
          <e c="Label">
            <p n="CHARSET_DIM">7</p>
            <p n="CHAR_SET_ID_2">B</p>
            <p n="COLORE"> </p>
          </e>
)";
    EXPECT_EQ(withElement(children).written(), writtenElement(children));
}

TEST(OverlayWriter, WritesOnlyTheValueThatWasEdited)
{
    LoadedOverlay overlay = withElement(
        R"(<p n="XPOS">1.5</p><p n="YPOS">2.5</p>)"
        R"(<e c="Label"><p n="CHARSET_DIM">7px</p><p n="CHAR_SET_ID_2">A</p></e>)"
        R"(<e c="Label"><p n="CHARSET_DIM">9px</p><p n="CHAR_SET_ID_2">B</p><p n="COLORE"/></e>)");
    overlay.element(0, 0).x = 3;
    overlay.element(0, 0).labelColor = Qt::red;
    EXPECT_EQ(overlay.written(), writtenElement(R"(          <p n="XPOS">3</p>
          <p n="YPOS">2.5</p>
          <e c="Label">
            <p n="CHARSET_DIM">7px</p>
            <p n="CHAR_SET_ID_2">A</p>
          </e>
          <e c="Label">
            <p n="CHARSET_DIM">9px</p>
            <p n="CHAR_SET_ID_2">B</p>
            <p n="COLORE">0xffff0000</p>
          </e>
)"));
}

TEST(OverlayWriter, ComparesWithTheLastOccurrenceAndWritesAll)
{
    LoadedOverlay overlay =
        withElement(R"(<p n="XPOS">1a</p><p n="XPOS">2b</p><p n="YPOS">1a</p><p n="YPOS">2b</p>)");
    overlay.element(0, 0).x = 2;
    overlay.element(0, 0).y = 1;
    EXPECT_EQ(overlay.written(), writtenElement(R"(          <p n="XPOS">1a</p>
          <p n="XPOS">2b</p>
          <p n="YPOS">1</p>
          <p n="YPOS">1</p>
)"));
}

TEST(OverlayWriter, AColorInAnotherFormIsNoEdit)
{
    const QByteArray children = R"(          <e c="Digit">
            <p n="CHAR_SET_ID_2">A</p>
            <p n="COLORE">0xFF00FF00</p>
          </e>
)";
    LoadedOverlay overlay = withElement(children);
    overlay.element(0, 0).valueColor = QColor(Qt::green).toHsv();
    EXPECT_EQ(overlay.written(), writtenElement(children));
}

TEST(OverlayWriter, BlackOverAColorThatCannotBeReadIsAnEdit)
{
    LoadedOverlay overlay =
        withElement(R"(<e c="Digit"><p n="CHAR_SET_ID_2">A</p><p n="COLORE">red</p></e>)");
    overlay.element(0, 0).valueColor = Qt::black;
    EXPECT_TRUE(overlay.written().contains(R"(<p n="COLORE">0xff000000</p>)"));
}

TEST(OverlayWriter, ATextLongerThanItsRecordIsNotCut)
{
    const QByteArray font(10'001, 'F');
    LoadedOverlay overlay = withElement(R"(<e c="Digit"><p n="CHARSET_DIM">1</p>)"
                                        R"(<p n="CHAR_SET_ID_2">)" +
                                        font + "</p></e>");
    EXPECT_EQ(overlay.element(0, 0).valueFont.size(), 10'000);
    overlay.element(0, 0).valueFontSize = 2;
    const QByteArray written = overlay.written();
    EXPECT_TRUE(written.contains(font));
    EXPECT_TRUE(written.contains(R"(<p n="CHARSET_DIM">2</p>)"));
}

TEST(OverlayWriter, AStyleWithoutAFontIsLeftAlone)
{
    LoadedOverlay overlay = withElement(
        R"(<e c="Digit"><p n="CHARSET_DIM">12abc</p><p n="CHAR_SET_ID_2"/><p n="COLORE">red</p></e>)"
        R"(<e c="Label"><p n="CHARSET_DIM">1</p><p n="CHAR_SET_ID_2">a</p></e>)");
    DashElement& element = overlay.element(0, 0);
    element.valueFontSize = 24;
    element.valueColor = QColor(255, 128, 0);
    element.labelFont.clear();
    element.labelFontSize = 9;
    EXPECT_EQ(overlay.written(), writtenElement(R"(          <e c="Digit">
            <p n="CHARSET_DIM">12abc</p>
            <p n="CHAR_SET_ID_2" />
            <p n="COLORE">red</p>
          </e>
          <e c="Label">
            <p n="CHARSET_DIM">1</p>
            <p n="CHAR_SET_ID_2">a</p>
          </e>
)"));
}

TEST(OverlayWriter, KeepsWhatItDoesNotUnderstand)
{
    LoadedOverlay overlay("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE x>\n<!-- lost -->"
                          R"(<overlay_cli v="2" v="3"><e c="Overlay"><p n="VERSION">3</p>)"
                          R"(<e c="Unknown" i="u"><p n="A">&amp;&#9;</p><q/>text</e>)"
                          R"(<e c="GConfParam" i=""><p n="DIMENSIONE_X">1x</p>)"
                          R"(<e c="GPageParam" i="7" extra="yes"><p n="PAGE_NAME">P</p>)"
                          R"(<p n="DATA"><![CDATA[<raw>]]></p></e></e></e></overlay_cli><more/>)");
    EXPECT_EQ(overlay.written(), R"(<?xml version="1.0"?>
<overlay_cli v="2" v="3">
  <e c="Overlay">
    <p n="VERSION">3</p>
    <e c="Unknown" i="u">
      <p n="A">&amp;	</p>
      <q />text</e>
    <e c="GConfParam" i="">
      <p n="DIMENSIONE_X">1x</p>
      <e c="GPageParam" i="7" extra="yes">
        <p n="PAGE_NAME">P</p>
        <p n="DATA"><![CDATA[<raw>]]></p>
      </e>
    </e>
  </e>
</overlay_cli>
<more />
)");
}

TEST(OverlayWriter, MatchesPagesAndElementsByPosition)
{
    LoadedOverlay overlay(LoadedOverlay::around(
        R"(<e c="Other"/><e c="GPageParam"><e c="GMaskParam"><p n="XPOS">1</p></e></e>)"
        R"(<e c="GPageParam"><e c="Other"/><e c="GMaskParam"><p n="XPOS">2</p></e>)"
        R"(<e c="Other"/><e c="GMaskParam"><p n="XPOS">3</p></e></e>)"));
    overlay.element(0, 0).x = 11;
    overlay.element(1, 0).x = 12;
    overlay.element(1, 1).x = 13;
    const QByteArray written = overlay.written();
    ASSERT_TRUE(overlay.load(written));
    EXPECT_EQ(overlay.element(0, 0).x, 11);
    EXPECT_EQ(overlay.element(1, 0).x, 12);
    EXPECT_EQ(overlay.element(1, 1).x, 13);
}

TEST(OverlayWriter, LeavesObjectsWithoutARecordUnchanged)
{
    LoadedOverlay overlay(
        LoadedOverlay::around(R"(<e c="GPageParam"><e c="GMaskParam"><p n="XPOS">1a</p></e>)"
                              R"(<e c="GMaskParam"><p n="XPOS">2a</p></e></e>)"
                              R"(<e c="GPageParam"><e c="GMaskParam"><p n="XPOS">3a</p></e></e>)"));
    // Two objects that the records know nothing of: an element and a page.
    pugi::xml_node page = overlay.document.pageNode(0);
    page.append_copy(page.last_child());
    pugi::xml_node conf = overlay.document.confNode();
    conf.append_copy(conf.last_child());
    overlay.element(0, 0).x = 4;
    overlay.element(0, 1).x = 5;
    overlay.element(1, 0).x = 6;

    const QByteArray written = overlay.written();
    EXPECT_EQ(written.count(R"(<p n="XPOS">4</p>)"), 1);
    EXPECT_EQ(written.count(R"(<p n="XPOS">5</p>)"), 1);
    EXPECT_EQ(written.count(R"(<p n="XPOS">2a</p>)"), 1);
    EXPECT_EQ(written.count(R"(<p n="XPOS">6</p>)"), 1) << "the next page is still written";
    EXPECT_EQ(written.count(R"(<p n="XPOS">3a</p>)"), 1);
}

TEST(OverlayWriter, WithoutAConfigurationObjectItWritesNothing)
{
    LoadedOverlay overlay("<overlay_cli><e/></overlay_cli>");
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("out.xml"));
    EXPECT_FALSE(overlay.document.writeBack(path));
    EXPECT_FALSE(QFileInfo::exists(path));

    ASSERT_TRUE(TestPackage::writeFile(path, "old"));
    EXPECT_FALSE(overlay.document.writeBack(path));
    EXPECT_EQ(TestPackage::readFile(path), "old");
}

TEST(OverlayWriter, AnUnwritablePathFailsAndKeepsTheEdits)
{
    LoadedOverlay overlay = withElement(R"(<p n="XPOS">4</p>)");
    overlay.element(0, 0).x = 9;
    const QTemporaryDir folder;
    EXPECT_FALSE(overlay.document.writeBack(folder.path())) << "a folder";
    EXPECT_FALSE(overlay.document.writeBack(folder.filePath(QStringLiteral("no/such/folder.xml"))));
    EXPECT_EQ(overlay.written(), writtenElement("          <p n=\"XPOS\">9</p>\n"));
}

TEST(OverlayWriter, WritingTwiceGivesTheSameBytes)
{
    LoadedOverlay overlay(TestPackage::overlayXml(
        {TestPackage::page("Race", 320, 240,
                           {TestPackage::digitElement("mask.1", 1, 2, 30, 40),
                            TestPackage::labelElement("mask.2", 5, 6, 70, 80, "Oil")})}));
    const QByteArray first = overlay.written();
    EXPECT_EQ(overlay.written(), first);
    ASSERT_TRUE(overlay.load(first));
    EXPECT_EQ(overlay.written(), first);
}
