#include "telemetry/TelemetrySession.h"
#include "telemetry/XrkLibrary.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

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
        {u"GPS Speed"_s, u"GPS Speed"_s}, // the same name
        {u"GPS Altitude"_s, u"GPS Altitude"_s},
        {u"RPM"_s, u"rpm"_s}, // but for case
        {u"Fuel Level"_s, u"FUEL LEVEL"_s},
        {u"Gear_Pos"_s, u"GearPos"_s}, // but for blanks and underscores
        {u"Oil Temp"_s, u"OilTemp"_s},
        {u"Lap Time"_s, u"Lap_Time"_s},
        {u"Lambda 1"_s, u"Lambda1"_s},
        {u"Brake Press F"_s, u"BrakePressF"_s},
        {u"GPS LatAcc"_s, u"GPS Lat_Acc"_s},
        {u"port rpm"_s, u"Port_Engine_RPM"_s}, // by words and side
        {u"stbd rpm"_s, u"Stbd_Engine_RPM"_s},
        {u"Throttle"_s, u"Throttle_Pos"_s}, // by words
        {u"Battery"_s, u"Battery_Voltage"_s},
        {u"Oil Press"_s, u"Oil_Pressure Main"_s}, // by a word and a part of one
        {u"Water Temp"_s, u"WaterTemp1"_s},       // by parts of a word
        {u"star boost"_s, QString()},             // another side
    };
    for (const auto& [layout, recorded] : expected)
        EXPECT_EQ(m_session.matchChannel(layout), recorded) << layout.toStdString();
}

TEST_F(SampleRecording, ShowsACarThatDrivesLaps)
{
    EXPECT_LT(value(u"GPS Speed"_s, 0.0), 0.1);
    EXPECT_LT(value(u"GPS Speed"_s, 600.0), 0.1);
    EXPECT_EQ(value(u"Lap_Number"_s, 0.0), 1.0);
    EXPECT_EQ(value(u"Lap_Number"_s, 600.0), 7.0);

    for (int tenth = 100; tenth < 5900; ++tenth) {
        const double time = tenth / 10.0;
        const double speed = value(u"GPS Speed"_s, time);
        EXPECT_GT(speed, 10.0) << time;
        EXPECT_LT(speed, 62.0) << time;
        EXPECT_NEAR((value(u"Wheel_Speed FL"_s, time) + value(u"Wheel_Speed FR"_s, time)) / 2.0,
                    speed * 3.6, 3.0)
            << time;
        EXPECT_LT(std::hypot(value(u"GPS Lat_Acc"_s, time), value(u"GPS Lon_Acc"_s, time)), 1.9)
            << time;
        EXPECT_GE(value(u"GearPos"_s, time), 1.0);
        EXPECT_LE(value(u"GearPos"_s, time), 6.0);
        EXPECT_LT(value(u"rpm"_s, time), 7000.0);
        EXPECT_FALSE(value(u"BrakePressF"_s, time) > 10.0 && value(u"Throttle_Pos"_s, time) > 20.0)
            << time;
    }
}

TEST_F(SampleRecording, ComesBackToTheSamePlace)
{
    // The first moments of the third and the fourth lap.
    std::vector<double> begins;
    for (int tenth = 1; tenth < 6000; ++tenth) {
        if (value(u"Lap_Distance"_s, tenth / 10.0) < value(u"Lap_Distance"_s, (tenth - 1) / 10.0) &&
            value(u"Lap_Distance"_s, tenth / 10.0) < 20.0)
            begins.push_back(tenth / 10.0);
    }
    ASSERT_GE(begins.size(), 4U);
    EXPECT_NEAR(begins[3] - begins[2], 82.0, 3.0);
    EXPECT_NEAR(value(u"GPS Latitude"_s, begins[2]), value(u"GPS Latitude"_s, begins[3]), 2e-4);
    EXPECT_NEAR(value(u"GPS Longitude"_s, begins[2]), value(u"GPS Longitude"_s, begins[3]), 2e-4);
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

TEST(SampleRecordingFile, HasNoNegativePedalsAndSpeeds)
{
    const XrkLibrary library(SAMPLE_READER);
    const int file = library.open_file(SAMPLE_RECORDING);
    ASSERT_GE(file, 0);
    const Recording recording = readRecording(library, file);
    library.close_file_i(file);
    for (const char* const key :
         {"throttle_pos", "brakepressf", "brakepressr", "wheel_speed fl", "wheel_speed fr",
          "wheel_speed rl", "wheel_speed rr", "gps speed"}) {
        const SampleArray& values = recording.channels.at(QString::fromLatin1(key)).values;
        EXPECT_GE(*std::min_element(values.begin(), values.end()), 0.0) << key;
    }
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
    const QString again = folder.filePath(u"again.xrk"_s);
    ASSERT_EQ(QProcess::execute(QStringLiteral(SAMPLE_RECORDER), {again}), 0);
    EXPECT_TRUE(readAll(again) == readAll(kRecordingPath));
}

TEST(SampleRecorder, FailsAloud)
{
    const QString recorder = QStringLiteral(SAMPLE_RECORDER);
    EXPECT_EQ(QProcess::execute(recorder, {}), 2);
    EXPECT_EQ(QProcess::execute(recorder, {u"/no/such/folder/r.xrk"_s}), 1);
}

} // namespace
