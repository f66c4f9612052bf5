// Overlay files made to break readers: no crash, no hang, and what can be kept is kept.

#include "app/commands/ClearPageCommand.h"
#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "app/commands/NewPageCommand.h"
#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/PackageBuilder.h"

#include <QStringConverter>
#include <QThread>
#include <QUndoStack>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

QByteArray onePage(const QByteArray& content)
{
    return LoadedOverlay::around(R"(<e c="GPageParam">)" + content + "</e>");
}

/// Runs code on a stack that is too small for thousands of levels of recursion.
void runOnSmallStack(const std::function<void()>& code)
{
    constexpr unsigned kStackSize = 512 * 1024;
    const std::unique_ptr<QThread> thread(QThread::create(code));
    thread->setStackSize(kStackSize);
    thread->start();
    thread->wait();
}

/// More than a removal that recurses survives on any usual stack.
constexpr int kLevels = 300'000;

QByteArray nested(int levels)
{
    return QByteArray(R"(<e c="x">)").repeated(levels) + QByteArray("</e>").repeated(levels);
}

/// Every command there is, done, undone and redone on the first page.
void editEverywhere(DashboardDocument& document)
{
    QUndoStack stack;
    const pugi::xml_node donor = document.pages().at(0).elements.at(0).node;
    stack.push(new InsertElementCommand(&document, 0, {}, 1, 2, 3, 4, donor));
    stack.push(new DeleteCommand(&document, 0, 0));
    stack.push(new ClearPageCommand(&document, 0));
    stack.push(new NewPageCommand(&document, QStringLiteral("New")));
    stack.setIndex(0);
    stack.setIndex(4);
    stack.setIndex(0);
}

} // namespace

TEST(AwkwardXml, AMillionElements)
{
    constexpr int kCount = 1'000'000;
    LoadedOverlay overlay(onePage(QByteArray(R"(<e c="GMaskParam"/>)").repeated(kCount)));
    ASSERT_TRUE(overlay.isLoaded());
    DashboardDocument& document = overlay.document;
    ASSERT_EQ(document.pages()[0].elements.size(), std::size_t{kCount});
    EXPECT_TRUE(document.removeElement(0, kCount / 2));
    DashElement created;
    EXPECT_EQ(document.addElementFromDonor(0, document.pages()[0].elements[0].node, {}, 1, 2, 3, 4,
                                           created),
              kCount - 1);
    EXPECT_EQ(overlay.written().count("GMaskParam"), kCount);
}

TEST(AwkwardXml, NestedThreeHundredThousandLevels)
{
    runOnSmallStack([] {
        const QByteArray deep = nested(kLevels);
        LoadedOverlay overlay(onePage(R"(<e c="GMaskParam" i="kept"/>)"));
        EXPECT_FALSE(overlay.load(onePage(R"(<e c="GMaskParam" i="deep">)" + deep + "</e>")));
        EXPECT_FALSE(overlay.load(onePage(R"(<e c="GMaskParam"><p>7)" + deep + "</p></e>")));
        EXPECT_EQ(overlay.element(0, 0).name, QStringLiteral("kept"));
    });
}

TEST(AwkwardXml, NestedAsDeeplyAsIsAllowed)
{
    const QByteArray deep = nested(95); // below five levels of other elements
    LoadedOverlay overlay(onePage(R"(<e c="GMaskParam" i="deep"><p n="XPOS">1</p>)" + deep +
                                  R"(</e><e c="GMaskParam" i="last"/>)"));
    ASSERT_TRUE(overlay.isLoaded());
    const QByteArray before = InStep::recordsText(overlay.document);
    editEverywhere(overlay.document);
    EXPECT_EQ(InStep::recordsText(overlay.document), before);
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
    EXPECT_TRUE(
        overlay.written().contains(QByteArray('\n' + QByteArray(99 * 2, ' ') + R"(<e c="x" />)")));
    EXPECT_FALSE(overlay.load(onePage(R"(<e c="GMaskParam">)" + nested(96) + "</e>")));
}

