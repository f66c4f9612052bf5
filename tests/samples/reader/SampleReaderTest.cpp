#include "telemetry/TelemetrySession.h"
#include "telemetry/XrkLibrary.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>

namespace {

/// The library and a folder for recordings.
class SampleReader : public testing::Test
{
protected:
    QByteArray write(const char* name, const QByteArray& text)
    {
        const QString path = m_folder.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(text), text.size());
        return path.toUtf8();
    }
    int open(const QByteArray& path) const { return m_library.open_file(path.constData()); }

    QTemporaryDir m_folder;
    XrkLibrary m_library{SAMPLE_READER};
};

const QByteArray kRecording = "gaugewright recording 1\n"
                              "vehicle\tCar 7\n"
                              "racer\tA. Driver\n"
                              "laps\t3\n"
                              "channel\tplain\trpm\t1/min\n"
                              "0\t1000\n"
                              "1\t2000\n"
                              "channel\tgps\tGPS Speed\tm/s\n"
                              "500\t10\n"
                              "channel\tgps-raw\tGPS Altitude\tm\n"
                              "500\t200\n";

TEST_F(SampleReader, RefusesWhatIsNoRecording)
{
    ASSERT_TRUE(m_library.isLoaded());
    EXPECT_LT(open("/no/such/file.xrk"), 0);
    EXPECT_LT(open(m_folder.path().toUtf8()), 0);
    EXPECT_LT(open(write("other.xrk", "something else")), 0);
    EXPECT_LT(open(write("empty.xrk", "")), 0);
}

TEST_F(SampleReader, HandsOutEveryFamily)
{
    const int file = open(write("r.xrk", kRecording));
    ASSERT_GE(file, 0);
    EXPECT_EQ(m_library.get_channels_count(file), 1);
    EXPECT_STREQ(m_library.get_channel_name(file, 0), "rpm");
    EXPECT_STREQ(m_library.get_channel_units(file, 0), "1/min");
    EXPECT_EQ(m_library.get_channel_samples_count(file, 0), 2);
    std::array<double, 2> times{};
    std::array<double, 2> values{};
    EXPECT_EQ(m_library.get_channel_samples(file, 0, times.data(), values.data(), 2), 2);
    EXPECT_EQ(times, (std::array{0.0, 1.0}));
    EXPECT_EQ(values, (std::array{1000.0, 2000.0}));

    EXPECT_EQ(m_library.get_GPS_channels_count(file), 1);
    EXPECT_STREQ(m_library.get_GPS_channel_name(file, 0), "GPS Speed");
    EXPECT_STREQ(m_library.get_GPS_channel_units(file, 0), "m/s");
    EXPECT_EQ(m_library.get_GPS_channel_samples_count(file, 0), 1);
    EXPECT_EQ(m_library.get_GPS_channel_samples(file, 0, times.data(), values.data(), 1), 1);
    EXPECT_EQ(times[0], 500.0); // as it stands in the file
    EXPECT_EQ(values[0], 10.0);

    EXPECT_EQ(m_library.get_GPS_raw_channels_count(file), 1);
    EXPECT_STREQ(m_library.get_GPS_raw_channel_name(file, 0), "GPS Altitude");
    EXPECT_STREQ(m_library.get_GPS_raw_channel_units(file, 0), "m");
    EXPECT_EQ(m_library.get_GPS_raw_channel_samples_count(file, 0), 1);
    EXPECT_EQ(m_library.get_GPS_raw_channel_samples(file, 0, times.data(), values.data(), 1), 1);
    EXPECT_EQ(values[0], 200.0);
}

TEST_F(SampleReader, NamesVehicleRacerAndLaps)
{
    using Text = const char* (*)(int);
    using Number = int (*)(int);
    const int file = open(write("r.xrk", kRecording));
    EXPECT_STREQ(reinterpret_cast<Text>(m_library.get_vehicle_name)(file), "Car 7");
    EXPECT_STREQ(reinterpret_cast<Text>(m_library.get_racer_name)(file), "A. Driver");
    EXPECT_EQ(reinterpret_cast<Number>(m_library.get_laps_count)(file), 3);
    EXPECT_EQ(reinterpret_cast<Text>(m_library.get_vehicle_name)(99), nullptr);
    EXPECT_EQ(reinterpret_cast<Text>(m_library.get_racer_name)(99), nullptr);
    EXPECT_LT(reinterpret_cast<Number>(m_library.get_laps_count)(99), 0);
}

TEST_F(SampleReader, CopiesNoMoreThanAskedForAndThereIs)
{
    const int file = open(write("r.xrk", kRecording));
    std::array<double, 3> times = {-1.0, -1.0, -1.0};
    std::array<double, 3> values = {-1.0, -1.0, -1.0};
    EXPECT_EQ(m_library.get_channel_samples(file, 0, times.data(), values.data(), 1), 1);
    EXPECT_EQ(values, (std::array{1000.0, -1.0, -1.0}));
    EXPECT_EQ(m_library.get_channel_samples(file, 0, times.data(), values.data(), 3), 2);
    EXPECT_EQ(values, (std::array{1000.0, 2000.0, -1.0}));
    EXPECT_EQ(m_library.get_channel_samples(file, 0, times.data(), values.data(), -1), 0);
}

TEST_F(SampleReader, AnswersForNoSuchFileOrChannel)
{
    const int file = open(write("r.xrk", kRecording));
    double sample = 0.0;
    for (const auto& [index, channel] : {std::pair{file, 1}, {file, -1}, {file + 1, 0}, {-1, 0}}) {
        EXPECT_EQ(m_library.get_channel_name(index, channel), nullptr);
        EXPECT_EQ(m_library.get_channel_units(index, channel), nullptr);
        EXPECT_LT(m_library.get_channel_samples_count(index, channel), 0);
        EXPECT_LT(m_library.get_channel_samples(index, channel, &sample, &sample, 1), 0);
    }
    EXPECT_LT(m_library.get_channels_count(file + 1), 0);
}

TEST_F(SampleReader, KeepsSeveralFilesOpen)
{
    const int first = open(write("a.xrk", "gaugewright recording 1\nchannel\tplain\ta\t\n"));
    const int second = open(write("b.xrk", "gaugewright recording 1\nchannel\tplain\tb\t\n"));
    ASSERT_NE(first, second);
    EXPECT_STREQ(m_library.get_channel_name(first, 0), "a");
    EXPECT_STREQ(m_library.get_channel_name(second, 0), "b");
    EXPECT_EQ(m_library.close_file_i(first), 0);
    EXPECT_EQ(m_library.get_channel_name(first, 0), nullptr);
    EXPECT_STREQ(m_library.get_channel_name(second, 0), "b");
    EXPECT_LT(m_library.close_file_i(first), 0);
}

TEST_F(SampleReader, OpensPathsInUtf8)
{
    EXPECT_GE(open(write("Nürburg.xrk", kRecording)), 0);
}

TEST_F(SampleReader, FeedsTheEditor)
{
    const QString path = QString::fromUtf8(write("r.xrk", kRecording));
    TelemetrySession session;
    ASSERT_TRUE(session.load(path, QStringLiteral(SAMPLE_READER)));
    EXPECT_EQ(session.channelNames().size(), 3);
    EXPECT_EQ(session.value(QStringLiteral("RPM"), 0.5), 1500.0);
}

} // namespace
