#include "tests/support/LoadedOverlay.h"
#include "tests/support/PackageBuilder.h"

#include <gtest/gtest.h>

namespace {

class DeviceReader : public ::testing::Test
{
protected:
    bool load(const QByteArray& container)
    {
        return m_overlay.loadDevice("<CfgFileFormat><e c=\"Any\">" + container +
                                    "</e></CfgFileFormat>");
    }

    bool loadChannels(const QByteArray& rows)
    {
        return load("<e c=\"ChannelsList\">" + rows + "</e>");
    }

    LoadedOverlay m_overlay{LoadedOverlay::around(
        R"(<p n="DIMENSIONE_X">320</p><p n="DIMENSIONE_Y">240</p><e c="GPageParam"/>)")};
    const DashboardDocument& m_document = m_overlay.document;
};

} // namespace

TEST_F(DeviceReader, StartsWithDefaults)
{
    EXPECT_EQ(m_document.deviceType(), QString());
    EXPECT_EQ(m_document.deviceTypeCode(), -1);
    EXPECT_TRUE(m_document.channels().empty());
    EXPECT_EQ(m_document.displayWidth(), 800) << "reading the overlay does not set the size";
    EXPECT_EQ(m_document.displayHeight(), 480);
}

TEST_F(DeviceReader, ReadsIdentityChannelsAndDisplaySize)
{
    ASSERT_TRUE(load(R"(
        <e c="Device"><p n="Type">MXS</p><p n="TypeCode">12</p></e>
        <e c="Other"><p n="Type">other</p></e>
        <e c="ChannelsList">
          <e c="Canale"><p n="FID">7</p><p n="LongName">Engine RPM</p><p n="ShortName">RPM</p>
            <p n="LabelLongName">Engine speed</p><p n="UIV">)"
                     "1/min \xc2\xb5</p></e></e>"));
    EXPECT_EQ(m_document.deviceType(), QStringLiteral("MXS"));
    EXPECT_EQ(m_document.deviceTypeCode(), 12);
    ASSERT_EQ(m_document.channels().size(), 1U);
    const ChannelDef& channel = m_document.channels()[0];
    EXPECT_EQ(channel.fid, 7);
    EXPECT_EQ(channel.longName, QStringLiteral("Engine RPM"));
    EXPECT_EQ(channel.shortName, QStringLiteral("RPM"));
    EXPECT_EQ(channel.labelLongName, QStringLiteral("Engine speed"));
    EXPECT_EQ(channel.uiv, QStringLiteral("1/min \u00b5"));
    EXPECT_EQ(m_document.displayWidth(), 320);
    EXPECT_EQ(m_document.displayHeight(), 240);
}

