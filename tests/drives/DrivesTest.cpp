// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/Drives.h"

#include "drives/Events.h"
#include "recording/RecordingBytes.h"
#include "support/ByteSource.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <set>

namespace marvo {
namespace {

TEST(RecordingTime, isReadPastTheChannelAndCountsBeyondTheCalendar)
{
    const struct
    {
        const char* path;
        bool belongs;
        int kind;
        bool isRear;
        const char* time; ///< empty for none
    } rows[] = {
        {"/c/alwa_20240517_081500_F.avi", true, 0, false, "2024-05-17T08:15:00"},
        {"/c/alwa_20240517_081500_R.AVI", true, 0, true, "2024-05-17T08:15:00"},
        {"/c/motion_20240517_081500_R.avi", true, 1, true, "2024-05-17T08:15:00"},
        {"/c/event_20240517_081500_f.avi", true, 2, false, "2024-05-17T08:15:00"},
        {"/c/event_20240231_246060.avi", true, 2, false, "2024-03-03T01:01:00"},
        {"/c/event_20240517_081500_X.avi", false, 0, false, ""},
        {"/c/motion_20240517_081500_F2.avi", false, 0, false, ""},
        {"/c/ALWA_20240517_081500.avi", true, 0, false, ""},
        {"/c/alwa_20241317_081500_F.avi", true, 0, false, ""},
        {"/c/notes.avi", false, 0, false, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isDriveRecording(row.path), row.belongs) << row.path;
        const NameFacts facts = nameFacts(row.path);
        EXPECT_EQ(facts.time ? clockTimeText(secondsOf(*facts.time) * 1000) : "", row.time) << row.path;
        if (row.belongs) {
            EXPECT_EQ(facts.kind, row.kind) << row.path;
            EXPECT_EQ(facts.isRear, row.isRear) << row.path;
        }
    }
    std::tm beyond = {};
    beyond.tm_sec = 60;
    beyond.tm_min = 60;
    beyond.tm_hour = 24;
    beyond.tm_mday = 31;
    beyond.tm_mon = 1;
    beyond.tm_year = 124;
    EXPECT_EQ(secondsOf({2024, 2, 31, 24, 60, 60}), timegm(&beyond));
}

/// The rules once more, without regard to speed.
std::set<std::set<std::size_t>> plainPairs(const std::vector<DriveRecording>& recordings)
{
    std::set<std::size_t> taken;
    std::set<std::set<std::size_t>> pairs;
    for (;;) {
        std::optional<
            std::tuple<std::int64_t, std::int64_t, std::string, std::string, std::size_t, std::size_t>>
            best;
        for (std::size_t f = 0; f < recordings.size(); ++f) {
            for (std::size_t r = 0; r < recordings.size(); ++r) {
                const DriveRecording& front = recordings[f];
                const DriveRecording& rear = recordings[r];
                if (front.name.isRear || !rear.name.isRear || !front.name.time || !rear.name.time ||
                    front.name.kind != rear.name.kind || taken.contains(f) || taken.contains(r) ||
                    std::abs(front.startMs() - rear.startMs()) > 2000)
                    continue;
                const auto candidate =
                    std::tuple(std::abs(front.startMs() - rear.startMs()),
                               std::min(front.startMs(), rear.startMs()), front.path, rear.path, f, r);
                if (!best || candidate < *best)
                    best = candidate;
            }
        }
        if (!best)
            return pairs;
        taken.insert(std::get<4>(*best));
        taken.insert(std::get<5>(*best));
        pairs.insert({std::get<4>(*best), std::get<5>(*best)});
    }
}

TEST(Drives, pairsAndPausesFollowTheRulesInAnyCrowd)
{
    std::mt19937 random(5);
    const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    for (int round = 0; round < 200; ++round) {
        std::vector<DriveRecording> recordings;
        for (int i = pick(14); i >= 0; --i) {
            NameFacts name{.kind = pick(2) * 2, .isRear = pick(2) == 1};
            if (pick(8) > 0)
                name.time = MediaTime{2024, 5, 17, 8, pick(3) * 5, pick(7)};
            recordings.push_back({"/c/" + std::to_string(i), name, pick(4) * 1000});
        }
        std::set<std::set<std::size_t>> pairs;
        std::multiset<std::size_t> seen;
        std::int64_t lastStart = std::numeric_limits<std::int64_t>::min();
        std::int64_t lastEnd = lastStart;
        for (const Drive& drive : groupDrives(recordings)) {
            ASSERT_FALSE(drive.clips.empty());
            bool isFirst = true;
            std::int64_t latest = 0;
            for (const Clip& clip : drive.clips) {
                for (const auto& number : {clip.front, clip.rear}) {
                    if (!number)
                        continue;
                    seen.insert(*number);
                    EXPECT_EQ(recordings[*number].name.time.has_value(), drive.hasTime);
                }
                if (clip.front && clip.rear)
                    pairs.insert({*clip.front, *clip.rear});
                if (!drive.hasTime)
                    continue;
                EXPECT_GE(clip.startMs, lastStart);
                if (!isFirst) {
                    EXPECT_LE(clip.startMs, latest + 300'000);
                } else if (lastEnd != std::numeric_limits<std::int64_t>::min()) {
                    EXPECT_GT(clip.startMs, lastEnd + 300'000);
                }
                latest = isFirst ? clip.endMs : std::max(latest, clip.endMs);
                lastStart = clip.startMs;
                isFirst = false;
            }
            if (drive.hasTime) {
                EXPECT_EQ(drive.endMs, latest);
                lastEnd = drive.endMs;
            }
        }
        EXPECT_EQ(pairs, plainPairs(recordings));
        EXPECT_EQ(seen.size(), recordings.size());
        EXPECT_EQ(std::set<std::size_t>(seen.begin(), seen.end()).size(), recordings.size());
    }
}

TEST(Events, neighboursAreOneAndTheStrongestTells)
{
    MRVBlackBoxData data;
    const auto read = [&](double x, double z) {
        const std::int32_t raw[6] = {
            0, 0, static_cast<std::int32_t>(x * 256), 0, static_cast<std::int32_t>(z * 256), 0};
        data.ParseGSensor(std::as_bytes(std::span(raw)));
    };
    // One reading each 500 ms. At rest z is 1 g.
    for (const double x : {0.0, 0.75, 1.5, 0.0, 0.75, 0.0, 0.0, 0.0, 0.75, 0.0})
        read(x, 1);
    const auto events = impactsOf(data, 5000, {});
    ASSERT_EQ(events.size(), 3U);
    EXPECT_EQ(events[0].offsetMs, 1000);
    EXPECT_DOUBLE_EQ(*events[0].strength, 1.5);
    EXPECT_EQ(events[1].offsetMs, 2000) << "a second after the one before is another";
    EXPECT_EQ(events[2].offsetMs, 4000);
    EXPECT_TRUE(impactsOf(data, 5000, {.x = 1.5}).empty()) << "at the threshold is not above it";
}

TEST(Events, brakingIsToldAcrossSentencesOfOneSecond)
{
    MRVBlackBoxData data;
    const auto second = [&](int at, double knots) {
        char text[128];
        std::snprintf(text, sizeof text, "$GPRMC,1200%02d.000,A,3733.0,N,12658.0,E,%.1f,0,170524,,*00\r\n",
                      at, knots);
        data.ParseNMEA(text);
        data.ParseNMEA("$GPGSA,A,3,1,2,3,,,,,,,,,,1,1,1*00\r\n");
    };
    second(0, 40);
    second(1, 40);
    second(2, 30); // 0.52 g
    second(3, 18); // 0.63 g
    second(4, 18);
    second(8, 40); // too far apart to tell
    const auto events = speedChangesOf(data, 12'000);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, DriveEvent::Kind::Braking);
    EXPECT_NEAR(*events[0].strength, 12 * 1.852 / 3.6 / 9.80665, 1e-6);
    EXPECT_EQ(events[0].offsetMs, 6000) << "sentence 6 of 12";
}

} // namespace
} // namespace marvo
