// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Recording.h"
#include "demo/CardReader.h"
#include "demo/DataArea.h"
#include "recording/PlainWalk.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace marvo::demo {
namespace {

using namespace marvo::test;

std::vector<DataRecord> someSeconds(int seconds, const std::string& markers, std::size_t textLength)
{
    std::vector<DataRecord> records;
    for (int s = 0; s < seconds; ++s) {
        for (int i = 0; i < 10; ++i)
            records.push_back(_AVI_GSENSOR_DATA_T{s * 1000 + i * 100, i, -s, 256, 30});
        _AVI_GPS_DATA_T header;
        header.nTimestamp = s * 1000 + 900;
        header.fSpeed = s;
        header.KM = static_cast<unsigned char>(markers[static_cast<std::size_t>(s) % markers.size()]);
        // Every length in turn, so that each alignment occurs with each marker.
        std::string text = "$GPRMC,000000.000,V*00\r\n";
        text.resize(textLength + static_cast<std::size_t>(s) % 5, '.');
        records.push_back(GpsRecord{header, text});
    }
    return records;
}

TEST(DataArea, keepsReadersInStepAndTheFileAnAviFile)
{
    struct
    {
        int seconds;
        const char* markers;
        std::size_t textLength;
    } const areas[] = {{13, "9", 430}, {9, "91K", 80}, {7, "K", 300},
                       {1, "1", 1},    {1, "K", 1},    {6, "9K", nmeaLimit - 4}};
    const TemporaryFolder folder;
    for (unsigned i = 0; i < 4 * std::size(areas); ++i) {
        SCOPED_TRACE(i);
        const auto& area = areas[i / 4];
        const DataAreaEnd end = i % 2 == 0 ? DataAreaEnd::EndOfFile : DataAreaEnd::BudgetZero;
        RecordingOptions options;
        options.frameCount = 3;
        options.dataPlace = i % 4 < 2 ? DataAreaPlace::BeforeMovie : DataAreaPlace::AfterIndex;
        const auto records = someSeconds(area.seconds, area.markers, area.textLength);
        options.dataChunks = dataAreaChunks(records, end);
        ASSERT_EQ(writeRecording(folder.path("a.avi"), options), std::nullopt);
        const std::string film = contents(folder.path("a.avi"));
        ASSERT_NO_THROW(chunksOf(film, 12, film.size()));

        const PlainWalk walk(film);
        EXPECT_TRUE(walk.result);
        EXPECT_EQ(walk.budgetUsedUp, end == DataAreaEnd::BudgetZero);
        ASSERT_EQ(walk.readings.size(), area.seconds * 10);
        ASSERT_EQ(walk.fixes.size(), area.seconds);
        for (int s = 0; s < area.seconds; ++s) {
            EXPECT_EQ(walk.fixes[s].readingsBefore, s * 10 + 10);
            EXPECT_EQ(walk.readings[s * 10 + 9].y, -s);
            EXPECT_EQ(walk.fixes[s].speed, s);
            EXPECT_EQ(walk.fixes[s].text.find_last_not_of(std::string("\n\0", 2)),
                      std::get<GpsRecord>(records[s * 11 + 10]).nmea.size() - 1);
        }
    }
}

TEST(Recording, aFailureOrAStopLeavesTheOldFile)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("a.avi");
    RecordingOptions options;
    options.frameCount = 5;
    ASSERT_EQ(writeRecording(path, options), std::nullopt);
    const std::string before = contents(path);

    std::stop_source stop;
    options.progress = [&](int done) {
        if (done == 5)
            stop.request_stop();
    };
    EXPECT_EQ(writeRecording(path, options, stop.get_token()), "stopped");
    EXPECT_EQ(contents(path), before);

    std::filesystem::create_directory(folder.path("b.avi"));
    const auto onFolder = writeRecording(folder.path("b.avi"), {});
    EXPECT_NE(onFolder.value_or("").find("b.avi': Is a directory"), std::string::npos);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2) << "leftovers";
}

TEST(Recording, decodesWithoutAComplaint)
{
    if (std::system("command -v ffmpeg >/dev/null") != 0)
        GTEST_SKIP() << "ffmpeg is not installed";
    const TemporaryFolder folder;
    for (const DataAreaPlace place : {DataAreaPlace::BeforeMovie, DataAreaPlace::AfterIndex}) {
        RecordingOptions options;
        options.width = 161;
        options.dataPlace = place;
        options.dataChunks = dataAreaChunks(someSeconds(2, "9K", 400), DataAreaEnd::BudgetZero);
        ASSERT_EQ(writeRecording(folder.path("a.avi"), options), std::nullopt);
        const std::string log = folder.path("log");
        const std::string command = "ffmpeg -nostdin -v error -xerror -i '" + folder.path("a.avi") +
                                    "' -f null - >'" + log + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0);
        EXPECT_EQ(contents(log), "");
    }
}

} // namespace
} // namespace marvo::demo