TEST(AwkwardXml, AnAttributeOfSixtyMegabytes)
{
    constexpr int kSize = 60'000'000;
    LoadedOverlay overlay(onePage(R"(<e c="GMaskParam" i="m" big=")" + QByteArray(kSize, 'x') +
                                  R"("><p n="XPOS">7</p></e>)"));
    ASSERT_TRUE(overlay.isLoaded());
    EXPECT_EQ(overlay.element(0, 0).x, 7);
    EXPECT_EQ(std::strlen(overlay.element(0, 0).node.attribute("big").value()), kSize);
    ASSERT_TRUE(overlay.document.removeElement(0, 0));
    EXPECT_LT(overlay.written().size(), 1000);
}

TEST(AwkwardXml, TextsOfTenMegabytes)
{
    const QByteArray text = QByteArray("long text ").repeated(1'000'000);
    LoadedOverlay overlay(onePage(R"(<p n="PAGE_NAME">)" + text + R"(</p><e c="GMaskParam" i=")" +
                                  text + R"("><p n="XPOS">)" + text + R"(</p><p n="OTHER">)" +
                                  text + R"(</p><e c="Digit">)" + R"(<p n="CHAR_SET_ID_2">)" +
                                  text + R"(</p><p n="COLORE">)" + text + "</p></e></e>"));
    ASSERT_TRUE(overlay.isLoaded());
    const QString shown = QString::fromUtf8(text).left(10'000);
    EXPECT_EQ(overlay.document.pages()[0].name, shown);
    EXPECT_EQ(overlay.element(0, 0).name, shown);
    EXPECT_EQ(overlay.element(0, 0).valueFont, shown);
    EXPECT_EQ(overlay.element(0, 0).x, 0);
    EXPECT_EQ(overlay.written().count("long text "), 6 * 1'000'000) << "the file keeps all";
}

