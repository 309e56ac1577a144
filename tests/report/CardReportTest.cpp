// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "report/CardReport.h"

#include "cli/RunCli.h"
#include "demo/DataArea.h"
#include "demo/Recording.h"
#include "settings/FileData.h"
#include "settings/SettingFile.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>

using namespace marvo;
using namespace marvo::test;
using testing::ElementsAre;

namespace {

/// Two seconds; the fix is of a moment by GPS, and the first reading of the recording's begin.
void writeFilm(const std::string& path, const std::string& gpsTime = {})
{
    demo::RecordingOptions options;
    std::vector<demo::DataRecord> records;
    for (int i = 0; i < 20; ++i)
        records.push_back(_AVI_GSENSOR_DATA_T{5'000 + i * 100, 0, 0, 256, 30});
    _AVI_GPS_DATA_T header;
    header.nTimestamp = 6'000;
    header.fLatitude = 3733.12;
    header.fLongitude = 12658.76;
    header.KM = 'K';
    if (!gpsTime.empty())
        records.push_back(demo::GpsRecord{
            header, "$GPRMC," + gpsTime + ",A,3733.1200,N,12658.7600,E,10.0,90.0,170524,,*00\r\n"});
    options.dataChunks = demo::dataAreaChunks(records);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    ASSERT_EQ(demo::writeRecording(path, options), std::nullopt);
}

} // namespace

TEST(CardReportTest, TellsHowACardFares)
{
    const TemporaryFolder card;
    // The camera is 3 s ahead of its zone, UTC+9, except in one recording that does not decide.
    writeFilm(card.path("AlwaysMovie/alwa_20240517_142003_F.avi"), "052001.000");
    writeFilm(card.path("AlwaysMovie/alwa_20240517_142015_F.avi"), "052013.000");
    writeFilm(card.path("AlwaysMovie/alwa_20240517_142018_F.avi"), "070000.000");
    writeFilm(card.path("EventMovie/event_20240517_142100_F.avi")); // in drives, not in the list
    writeFilm(card.path("AlwaysMovie/holiday.avi"));
    card.write("AlwaysMovie/alwa_20240517_150000_F.avi"); // the power was lost at once
    _FILEDATA settings;
    fillDefaultFileData(settings);
    settings.micLevel = 5;
    ASSERT_FALSE(saveSettingFile(settings, card.path("config.bin")));

    const CardReport report = reportCard(card.path());
    ASSERT_EQ(report.kinds.size(), 3);
    EXPECT_EQ(report.kinds[0].count, 4);
    EXPECT_EQ(report.kinds[0].lengthMs, 6000);
    EXPECT_TRUE(report.kinds[0].secondsLeft.value_or(0) > 0);
    EXPECT_EQ(report.kinds[1].count, 0);
    EXPECT_EQ(report.kinds[1].secondsLeft, std::nullopt) << "nobody knows what it would record";
    EXPECT_EQ(report.kinds[2].count, 1);
    EXPECT_THAT(report.leftOut, ElementsAre(card.path("AlwaysMovie/holiday.avi"),
                                            card.path("EventMovie/event_20240517_142100_F.avi")));
    ASSERT_EQ(report.damaged.size(), 1);
    EXPECT_EQ(report.damaged[0].why, DamagedRecording::Why::Unplayable);
    EXPECT_EQ(report.drives, 2);
    ASSERT_EQ(report.gaps.size(), 2) << "the second of a name is no gap";
    EXPECT_EQ(report.gaps[0].lengthMs, 10'000);
    EXPECT_EQ(report.gaps[1].lengthMs, 40'000);
    ASSERT_TRUE(report.clock);
    EXPECT_EQ(report.clock->zoneMinutes, 9 * 60);
    EXPECT_EQ(report.clock->errorMs, 3000);
    ASSERT_TRUE(report.hasSettings);
    ASSERT_EQ(report.changedSettings.size(), 1);
    EXPECT_EQ(report.changedSettings[0].name, "micLevel");
    EXPECT_EQ(report.changedSettings[0].value, "5");
    EXPECT_EQ(report.changedSettings[0].standard, "3");

    EXPECT_TRUE(reportCard(card.path("none")).error);
    EXPECT_THAT(runCli({"report", card.path()}).output, testing::HasSubstr("UTC+09:00, 3.0 s ahead"));
    EXPECT_EQ(runCli({"report", card.path("none")}).exitCode, 1);
    EXPECT_EQ(runCli({"report"}).exitCode, 2);
}
