// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/DriveFilm.h"
#include "film/ClipIndex.h"

#include <gmock/gmock.h>

#include <string>

using namespace marvo;
using testing::ElementsAre;

namespace {

/// A recording that its path describes: how long it is, in seconds, and how wide; "0" cannot be played.
ClipIndex indexOf(const std::string& path)
{
    ClipIndex index;
    ClipStream video{ClipStream::Kind::Video, 1, 10, 0, std::vector<std::uint8_t>(40)};
    video.format[4] = static_cast<std::uint8_t>(path.find("wide") != std::string::npos ? 200 : 100);
    index.streams = {video};
    index.chunks.assign(static_cast<std::size_t>(std::stod(path) * 10), {0, 100, 0, true});
    return index;
}

struct Given
{
    std::string front; ///< a path; empty: none
    std::optional<double> frontClock;
    std::string rear;
    std::optional<double> rearClock;
    std::optional<std::int64_t> rearOffsetMs = {};
};

DriveFilm layOut(const std::vector<Given>& given)
{
    std::vector<DriveClip> clips;
    const auto clockMs = [](std::optional<double> seconds) {
        return seconds ? std::optional(static_cast<std::int64_t>(*seconds * 1000)) : std::nullopt;
    };
    for (const Given& one : given) {
        DriveClip clip;
        if (!one.front.empty())
            clip.recordings[FrontCamera] = {one.front, clockMs(one.frontClock)};
        if (!one.rear.empty())
            clip.recordings[RearCamera] = {one.rear, clockMs(one.rearClock)};
        clip.rearOffsetMs = one.rearOffsetMs;
        clips.push_back(clip);
    }
    return layOutDrive(clips, indexOf);
}

std::vector<double> starts(const DriveFilm& drive, Camera camera)
{
    std::vector<double> found;
    for (const auto& recording : drive.recordings[camera])
        found.push_back(static_cast<double>(recording.startMs) / 1000);
    return found;
}

using Recording = DriveFilm::Recording;

} // namespace

TEST(DriveFilmTest, PutsBothCamerasOnOneTimeLine)
{
    // What the clocks say is whole seconds: clips that follow one another are one film all the same.
    DriveFilm drive = layOut({{"60", 0, "59.9", 0}, {"60", 61, "60", 61}, {"60", 120, "60", 122}});
    EXPECT_THAT(starts(drive, FrontCamera), ElementsAre(0, 60, 120));
    EXPECT_THAT(starts(drive, RearCamera), ElementsAre(0, 60, 122));
    EXPECT_EQ(drive.films[FrontCamera].size(), 1);
    EXPECT_EQ(drive.films[RearCamera].size(), 2) << "two seconds without a picture are none";
    EXPECT_EQ(drive.lengthMs, 182'000);
    EXPECT_TRUE(drive.gaps.empty());

    // An offset that is known better holds; the next clip waits for nobody.
    drive = layOut({{"60", 0, "60", 0, 400}, {"60", 60, "60", 60, 400}, {"60", 120, "60", 120, -300}});
    EXPECT_THAT(starts(drive, FrontCamera), ElementsAre(0, 60, 120.7));
    EXPECT_THAT(starts(drive, RearCamera), ElementsAre(0.4, 60.4, 120.4));

    // A longer rear is played whole; one camera alone goes on as its clock says, beside the other.
    drive = layOut({{"20", 0, "60", 0}, {"60", 60, "60", 60}, {"60", 120, "", {}}, {"", {}, "30", 150}});
    EXPECT_THAT(starts(drive, FrontCamera), ElementsAre(0, 60, 120));
    EXPECT_THAT(starts(drive, RearCamera), ElementsAre(0, 60, 150));
    EXPECT_EQ(drive.recordingAt(FrontCamera, 19'999), 0);
    EXPECT_FALSE(drive.recordingAt(FrontCamera, 40'000));
    EXPECT_FALSE(drive.recordingAt(RearCamera, 130'000));
    EXPECT_EQ(drive.recordingAt(RearCamera, 150'000), 2);
    EXPECT_EQ(drive.recordings[RearCamera][2].clockAt(151'000), 151'000);
}

TEST(DriveFilmTest, LeavesGapsOutAndTellsOfWhatIsToldTwice)
{
    DriveFilm drive = layOut({{"60", 0, "", {}},
                              {"60", 90, "", {}},
                              {"60", 140, "", {}},
                              {"10", 150, "", {}},
                              {"60", {}, "", {}}});
    EXPECT_THAT(starts(drive, FrontCamera), ElementsAre(0, 60, 120, 180, 180));
    ASSERT_EQ(drive.gaps.size(), 1);
    EXPECT_EQ(drive.gaps[0].atMs, 60'000);
    EXPECT_EQ(drive.gaps[0].lengthMs, 30'000);
    EXPECT_EQ(drive.recordings[FrontCamera][2].overlapMs, 10'000);
    EXPECT_EQ(drive.recordings[FrontCamera][3].state, Recording::State::Inside);
    EXPECT_EQ(drive.recordings[FrontCamera][4].startMs, 180'000) << "without a time it comes last";
    EXPECT_EQ(drive.lengthMs, 240'000);
    EXPECT_EQ(drive.films[FrontCamera].size(), 1);
    EXPECT_EQ(drive.films[FrontCamera][0]->clips().size(), 4);

    // Of two of the same time and length one is played.
    drive = layOut({{"60", 0, "", {}}, {"60", 0, "", {}}});
    EXPECT_EQ(drive.lengthMs, 60'000);
}

TEST(DriveFilmTest, GoesOnPastWhatCannotBePlayed)
{
    DriveFilm drive =
        layOut({{"60", 0, "60", 0}, {"0", 60, "60", 60}, {"60 wide", 120, "0", 120}, {"0", 180, "", {}}});
    EXPECT_THAT(starts(drive, FrontCamera), ElementsAre(0, 60, 120, 180));
    EXPECT_EQ(drive.recordings[FrontCamera][1].state, Recording::State::Damaged);
    EXPECT_EQ(drive.recordings[FrontCamera][3].state, Recording::State::Damaged);
    EXPECT_EQ(drive.films[FrontCamera].size(), 2);
    EXPECT_EQ(drive.films[RearCamera].size(), 1);
    EXPECT_EQ(drive.lengthMs, 180'000);
    EXPECT_TRUE(layOut({{"0", 0, "0", 0}}).isEmpty());
    EXPECT_TRUE(layOut({}).isEmpty());

    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(
        layOutDrive({{{{DriveClip::Recording{"60", 0}, {}}}, {}}}, indexOf, stop.get_token()).isEmpty());
}