TEST(AwkwardXml, NamesOfManyBytes)
{
    for (const int size : {511, 512, 513, 10'000}) {
        const QByteArray name(size, 'n');
        LoadedOverlay overlay(onePage(R"(<p n="PAGE_NAME">)" + name +
                                      R"(</p><e c="GMaskParam" i=")" + name + R"("/>)"));
        EXPECT_EQ(overlay.document.pages()[0].name.toUtf8(), name);
        EXPECT_EQ(overlay.element(0, 0).name.toUtf8(), name);
        const QByteArray written = overlay.written();
        EXPECT_TRUE(written.contains(QByteArray('>' + name + '<')));
        EXPECT_TRUE(written.contains(QByteArray('"' + name + '"')));
    }
}

TEST(AwkwardXml, SizesAndPositionsAtTheEdgeOfTheNumbers)
{
    LoadedOverlay overlay(onePage(
        R"(<p n="WIDTH">0</p><p n="HEIGHT">-2147483648</p><e c="GMaskParam">)"
        R"(<p n="XPOS">2147483647</p><p n="YPOS">-2147483648</p><p n="WIDTH">2147483647</p></e>)"));
    EXPECT_EQ(overlay.document.pages()[0].width, 0);
    EXPECT_EQ(overlay.document.pages()[0].height, -2147483647 - 1);
    EXPECT_EQ(overlay.element(0, 0).x, 2147483647);
    EXPECT_EQ(overlay.element(0, 0).y, -2147483647 - 1);
    const QByteArray written = overlay.written();
    EXPECT_TRUE(written.contains(R"(<p n="XPOS">2147483647</p>)"));
    EXPECT_TRUE(written.contains(R"(<p n="YPOS">-2147483648</p>)"));
}

TEST(AwkwardXml, DuplicateAttributesAreKeptAndTheFirstCounts)
{
    LoadedOverlay overlay(onePage(R"(<e c="GMaskParam" c="Other" i="one" i="two"/>)"));
    EXPECT_EQ(overlay.element(0, 0).name, QStringLiteral("one"));
    EXPECT_TRUE(overlay.written().contains(R"(<e c="GMaskParam" c="Other" i="one" i="two" />)"));
}

TEST(AwkwardXml, OfTwoRootsTheFirstCountsAndBothAreKept)
{
    LoadedOverlay overlay("<other/>" + onePage(R"(<p n="PAGE_NAME">one</p>)") +
                          onePage(R"(<p n="PAGE_NAME">two</p>)"));
    ASSERT_EQ(overlay.document.pageCount(), 1);
    EXPECT_EQ(overlay.document.pages()[0].name, QStringLiteral("one"));
    EXPECT_EQ(overlay.written().count("<overlay_cli>"), 2);
    EXPECT_EQ(overlay.written().count("<other />"), 1);
}

TEST(AwkwardXml, InvalidUtf8ComesBackUnchangedWhereItIsNotEdited)
{
    const QByteArray bad = "a\xff\xc0\xaf\xed\xa0\x80z";
    LoadedOverlay overlay(onePage(R"(<p n="PAGE_NAME">)" + bad + R"(</p><e c="GMaskParam" i=")" +
                                  bad + R"("><p n="OTHER">)" + bad +
                                  R"(</p><e c="Digit"><p n="CHAR_SET_ID_2">)" + bad +
                                  R"(</p><p n="CHARSET_DIM">1</p></e></e>)"));
    ASSERT_TRUE(overlay.isLoaded());
    editEverywhere(overlay.document);
    overlay.element(0, 0).valueFontSize = 9; // the style is written, its font stays
    const QByteArray written = overlay.written();
    EXPECT_EQ(written.count(bad), 4);
    EXPECT_TRUE(written.contains(R"(<p n="CHARSET_DIM">9</p>)"));
}

TEST(AwkwardXml, DeclaredAndDetectedEncodingsBecomeUtf8)
{
    const QByteArray body = onePage("<p n=\"PAGE_NAME\">caf\xe9</p>");
    const QString text = QStringLiteral("caf\u00e9");
    LoadedOverlay latin(R"(<?xml version="1.0" encoding="ISO-8859-1"?>)" + body);
    EXPECT_EQ(latin.document.pages().at(0).name, text);
    EXPECT_TRUE(latin.written().contains("caf\xc3\xa9"));

    const QString wide = QString::fromLatin1(body);
    const QByteArray utf16(reinterpret_cast<const char*>(wide.utf16()), 2 * wide.size());
    LoadedOverlay sixteen("\xff\xfe" + utf16);
    EXPECT_EQ(sixteen.document.pages().at(0).name, text);
    EXPECT_TRUE(sixteen.written().startsWith("<?xml version=\"1.0\"?>\n<overlay_cli>"));

    LoadedOverlay unknown(R"(<?xml version="1.0" encoding="no-such-thing"?>)" + body);
    EXPECT_TRUE(unknown.isLoaded());
    EXPECT_TRUE(unknown.written().contains("caf\xe9<")) << "taken as it is";

    LoadedOverlay marked("\xef\xbb\xbf" + onePage({}));
    EXPECT_TRUE(marked.isLoaded());
    EXPECT_TRUE(marked.written().startsWith("<?xml")) << "no byte-order mark";
}

