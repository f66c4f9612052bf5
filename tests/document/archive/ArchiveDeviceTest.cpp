#include "document/archive/ArchiveDevice.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

/// The functions that the archive library calls, on a buffer of ten bytes.
class ArchiveDeviceTest : public ::testing::Test
{
protected:
    ArchiveDeviceTest()
    {
        m_buffer.setData("0123456789");
        m_buffer.open(QIODevice::ReadOnly);
    }

    [[nodiscard]] long seek(ZPOS64_T offset, int origin) const
    {
        return m_hooks.zseek64_file(m_hooks.opaque, nullptr, offset, origin);
    }
    [[nodiscard]] ZPOS64_T tell() const { return m_hooks.ztell64_file(m_hooks.opaque, nullptr); }

    QBuffer m_buffer;
    ArchiveDevice m_device{m_buffer};
    zlib_filefunc64_def m_hooks = m_device.hooks();
};

} // namespace

TEST_F(ArchiveDeviceTest, SeeksFromTheStartThePositionAndTheEnd)
{
    EXPECT_EQ(seek(4, ZLIB_FILEFUNC_SEEK_SET), 0);
    EXPECT_EQ(tell(), 4U);
    EXPECT_EQ(seek(3, ZLIB_FILEFUNC_SEEK_CUR), 0);
    EXPECT_EQ(tell(), 7U);
    EXPECT_EQ(seek(0, ZLIB_FILEFUNC_SEEK_END), 0);
    EXPECT_EQ(tell(), 10U);
    EXPECT_FALSE(m_device.failed());
}

TEST_F(ArchiveDeviceTest, RefusesAPlaceBeforeTheStartWithoutAFailureOfTheDevice)
{
    EXPECT_EQ(seek(2, ZLIB_FILEFUNC_SEEK_SET), 0);
    EXPECT_EQ(seek(static_cast<ZPOS64_T>(-3), ZLIB_FILEFUNC_SEEK_CUR), -1);
    EXPECT_EQ(tell(), 2U);
    EXPECT_FALSE(m_device.failed());
}

TEST_F(ArchiveDeviceTest, SumsWhatIsWrittenUpToTheNextMove)
{
    m_buffer.close();
    m_buffer.open(QIODevice::ReadWrite);
    const auto write = [this](const char* bytes) {
        m_hooks.zwrite_file(m_hooks.opaque, nullptr, bytes, static_cast<uLong>(qstrlen(bytes)));
    };
    write("header");
    m_device.startSum();
    write("12345");
    write("6789");
    EXPECT_EQ(m_device.writtenCrc(), 0xcbf43926U);
    EXPECT_EQ(seek(0, ZLIB_FILEFUNC_SEEK_SET), 0);
    write("header");
    EXPECT_EQ(m_device.writtenCrc(), 0xcbf43926U);
    m_device.startSum();
    EXPECT_EQ(m_device.writtenCrc(), 0U);
}
