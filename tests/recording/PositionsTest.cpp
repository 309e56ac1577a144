// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/Positions.h"
#include "recording/RecordingBytes.h"
#include "recording/RecordingSummary.h"
#include "support/ByteSource.h"

#include <cmath>
#include <gtest/gtest.h>

namespace marvo {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Degrees, AreThoseOfDegreesAndMinutes)
{
    EXPECT_NEAR(nmeaToDegrees(3733.1234), 37.552057, 5e-7);
    EXPECT_NEAR(nmeaToDegrees(-3733.1234), -37.552057, 5e-7);
    EXPECT_EQ(nmeaToDegrees(0), 0);
    EXPECT_NEAR(nmeaToDegrees(30), 0.5, 1e-12);
    EXPECT_EQ(nmeaToDegrees(infinity), infinity);
    EXPECT_TRUE(std::isnan(nmeaToDegrees(nan)));
    EXPECT_TRUE(std::isfinite(nmeaToDegrees(1e300)));
}

TEST(IndexOfPosition, TruncatesAndTakesTheLastBeyond)
{
    struct
    {
        double position;
        std::size_t n, index;
    } const cases[] = {{0.5, 100, 50},   {1.0, 100, 99},   {0, 100, 0},      {0.999, 100, 99},
                       {0.0099, 100, 0}, {-0.5, 100, 99},  {-0.001, 100, 0}, {-0.01, 100, 99},
                       {nan, 100, 99},   {1e300, 100, 99}, {infinity, 3, 2}, {-infinity, 3, 2},
                       {0.5, 1, 0},      {0.5, 0, 0},      {-1e-9, 1, 0}};
    for (const auto& c : cases)
        EXPECT_EQ(indexOfPosition(c.position, c.n), c.index) << c.position << " of " << c.n;
}

TEST(HemispheresOfAnIndex, FollowEachSnapshot)
{
    const auto snapshot = [](char NS, char EW) {
        MRVGpsData state;
        state.NS = NS;
        state.EW = EW;
        state.Latitude = 3733; // a place has been told
        return std::make_shared<const MRVGpsData>(state);
    };
    const std::vector snapshots = {snapshot('S', 'W'), snapshot('N', 'E'), snapshot('?', 'E')};
    EXPECT_EQ(hemispheresAt(snapshots, 0), (Hemispheres{.south = true, .west = true}));
    EXPECT_EQ(hemispheresAt(snapshots, 1), (Hemispheres{}));
    EXPECT_EQ(hemispheresAt(snapshots, 2), (Hemispheres{.south = true, .west = false}));
    EXPECT_EQ(hemispheresAt(snapshots, 99), (Hemispheres{.south = true, .west = false}));
    EXPECT_EQ(hemispheresAt({}, 0), (Hemispheres{}));

    const DecimalPosition place =
        decimalPosition({.fLatitude = -3733.1234, .fLongitude = 12630}, hemispheresAt(snapshots, 0));
    EXPECT_NEAR(place.latitude, -37.552057, 5e-7);
    EXPECT_NEAR(place.longitude, -126.5, 1e-9);
}

TEST(HemispheresAt, BeforeASentenceTellsTheFirstOneToldCounts)
{
    const auto snapshot = [](char ns, char ew, double latitude) {
        MRVGpsData state;
        state.NS = ns;
        state.EW = ew;
        state.Latitude = latitude;
        return std::make_shared<const MRVGpsData>(state);
    };
    const auto untold = snapshot('N', 'E', 0);
    const std::vector<std::shared_ptr<const MRVGpsData>> south{untold, untold, snapshot('S', 'W', 3350),
                                                               snapshot('N', 'E', 3350)};
    for (const std::size_t index : {0, 1, 2})
        EXPECT_EQ(hemispheresAt(south, index), (Hemispheres{true, true})) << index;
    EXPECT_EQ(hemispheresAt(south, 3), Hemispheres{}) << "told to be north and east";
    EXPECT_EQ(hemispheresAt({untold, untold}, 0), Hemispheres{});
}

TEST(Distance, IsThatOfTheGreatCircle)
{
    EXPECT_NEAR(distanceMetres({0, 0}, {0, 1}), 111'195, 1);
    EXPECT_NEAR(distanceMetres({50.0663889, -5.7147222}, {58.6438889, -3.07}), 968'854, 100);
    EXPECT_NEAR(distanceMetres({0, 179.5}, {0, -179.5}), 111'195, 1);
    EXPECT_NEAR(distanceMetres({90, 0}, {-90, 0}), 20'015'115, 10);
}

test::Bytes gpsAt(test::Bytes bytes, std::int64_t time, double latitude, double longitude, double speed)
{
    return bytes.text("0GPS")
        .number(time)
        .number(std::int32_t{0})
        .number(std::int32_t{1})
        .real(latitude)
        .real(longitude)
        .real(speed)
        .text({"9\0\0\0\0\0\0\0\0", 9});
}

TEST(Summary, LeavesOutWhatIsNoPlaceAndNoNumber)
{
    test::Bytes area;
    const std::pair<double, double> places[] = {{0, 0},     {3730, 12700},     {nan, 12700},
                                                {9500, 0},  {1e300, infinity}, {3731, 12700},
                                                {0, 12700}, {3731, 0}};
    std::int64_t time = 0;
    for (const auto& [latitude, longitude] : places) {
        area.reading(time, 0, time == 300 ? -512 : 0, 256);
        area =
            gpsAt(area, time, latitude, longitude, time == 200 ? infinity : static_cast<double>(time) / 10);
        time += 100;
    }
    const std::string file = test::avi(area);
    MemorySource source(test::bytesOf(file));
    MRVBlackBoxData recording;
    ASSERT_TRUE(recording.ExtractStreamInformation(source));
    const RecordingSummary summary = summarise(recording);
    EXPECT_EQ(summary.durationSeconds, 0.7);
    EXPECT_EQ(summary.beginMs, 0);
    EXPECT_NEAR(summary.firstFix->position.latitude, 37.5, 1e-9);
    EXPECT_EQ(summary.lastFix->timestampMs, 700);
    const DecimalPosition way[] = {{37.5, 127}, {37 + 31 / 60.0, 127}, {0, 127}, {37 + 31 / 60.0, 0}};
    double distance = 0;
    for (std::size_t i = 1; i < std::size(way); ++i)
        distance += distanceMetres(way[i - 1], way[i]);
    EXPECT_NEAR(summary.distanceMetres, distance, 0.1);
    EXPECT_EQ(summary.topSpeed->speed, 70);
    EXPECT_EQ(summary.topSpeed->KM, '9');
    EXPECT_EQ(summary.strongestReading->timestampMs, 300);
    EXPECT_NEAR(summary.strongestReading->magnitude, std::sqrt(5.0), 1e-9);

    const RecordingSummary nothing = summarise(MRVBlackBoxData());
    EXPECT_FALSE(nothing.durationSeconds || nothing.firstFix || nothing.topSpeed || nothing.strongestReading);
}

} // namespace
} // namespace marvo