TEST(AwkwardXml, Utf16WithADeclaredEncodingIsReadInBothByteOrders)
{
    const QString text = QStringLiteral("caf\u00e9 \u8d5b");
    const QString xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?>") +
                        QString::fromUtf8(onePage("<p n=\"PAGE_NAME\">" + text.toUtf8() + "</p>"));
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        for (const auto flag :
             {QStringConverter::Flag::WriteBom, QStringConverter::Flag::Default}) {
            const QByteArray bytes = QStringEncoder(encoding, flag).encode(xml);
            LoadedOverlay overlay(bytes);
            ASSERT_TRUE(overlay.isLoaded()) << bytes.left(4).toHex().toStdString();
            EXPECT_EQ(overlay.document.pages().at(0).name, text);
            const QByteArray written = overlay.written();
            EXPECT_TRUE(written.startsWith("<?xml version=\"1.0\"?>\n<overlay_cli>"));
            EXPECT_TRUE(written.contains(text.toUtf8()));
        }
    }
}

TEST(AwkwardXml, EntitiesAreNotExpanded)
{
    QByteArray entities = "<!ENTITY a0 \"lol\">";
    for (int i = 1; i < 30; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ';';
        entities += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    LoadedOverlay overlay("<!DOCTYPE overlay_cli [" + entities +
                          R"(<!ENTITY x "&y;"><!ENTITY y "&x;">)"
                          R"(<!ENTITY file SYSTEM "file:///etc/passwd">]>)" +
                          onePage(R"(<p n="PAGE_NAME">&a29;&x;&file;</p>)"));
    ASSERT_TRUE(overlay.isLoaded());
    EXPECT_EQ(overlay.document.pages()[0].name, QStringLiteral("&a29;&x;&file;"));
    EXPECT_TRUE(overlay.written().contains("&amp;a29;&amp;x;&amp;file;"));
}

TEST(AwkwardXml, ANulByteIsNoXmlAndACharacterReferenceToItEndsItsText)
{
    QByteArray xml = onePage(R"(<p n="PAGE_NAME">Race</p>)");
    xml[xml.indexOf("Race") + 1] = '\0';
    EXPECT_FALSE(LoadedOverlay(xml).isLoaded());

    LoadedOverlay overlay(onePage(R"(<p n="PAGE_NAME">Ra&#0;ce</p><p n="OTHER">1</p>)"));
    ASSERT_TRUE(overlay.isLoaded());
    EXPECT_EQ(overlay.document.pages()[0].name, QStringLiteral("Ra"));
    EXPECT_TRUE(overlay.written().contains(R"(<p n="OTHER">1</p>)"));
}

TEST(AwkwardXml, CDataIsReadAndKeptAndInstructionsAreDropped)
{
    LoadedOverlay overlay(onePage(
        R"(<?keep no?><!-- nor this --><p n="PAGE_NAME"><![CDATA[<Race> & ]]></p>)"
        R"(<e c="GMaskParam"><p n="XPOS"><![CDATA[12]]></p><p n="A"><![CDATA[]]></p></e>)"));
    EXPECT_EQ(overlay.document.pages()[0].name, QStringLiteral("<Race> & "));
    EXPECT_EQ(overlay.element(0, 0).x, 12);
    const QByteArray written = overlay.written();
    EXPECT_TRUE(written.contains("<![CDATA[<Race> & ]]>"));
    EXPECT_TRUE(written.contains(R"(<p n="XPOS"><![CDATA[12]]></p>)"));
    EXPECT_FALSE(written.contains("keep"));
    EXPECT_FALSE(written.contains("nor this"));
}

TEST(AwkwardXml, AFileCutAnywhereIsReadOrRefused)
{
    const QByteArray whole = TestPackage::overlayXml(
        {TestPackage::page("Race", 1, 2, {TestPackage::digitElement("m", 1, 2, 3, 4)})});
    LoadedOverlay kept(whole);
    const QByteArray records = InStep::recordsText(kept.document);
    const qsizetype lastTag = whole.lastIndexOf('>');
    for (qsizetype length = 0; length < lastTag; ++length) {
        ASSERT_FALSE(kept.load(whole.left(length))) << length;
        ASSERT_EQ(InStep::recordsText(kept.document), records) << length;
    }
    EXPECT_TRUE(kept.load(whole.left(lastTag + 1)));
}