TEST_F(DeviceReader, LaterKeysAndObjectsWin)
{
    ASSERT_TRUE(load(R"(
        <e c="Device"><p n="Type">A</p><p n="Type">B</p><p n="TypeCode">1</p></e>
        <e c="Device"><p n="TypeCode">2</p></e>)"));
    EXPECT_EQ(m_document.deviceType(), QStringLiteral("B"));
    EXPECT_EQ(m_document.deviceTypeCode(), 2);
}

TEST_F(DeviceReader, AnUnreadableTypeCodeIsZero)
{
    ASSERT_TRUE(load(R"(<e c="Device"><p n="TypeCode">abc</p></e>)"));
    EXPECT_EQ(m_document.deviceTypeCode(), 0);
}

TEST_F(DeviceReader, DropsRowsThatCannotBeBoundTo)
{
    ASSERT_TRUE(loadChannels(R"(
        <e c="Canale"><p n="FID">0</p><p n="LongName">Zero</p></e>
        <e c="Canale"><p n="FID">-3</p><p n="LongName">Negative</p></e>
        <e c="Canale"><p n="LongName">None</p></e>
        <e c="Canale"><p n="FID">12</p><p n="LongName"/></e>
        <e c="Canale"><p n="FID">12</p></e>
        <e c="canale"><p n="FID">1</p><p n="LongName">Other class</p></e>
        <e c="Canale"><p n="FID">1</p><p n="LongName">Kept</p></e>)"));
    ASSERT_EQ(m_document.channels().size(), 1U);
    EXPECT_EQ(m_document.channels()[0].longName, QStringLiteral("Kept"));
    EXPECT_EQ(m_document.channels()[0].shortName, QString());
}

TEST_F(DeviceReader, TheLastOfEachKeyOfARowCounts)
{
    ASSERT_TRUE(loadChannels(R"(
        <e c="Canale"><p n="FID">0</p><p n="LongName"/><p n="LongName">A</p><p n="FID">12x</p></e>
        <e c="Canale"><p n="FID">1</p><p n="LongName">B</p><p n="FID">0</p></e>)"));
    ASSERT_EQ(m_document.channels().size(), 1U);
    EXPECT_EQ(m_document.channels()[0].fid, 12);
    EXPECT_EQ(m_document.channels()[0].longName, QStringLiteral("A"));
}

TEST_F(DeviceReader, ReadsEveryListInOrderAndKeepsDuplicates)
{
    ASSERT_TRUE(load(R"(
        <e c="ChannelsList"><e c="Canale"><p n="FID">2</p><p n="LongName">B</p></e></e>
        <e c="Other"><e c="Canale"><p n="FID">9</p><p n="LongName">No list</p></e></e>
        <e c="Canale"><p n="FID">9</p><p n="LongName">Outside</p></e>
        <e c="ChannelsList"><e c="Canale"><p n="FID">1</p><p n="LongName">A</p></e>
          <e c="Canale"><p n="FID">2</p><p n="LongName">B</p></e></e>)"));
    ASSERT_EQ(m_document.channels().size(), 3U);
    EXPECT_EQ(m_document.channels()[0].fid, 2);
    EXPECT_EQ(m_document.channels()[1].fid, 1);
    EXPECT_EQ(m_document.channels()[2].fid, 2);
}

TEST_F(DeviceReader, OnlyTheFirstContainerOfTheFirstRootCounts)
{
    ASSERT_TRUE(m_overlay.loadDevice(
        R"(<other/><CfgFileFormat><p n="Type">no object</p>
          <e c="Any"><e c="Device"><p n="Type">first</p></e></e>
          <e c="Any"><e c="Device"><p n="Type">second</p><p n="TypeCode">2</p></e>
            <e c="ChannelsList"><e c="Canale"><p n="FID">1</p><p n="LongName">A</p></e></e></e>
        </CfgFileFormat>
        <CfgFileFormat><e><e c="Device"><p n="Type">third</p></e></e></CfgFileFormat>)"));
    EXPECT_EQ(m_document.deviceType(), QStringLiteral("first"));
    EXPECT_EQ(m_document.deviceTypeCode(), -1);
    EXPECT_TRUE(m_document.channels().empty());
}

TEST_F(DeviceReader, AppendsToWhatItKnows)
{
    const QByteArray row = R"(<e c="Canale"><p n="FID">1</p><p n="LongName">A</p></e>)";
    ASSERT_TRUE(loadChannels(row));
    ASSERT_TRUE(loadChannels(row));
    EXPECT_EQ(m_document.channels().size(), 2U);
}

TEST_F(DeviceReader, AnUnusableFileChangesNothing)
{
    for (const char* const xml : {"", "no XML", "<CfgFileFormat><e>", "<CfgFileFormat/>",
                                  R"(<Wrong><e><e c="Device"><p n="Type">X</p></e></e></Wrong>)"}) {
        EXPECT_FALSE(m_overlay.loadDevice(xml)) << xml;
        EXPECT_EQ(m_document.deviceType(), QString());
        EXPECT_EQ(m_document.deviceTypeCode(), -1);
        EXPECT_TRUE(m_document.channels().empty());
        EXPECT_EQ(m_document.displayWidth(), 800) << xml;
        EXPECT_EQ(m_document.displayHeight(), 480) << xml;
    }
    EXPECT_FALSE(m_overlay.document.loadDeviceFile(QStringLiteral("/no/such/file")));
}

TEST_F(DeviceReader, AnUnusableFileAfterAGoodOneChangesNothing)
{
    ASSERT_TRUE(load(R"(<e c="Device"><p n="Type">MXS</p><p n="TypeCode">12</p></e>
        <e c="ChannelsList"><e c="Canale"><p n="FID">1</p><p n="LongName">A</p></e></e>)"));
    for (const char* const xml :
         {"", "<CfgFileFormat><e>", "<CfgFileFormat/>", "<Wrong><e/></Wrong>"}) {
        EXPECT_FALSE(m_overlay.loadDevice(xml)) << xml;
        EXPECT_EQ(m_document.deviceType(), QStringLiteral("MXS")) << xml;
        EXPECT_EQ(m_document.deviceTypeCode(), 12) << xml;
        EXPECT_EQ(m_document.channels().size(), 1U) << xml;
        EXPECT_EQ(m_document.displayWidth(), 320) << xml;
    }
}

TEST_F(DeviceReader, AnEmptyContainerStillReadsTheDisplaySize)
{
    ASSERT_TRUE(load({}));
    EXPECT_EQ(m_document.deviceTypeCode(), -1);
    EXPECT_EQ(m_document.displayWidth(), 320);
}

TEST(DeviceReaderDisplaySize, StaysWithoutAConfigurationObjectOrKeys)
{
    const QByteArray device = TestPackage::deviceXml("MXS", 12, {});
    LoadedOverlay empty("<overlay_cli/>");
    ASSERT_TRUE(empty.loadDevice(device));
    EXPECT_EQ(empty.document.displayWidth(), 800);

    LoadedOverlay oneKey(LoadedOverlay::around(
        R"(<p n="DIMENSIONE_Y">1</p><p n="DIMENSIONE_Y">wide</p><e c="GPageParam"/>)"));
    ASSERT_TRUE(oneKey.loadDevice(device));
    EXPECT_EQ(oneKey.document.displayWidth(), 800);
    EXPECT_EQ(oneKey.document.displayHeight(), 0) << "the last key wins, read as a number";
}
