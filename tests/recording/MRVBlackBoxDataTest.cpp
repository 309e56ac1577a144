// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVBlackBoxData.h"
#include "recording/PlainWalk.h"
#include "recording/RecordingBytes.h"
#include "support/ByteSource.h"
#include "support/LogLines.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>
#include <thread>

namespace marvo {
namespace {

using test::avi;
using test::Bytes;

const std::string rmc = "$GPRMC,123519.000,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A";
const std::string gga = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47";

bool walk(MRVBlackBoxData& recording, const std::string& file)
{
    MemorySource source(test::bytesOf(file));
    return recording.ExtractStreamInformation(source);
}

void expectAsPlain(const std::string& file)
{
    const test::PlainWalk plain(file);
    MRVBlackBoxData recording;
    ASSERT_EQ(walk(recording, file), plain.result);
    ASSERT_EQ(recording.m_GSensors().size(), plain.readings.size());
    ASSERT_EQ(recording.m_vGSensorData().size(), plain.readings.size());
    for (std::size_t i = 0; i < plain.readings.size(); ++i)
        ASSERT_EQ(recording.m_vGSensorData()[i].data().nTimestamp, plain.readings[i].time) << i;
    ASSERT_EQ(recording.m_vGpsData().size(), plain.gpsSamples.size());
    for (std::size_t i = 0; i < plain.gpsSamples.size(); ++i) {
        const _AVI_GPS_DATA_T sample = recording.m_vGpsData()[i].data();
        ASSERT_EQ(std::pair(sample.nTimestamp, sample.dwExtLength), plain.gpsSamples[i]) << i;
    }
    ASSERT_EQ(recording.m_NMEAs().size(), plain.sentences);
}

struct WalkCase
{
    const char* name;
    std::string file;
    bool result;
    std::size_t gpsSamples, readings, sentences;
};

Bytes readings(std::initializer_list<std::int64_t> times)
{
    Bytes bytes;
    for (const std::int64_t time : times)
        bytes.reading(time);
    return bytes;
}

// Worked out by hand, which also tells that the plain walk is right.
const WalkCase walkCases[] = {
    {"NotRiff", "RIFX1234AVI JUNK", false, 0, 0, 0},
    {"NotAvi", "RIFF1234WAVEJUNK", false, 0, 0, 0},
    {"NoDataArea", std::string("RIFF1234AVI LIST\x02\0\0\0ab", 22), false, 0, 0, 0},
    {"ChunkBeyondTheEnd", "RIFF1234AVI LIST\xFF\xFF\xFF\xFF", false, 0, 0, 0},
    {"BudgetOfZero", avi(readings({0}), 0), true, 0, 0, 0},
    {"BudgetEndsBeforeTheSecondReading", avi(readings({0, 100}), 24), true, 0, 1, 0},
    {"BudgetMissedReadsToTheEnd", avi(readings({0, 100}), 25), true, 0, 2, 0},
    {"GpsFirstPairsNothing", avi(Bytes().longGps(500, rmc + "\r\n" + gga + "\r").reading(600)), true, 0, 1,
     2},
    {"TwoFixes", avi(readings({0, 100, 200}).longGps(900, "").reading(300).reading(400).longGps(1900, "")),
     true, 5, 5, 0},
    {"PairingStopsAtTheFirstLaterReading",
     avi(readings({999, 1000, 1100}).longGps(1099, "").longGps(2000, "")), true, 3, 3, 0},
    // -50 / 100 is 0, not -1: the first reading is not earlier than the fix.
    {"KeysTruncateTowardZero", avi(readings({-50, 0}).longGps(50, "")), true, 1, 2, 0},
    {"LongTrailerOfNine", avi(readings({0}).gps(0, "$G\r", '9').text("1230GDA").reading(1)), true, 1, 2, 1},
    {"ShortTrailerEatsTheZeroThatEndsTheText", avi(readings({0}).gps(0, {"$G\0", 3}, '$').reading(1)), true,
     1, 2, 1},
    {"ShortTrailerWithoutText", avi(readings({0}).gps(0, "", '\0').reading(1)), true, 1, 2, 0},
    // The last byte of the text is the first of the next tag: "x0GD" is passed over and so is the reading.
    {"ShortTrailerLeavesTheTextsLastByte", avi(readings({0}).gps(0, "$G\rx", '$').reading(1)), true, 1, 1, 1},
    {"ShortTrailerBudget", avi(readings({0}).gps(0, {"$G\0", 3}, '$').reading(1), 24 + 41 + 3 + 1), true, 1,
     1, 1},
    {"LongTrailerBudget", avi(readings({0}).longGps(0, "$G\r").reading(1), 24 + 41 + 3 + 1), true, 1, 1, 1},
    {"TextTooLong", avi(readings({0}).gps(0, std::string(600, '$'), '1', 513)), false, 0, 1, 0},
    {"TextOfNegativeLength", avi(readings({0}).gps(0, "$G\r", '1', -1)), false, 0, 1, 0},
    {"LongestText", avi(readings({0}).longGps(0, std::string(509, ' ') + "$G\r")), true, 1, 1, 1},
    {"TextWithoutEnd", avi(Bytes().longGps(0, gga)), true, 0, 0, 0},
    {"EndInsideTheText", avi(readings({0}).gps(0, "$G\r$G", '1', 400)), true, 1, 1, 1},
    {"WordsBetweenRecords", avi(readings({0}).text("junkJUNKRIFF").reading(1)), true, 0, 2, 0},
    {"TagOutOfStep", avi(readings({0}).text("ab").reading(1)), true, 0, 1, 0},
};

TEST(Walk, GivesTheListsWorkedOutByHand)
{
    for (const WalkCase& c : walkCases) {
        SCOPED_TRACE(c.name);
        MRVBlackBoxData recording;
        EXPECT_EQ(walk(recording, c.file), c.result);
        EXPECT_EQ(recording.m_vGpsData().size(), c.gpsSamples);
        EXPECT_EQ(recording.m_GSensors().size(), c.readings);
        EXPECT_EQ(recording.m_NMEAs().size(), c.sentences);
        expectAsPlain(c.file);
    }
}

TEST(WalkOfAnyBytes, IsThatOfPlainArithmetic)
{
    std::mt19937 random(7);
    const auto upTo = [&random](unsigned n) { return static_cast<unsigned>(random() % (n + 1)); };
    const std::string pieces[] = {gga + "\r\n", rmc + "\n", "$GN*1\r",           "$G",
                                  "$",          "noise",    std::string(1, '\0')};
    for (int round = 0; round < 400; ++round) {
        Bytes area;
        for (unsigned records = upTo(12); records > 0; --records) {
            std::string text;
            for (unsigned n = upTo(4); n > 0; --n)
                text += pieces[upTo(6)];
            const std::int64_t time = static_cast<std::int64_t>(upTo(4000)) - 2000;
            switch (upTo(5)) {
            case 0:
            case 1:
                area.reading(time);
                break;
            case 2:
                area.longGps(time, text);
                break;
            case 3:
                area.gps(time, text, "\0$19"[upTo(3)]);
                break;
            case 4:
                area.text(std::string(upTo(300), static_cast<char>(upTo(1) * '0')));
                break;
            default:
                area.gps(time, text, '1', static_cast<std::int64_t>(upTo(600)) - 40);
            }
        }
        expectAsPlain(avi(area, upTo(3) == 0 ? upTo(400) : 0xFFFFFFFF));
        if (HasFatalFailure())
            FAIL() << "round " << round;
    }
}

TEST(WalkOfACutFile, KeepsWhatStandsBeforeTheCut)
{
    const std::string file = avi(readings({0, 100, 200})
                                     .longGps(150, rmc + "\r\n" + gga + "\r\n")
                                     .text("....")
                                     .reading(300)
                                     .gps(400, {"$GPGGA,,4807.0,S*1\0", 19}, '$')
                                     .reading(500));
    for (std::size_t size = 0; size <= file.size(); ++size) {
        expectAsPlain(file.substr(0, size));
        if (HasFatalFailure())
            FAIL() << "cut at " << size;
    }
}

TEST(WalkAcrossBlocks, FindsRecordsWhereverTheyStand)
{
    // A reading every 10007 bytes, so that records and passed-over words lie across the ends of all reads.
    Bytes area;
    std::size_t count = 0;
    for (; area.data.size() < 1'500'000; ++count)
        area.reading(static_cast<std::int64_t>(count)).text(std::string(10004, 'x')).longGps(0, "$G\r");
    MRVBlackBoxData recording;
    EXPECT_TRUE(walk(recording, avi(area)));
    EXPECT_EQ(recording.m_GSensors().size(), count);
    EXPECT_EQ(recording.m_vGpsData().size(), count);
}

TEST(WalkOfALargeFile, NeedsOffsetsBeyond32Bits)
{
    /// Gigabytes of zeros between a header and a data area, without their memory.
    struct SparseSource : ByteSource
    {
        const std::uint64_t chunk = 8 + 0xFFFFFFF0ULL;
        const std::pair<std::uint64_t, std::string> pieces[3] = {
            {0, Bytes().text("RIFF....AVI LIST").number(0xFFFFFFF0U).data},
            {12 + chunk, Bytes().text("LIST").number(0xFFFFFFF0U).data},
            {12 + 2 * chunk, Bytes().text("JUNK").number(24U).reading(42).data}};
        std::uint64_t bytesRead = 0;

        std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
        {
            std::ranges::fill(into, std::byte());
            for (const auto& [at, bytes] : pieces) {
                for (std::uint64_t i = 0; i < bytes.size(); ++i) {
                    if (at + i >= offset && at + i - offset < into.size())
                        into[at + i - offset] = static_cast<std::byte>(bytes[i]);
                }
            }
            const std::uint64_t end = pieces[2].first + pieces[2].second.size();
            const std::size_t done = std::min<std::uint64_t>(into.size(), end - std::min(end, offset));
            bytesRead += done;
            return done;
        }
    } source;
    MRVBlackBoxData recording;
    EXPECT_TRUE(recording.ExtractStreamInformation(source));
    ASSERT_EQ(recording.m_vGSensorData().size(), 1U);
    EXPECT_EQ(recording.m_vGSensorData()[0].data().nTimestamp, 42);
    EXPECT_LT(source.bytesRead, 100'000U) << "what is skipped is not read";
}

TEST(WalkWithoutEnd, EndsWhenStoppedAndWhenThereIsTooMuch)
{
    struct Endless : ByteSource
    {
        Endless(std::string piece, std::uint64_t end) : repeated(std::move(piece)), stopAt(end) {}
        std::string head = avi(readings({7}));
        std::string repeated;
        std::stop_source stop;
        std::uint64_t stopAt;
        std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
        {
            for (std::byte& byte : into) {
                const std::uint64_t at = offset++;
                byte =
                    std::byte(at < head.size() ? head[at] : repeated[(at - head.size()) % repeated.size()]);
            }
            if (offset > stopAt)
                stop.request_stop();
            return into.size();
        }
    };
    Endless nothing(std::string(1, '\0'), 1'000'000);
    MRVBlackBoxData recording;
    EXPECT_FALSE(recording.ExtractStreamInformation(nothing, nothing.stop.get_token()));
    EXPECT_EQ(recording.m_GSensors().size(), 1U);

    Endless tooMuch(Bytes().reading(8).data, UINT64_MAX);
    EXPECT_FALSE(recording.ExtractStreamInformation(tooMuch));
    EXPECT_EQ(recording.m_vGSensorData().size(), MRVBlackBoxData::mostEntries + 1);
    recording = {};
    rlimit usual{};
    ::getrlimit(RLIMIT_AS, &usual);
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    rlimit little = usual;
    little.rlim_cur = pages * 4096 + (40U << 20);
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &little), 0);
    EXPECT_FALSE(recording.ExtractStreamInformation(tooMuch));
    ::setrlimit(RLIMIT_AS, &usual);
    EXPECT_GT(recording.m_GSensors().size(), 10'000U);
    EXPECT_LT(recording.m_GSensors().size(), 400'000U);
    EXPECT_EQ(recording.m_vGSensorData().size(), recording.m_GSensors().size());
}

TEST(WalkTwice, StartsAfresh)
{
    MRVBlackBoxData recording;
    EXPECT_TRUE(walk(recording, avi(readings({0}).longGps(0, gga + "\r\n"))));
    EXPECT_EQ(recording.m_NMEAs().back()->SatelliteUsedCount, 8U);
    EXPECT_TRUE(walk(recording, avi(readings({0}).longGps(0, "$GP*1\r"))));
    EXPECT_EQ(*recording.m_NMEAs().back(), MRVGpsData());
    EXPECT_EQ(recording.m_vGpsData().size(), 1U);
    const test::LogLines log;
    EXPECT_FALSE(recording.ExtractStreamInformation("/nowhere/to.avi"));
    EXPECT_EQ(log.lines(), std::vector<std::string>{std::string(29, '#') + "   START"});
    EXPECT_TRUE(recording.m_NMEAs().empty());
    EXPECT_TRUE(recording.m_GSensors().empty());
}

TEST(Snapshots, ShareOneObjectWhileNothingChanges)
{
    std::string text;
    while (text.size() + 3 <= 512)
        text += "$G\r";
    MRVBlackBoxData recording;
    EXPECT_TRUE(walk(recording, avi(Bytes().longGps(0, text).longGps(0, gga + "\r").longGps(0, text))));
    ASSERT_EQ(recording.m_NMEAs().size(), 170U + 1 + 170);
    EXPECT_EQ(recording.m_NMEAs()[0], recording.m_NMEAs()[169]);
    EXPECT_NE(recording.m_NMEAs()[169], recording.m_NMEAs()[170]);
    EXPECT_EQ(recording.m_NMEAs()[170], recording.m_NMEAs()[340]);
}

TEST(Readings, AreInG)
{
    MRVBlackBoxData recording;
    EXPECT_TRUE(walk(recording, avi(Bytes().reading(0, -256, 128, 0).reading(1, INT32_MIN, INT32_MAX, 1))));
    EXPECT_EQ(recording.m_GSensors()[0], (MRVGSensor{-1.0F, 0.5F, 0.0F}));
    EXPECT_EQ(recording.m_GSensors()[1], (MRVGSensor{-8388608.0F, 8388608.0F, 0.00390625F}));
}

TEST(FrameCount, IsOneLessButAtLeastOne)
{
    MRVBlackBoxData recording;
    for (const auto& [count, frames] : {std::pair(0, 1U), {1, 1U}, {2, 1U}, {5, 4U}}) {
        recording.clear();
        for (int i = 0; i < count; ++i)
            recording.ParseGSensor(test::bytesOf(Bytes().reading(i).data).subspan(4));
        EXPECT_EQ(recording.frameCount(), frames) << count;
    }
}

TEST(Blocks, OfTheWrongSizeAreRefused)
{
    MRVBlackBoxData recording;
    const std::string block = "\x01\x02\x03\x04\x05\x06\x07\x08\x09";
    EXPECT_FALSE(recording.ParseFrameData(test::bytesOf(block).first(7)));
    EXPECT_FALSE(recording.ParseFrameData(test::bytesOf(block)));
    EXPECT_TRUE(recording.ParseFrameData(test::bytesOf(block).first(8)));
    EXPECT_EQ(recording.m_udatSpeedDisplay(), 5);
    EXPECT_EQ(recording.m_udatRecPark(), 7);
    EXPECT_EQ(recording.m_udatIncludeEvent(), 8);
    EXPECT_FALSE(recording.ParseGSensor(test::bytesOf(std::string(23, 'x'))));
    EXPECT_FALSE(recording.ParseTime(test::bytesOf(std::string(15, 'x'))));
    EXPECT_FALSE(recording.ParseNMEA(""));
    EXPECT_TRUE(recording.ParseNMEA("x"));
    EXPECT_TRUE(recording.ParseTimeEvent({}));
    recording.clear();
    EXPECT_EQ(recording.m_udatSpeedDisplay(), 0);
}

TEST(TimeBlocks, TellTheChangesOfTheEventType)
{
    MRVBlackBoxData recording;
    const std::vector<std::int32_t> times = {1000000000, 1000000001, 1000000002, -1, 5};
    const char types[] = {0, 1, 1, 2, 0};
    for (std::size_t i = 0; i < times.size(); ++i) {
        const Bytes bytes = Bytes().number(times[i]).text({"........\0\0\0", 11}).text({&types[i], 1});
        EXPECT_TRUE(recording.ParseTime(test::bytesOf(bytes.data)));
    }
    EXPECT_EQ(recording.m_Times(), times);
    const auto& events = recording.m_TimeEvents();
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(std::pair(events[0].e, events[0].f), std::pair(0U, 1U));
    EXPECT_EQ(events[0].t, (_SYSTEMTIME{2001, 9, 0, 9, 1, 46, 41, 0}));
    EXPECT_EQ(std::pair(events[1].e, events[1].f), std::pair(1U, 3U));
    EXPECT_EQ(events[1].t, (_SYSTEMTIME{1969, 12, 0, 31, 23, 59, 59, 0}));
    EXPECT_EQ(recording.m_LastTimeEventType(), 0U);
}

TEST(AtomicRecords, AreNeverSeenByHalves)
{
    MRVAviGpsData shared;
    EXPECT_EQ(shared.data().KM, 0);
    std::jthread writer([&shared](const std::stop_token& stop) {
        for (int i = 0; !stop.stop_requested(); ++i) {
            shared.setData({.nTimestamp = i, .fLatitude = 1.0 * i, .KM = static_cast<unsigned char>(i)});
        }
    });
    for (int i = 0; i < 20000; ++i) {
        const _AVI_GPS_DATA_T seen = shared.data();
        ASSERT_EQ(static_cast<double>(seen.nTimestamp), seen.fLatitude);
        ASSERT_EQ(seen.nTimestamp & 0xFF, seen.KM);
    }
}

} // namespace
} // namespace marvo
