// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "evidence/Track.h"
#include "cli/RunCli.h"
#include "evidence/TrackText.h"
#include "recording/RecordingBytes.h"
#include "support/ByteSource.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace marvo {

namespace {

using test::Bytes;
using testing::HasSubstr;
using testing::Not;

std::string rmc(std::string_view time, char status = 'A')
{
    return "$GPRMC," + std::string(time) + "," + status +
           ",3733.1234,S,12658.5,W,20.0,359.999,231126,,*00\r\n";
}

const std::string gga = "$GPGGA,083000.000,3733.1234,S,12658.5,W,1,07,1.2,35.5,M,,,,*00\r\n";
const std::string noFixGga = "$GPGGA,083000.000,3733.1234,S,12658.5,W,0,00,,,M,,,,*00\r\n";

/// A record each second, with the readings before it.
std::string recording(const std::vector<std::string>& texts)
{
    Bytes bytes;
    std::int64_t timeMs = 1'000;
    for (const std::string& text : texts) {
        bytes.reading(timeMs - 500, 128).reading(timeMs).longGps(timeMs, text);
        timeMs += 1'000;
    }
    return test::avi(bytes);
}

RecordingTrack trackOf(const std::vector<std::string>& texts)
{
    const std::string bytes = recording(texts);
    MemorySource source(test::bytesOf(bytes));
    return readTrack(source, "a,\"b\"<&.avi");
}

TEST(Track, knowsOnlyWhatTheSentencesOfEachRecordTell)
{
    const RecordingTrack track =
        trackOf({gga + rmc("083000.000"), gga, "", gga + rmc("083003.000", 'V'), noFixGga + rmc("083004.000"),
                 gga + rmc("083005"), rmc("083006.500")});
    ASSERT_EQ(track.fixes.size(), 7U);
    const bool hasPlace[] = {true, true, true, false, false, true, true};
    for (std::size_t i = 0; i < track.fixes.size(); ++i)
        EXPECT_EQ(track.fixes[i].place.has_value(), hasPlace[i]) << i;
    EXPECT_NEAR(track.fixes[0].place->latitude, -37.552057, 1e-6);
    EXPECT_NEAR(track.fixes[0].place->longitude, -126.975, 1e-6);
    EXPECT_EQ(utcText(*track.fixes[0].utcMs), "2026-11-23T08:30:00Z");
    EXPECT_EQ(utcText(*track.fixes[6].utcMs), "2026-11-23T08:30:06.500Z");
    for (const std::size_t i : {1, 2, 3, 5})
        EXPECT_FALSE(track.fixes[i].utcMs) << i; // never an earlier record's
    EXPECT_NEAR(*track.fixes[0].speedKmh, 37.04, 1e-9);
    EXPECT_FALSE(track.fixes[1].speedKmh);
    EXPECT_EQ(track.fixes[0].satellites, 7);
    ASSERT_EQ(track.readings.size(), 14U);
    EXPECT_EQ(track.readings[1].fix, 0U);
    EXPECT_EQ(track.readings[2].fix, 1U);
    // Two records without a place part them.
    const std::vector<RecordingTrack> tracks{track};
    const std::vector<TrackSegment> segments = segmentsOf(tracks);
    ASSERT_EQ(segments.size(), 2U);
    EXPECT_EQ(segments[0].size(), 3U);
    EXPECT_EQ(segments[1].size(), 2U);
}

TEST(Track, joinsRecordingsByGpsTimeOnly)
{
    const RecordingTrack first = trackOf({gga + rmc("083000.000")});
    const RecordingTrack next = trackOf({gga + rmc("083004.000")});
    const RecordingTrack later = trackOf({gga + rmc("083010.000")});
    const RecordingTrack timeless = trackOf({gga});
    EXPECT_EQ(segmentsOf(std::vector{first, next}).size(), 1U);
    EXPECT_EQ(segmentsOf(std::vector{next, first}).size(), 2U);
    EXPECT_EQ(segmentsOf(std::vector{next, later}).size(), 2U);
    EXPECT_EQ(segmentsOf(std::vector{timeless, timeless}).size(), 2U);
}

/// What other programs make of the files.
TEST(TrackCommand, writesWhatOthersRead)
{
    const test::TemporaryFolder folder;
    const std::vector<std::string> drive{gga + rmc("083000.000"), gga + rmc("083001.000"), noFixGga,
                                         gga + rmc("083003.000")};
    folder.write("card/alwa_20261123_083000_F.avi", recording(drive));
    folder.write("card/alwa_20261123_083000_R.avi", recording(drive)); // the same places once more
    folder.write("card/alwa_20261123_084000_F.avi", recording({gga}));
    folder.write("empty/alwa_20261123_083000_F.avi", recording({noFixGga}));
    for (const char* format : {"gpx", "kml", "geojson", "csv"}) {
        for (const char* source : {"card", "empty"}) {
            const std::string out = folder.path(std::string(source) + "." + format);
            ASSERT_EQ(test::runCli({"track", folder.path(source), "--format", format, out}).exitCode, 0);
            const bool isXml = format == std::string_view("gpx") || format == std::string_view("kml");
            if (isXml) {
                EXPECT_EQ(std::system(("xmllint --noout " + out).c_str()), 0);
            }
            if (format != std::string_view("csv") && source == std::string_view("card")) {
                EXPECT_EQ(std::system(("ogrinfo -al " + out +
                                       " | tr -d '\\n' | grep -q 'Extent: (-126.975000, "
                                       "-37.552057) - (-126.975000, -37.552057)'")
                                          .c_str()),
                          0)
                    << format;
            }
        }
    }
    const std::string gpx = folder.read("card.gpx");
    EXPECT_THAT(gpx, HasSubstr("<time>2026-11-23T08:30:01Z</time>"));
    EXPECT_THAT(gpx, HasSubstr("<gpxtpx:course>0.00</gpxtpx:course>")); // not 360.00
    EXPECT_THAT(folder.read("card.geojson"), HasSubstr("\"Point\""));
    EXPECT_THAT(folder.read("card.kml"), HasSubstr("<Point>")); // the one without a time
    EXPECT_THAT(folder.read("empty.gpx"), Not(HasSubstr("trkpt")));
    const std::string csv = folder.read("card.csv");
    EXPECT_EQ(std::ranges::count(csv, '\n'), 1 + 2 * (4 + 1));
    EXPECT_THAT(csv,
                HasSubstr("alwa_20261123_083000_F.avi,0,500,2026-11-23T08:30:00Z,-37.5520567,-126.9750000,"
                          "37.04,0.00,59.90,49,1.20,7,0.50000000,0.00000000,1.00000000\r\n"));
    EXPECT_THAT(csv, HasSubstr("alwa_20261123_083000_F.avi,4,2500,,,,,,59.90,49,,,")); // no fix, no place
}

TEST(TrackCommand, neverWritesOverARecording)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("alwa_20261123_083000_F.avi", recording({gga}));
    EXPECT_EQ(test::runCli({"track", file, "--format", "gpx", file}).exitCode, 1);
    EXPECT_EQ(test::runCli({"track", folder.path(), "--format", "gpx", file}).exitCode, 1);
    EXPECT_EQ(folder.read("alwa_20261123_083000_F.avi"), recording({gga}));
    EXPECT_EQ(test::runCli({"track", folder.path("none"), "--format", "gpx", "-"}).exitCode, 1);
    EXPECT_EQ(test::runCli({"track", file, "--format", "xml", "-"}).exitCode, 2);
}

TEST(TrackText, foreignNamesDoNotBreakTheFile)
{
    const std::vector<RecordingTrack> tracks{trackOf({gga})};
    EXPECT_THAT(trackText(tracks, TrackFormat::Gpx, "a<b&\x01\xFF"),
                HasSubstr("<name>a&lt;b&amp;\uFFFD\uFFFD</name>"));
    EXPECT_THAT(trackText(tracks, TrackFormat::Csv, ""), HasSubstr("\n\"a,\"\"b\"\"<&.avi\",0,"));
}

} // namespace

} // namespace marvo
