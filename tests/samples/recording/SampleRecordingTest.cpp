#include "telemetry/TelemetrySession.h"
#include "telemetry/XrkLibrary.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

QString operator""_q(const char* text, std::size_t length)
{
    return QString::fromUtf8(text, static_cast<qsizetype>(length));
}

const QString kRecordingPath = QStringLiteral(SAMPLE_RECORDING);
const QString kReaderPath = QStringLiteral(SAMPLE_READER);

QByteArray readAll(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// The recording as the editor holds it.
class SampleRecording : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_session.load(kRecordingPath, kReaderPath)); }

    double value(const QString& name, double seconds) const
    {
        return m_session.value(name, seconds);
    }

    TelemetrySession m_session;
};

TEST_F(SampleRecording, IsTenMinutesOfFortyChannels)
{
    EXPECT_EQ(m_session.channelNames().size(), 40);
    EXPECT_DOUBLE_EQ(m_session.duration(), 600.0);
}

TEST_F(SampleRecording, GivesEveryRuleOfMatchingSomethingToDo)
{
    const std::vector<std::pair<QString, QString>> expected = {
        {"GPS Speed"_q, "GPS Speed"_q}, // the same name
        {"GPS Altitude"_q, "GPS Altitude"_q},
        {"RPM"_q, "rpm"_q}, // but for case
        {"Fuel Level"_q, "FUEL LEVEL"_q},
        {"Gear_Pos"_q, "GearPos"_q}, // but for blanks and underscores
        {"Oil Temp"_q, "OilTemp"_q},
        {"Lap Time"_q, "Lap_Time"_q},
        {"Lambda 1"_q, "Lambda1"_q},
        {"Brake Press F"_q, "BrakePressF"_q},
        {"GPS LatAcc"_q, "GPS Lat_Acc"_q},
        {"port rpm"_q, "Port_Engine_RPM"_q}, // by words and side
        {"stbd rpm"_q, "Stbd_Engine_RPM"_q},
        {"Throttle"_q, "Throttle_Pos"_q}, // by words
        {"Battery"_q, "Battery_Voltage"_q},
        {"Oil Press"_q, "Oil_Pressure Main"_q}, // by a word and a part of one
        {"Water Temp"_q, "WaterTemp1"_q},       // by parts of a word
        {"star boost"_q, QString()},            // another side
    };
    for (const auto& [layout, recorded] : expected)
        EXPECT_EQ(m_session.matchChannel(layout), recorded) << layout.toStdString();
}

TEST_F(SampleRecording, ShowsACarThatDrivesLaps)
{
    EXPECT_LT(value("GPS Speed"_q, 0.0), 0.1);
    EXPECT_LT(value("GPS Speed"_q, 600.0), 0.1);
    EXPECT_EQ(value("Lap_Number"_q, 0.0), 1.0);
    EXPECT_EQ(value("Lap_Number"_q, 600.0), 7.0);

    for (int tenth = 100; tenth < 5900; ++tenth) {
        const double time = tenth / 10.0;
        const double speed = value("GPS Speed"_q, time);
        EXPECT_GT(speed, 10.0) << time;
        EXPECT_LT(speed, 62.0) << time;
        EXPECT_NEAR((value("Wheel_Speed FL"_q, time) + value("Wheel_Speed FR"_q, time)) / 2.0,
                    speed * 3.6, 3.0)
            << time;
        EXPECT_LT(std::hypot(value("GPS Lat_Acc"_q, time), value("GPS Lon_Acc"_q, time)), 1.9)
            << time;
        EXPECT_GE(value("GearPos"_q, time), 1.0);
        EXPECT_LE(value("GearPos"_q, time), 6.0);
        EXPECT_LT(value("rpm"_q, time), 7000.0);
        EXPECT_FALSE(value("BrakePressF"_q, time) > 10.0 && value("Throttle_Pos"_q, time) > 20.0)
            << time;
    }
}

TEST_F(SampleRecording, ComesBackToTheSamePlace)
{
    // The first moments of the third and the fourth lap.
    std::vector<double> begins;
    for (int tenth = 1; tenth < 6000; ++tenth) {
        if (value("Lap_Distance"_q, tenth / 10.0) < value("Lap_Distance"_q, (tenth - 1) / 10.0) &&
            value("Lap_Distance"_q, tenth / 10.0) < 20.0)
            begins.push_back(tenth / 10.0);
    }
    ASSERT_GE(begins.size(), 4U);
    EXPECT_NEAR(begins[3] - begins[2], 82.0, 3.0);
    EXPECT_NEAR(value("GPS Latitude"_q, begins[2]), value("GPS Latitude"_q, begins[3]), 2e-4);
    EXPECT_NEAR(value("GPS Longitude"_q, begins[2]), value("GPS Longitude"_q, begins[3]), 2e-4);
}

TEST(SampleRecordingFile, HasAllFamiliesAtTenToFiftyHertz)
{
    const XrkLibrary library(SAMPLE_READER);
    const int file = library.open_file(SAMPLE_RECORDING);
    ASSERT_GE(file, 0);
    EXPECT_EQ(library.get_channels_count(file), 30);
    EXPECT_EQ(library.get_GPS_channels_count(file), 6);
    EXPECT_EQ(library.get_GPS_raw_channels_count(file), 4);

    const Recording recording = readRecording(library, file);
    for (const auto& [key, channel] : recording.channels) {
        EXPECT_EQ(channel.times.front(), 0.0);
        EXPECT_DOUBLE_EQ(channel.times.back(), 600.0) << key.toStdString();
        const double rate = static_cast<double>(channel.times.size() - 1) / 600.0;
        EXPECT_GE(rate, 10.0) << key.toStdString();
        EXPECT_LE(rate, 50.0) << key.toStdString();
        EXPECT_TRUE(std::is_sorted(channel.times.begin(), channel.times.end()));
        EXPECT_TRUE(std::all_of(channel.values.begin(), channel.values.end(),
                                [](double value) { return std::isfinite(value); }));
    }
    library.close_file_i(file);
}

TEST(SampleRecordingFile, KeepsGpsTimesInMilliseconds)
{
    const XrkLibrary library(SAMPLE_READER);
    const int file = library.open_file(SAMPLE_RECORDING);
    ASSERT_GE(file, 0);
    double times[3] = {};
    double values[3] = {};
    library.get_GPS_channel_samples(file, 0, times, values, 3);
    EXPECT_EQ(times[1], 50.0);
    library.get_GPS_raw_channel_samples(file, 0, times, values, 3);
    EXPECT_EQ(times[1], 100.0);
    library.get_channel_samples(file, 0, times, values, 3);
    EXPECT_EQ(times[1], 0.02);
    library.close_file_i(file);
}

TEST(SampleRecordingFile, IsAlwaysTheSame)
{
    const QTemporaryDir folder;
    const QString again = folder.filePath("again.xrk"_q);
    ASSERT_EQ(QProcess::execute(QStringLiteral(SAMPLE_RECORDER), {again}), 0);
    EXPECT_TRUE(readAll(again) == readAll(kRecordingPath));
}

TEST(SampleRecorder, FailsAloud)
{
    const QString recorder = QStringLiteral(SAMPLE_RECORDER);
    EXPECT_EQ(QProcess::execute(recorder, {}), 2);
    EXPECT_EQ(QProcess::execute(recorder, {"/no/such/folder/r.xrk"_q}), 1);
}

} // namespace
