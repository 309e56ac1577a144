// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/DemoCard.h"
#include "demo/CardReader.h"
#include "demo/Drive.h"
#include "demo/Scene.h"
#include "media/MediaScan.h"
#include "recording/MRVBlackBoxData.h"
#include "recording/PlainWalk.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>

namespace marvo::demo {
namespace {

namespace fs = std::filesystem;
using namespace marvo::test;

/// Small pictures and few of them: what is tested here does not depend on how fine they are.
const DemoCardOptions coarse{.frontWidth = 128, .framesPerSecond = 2, .threads = 1};

std::vector<std::string> filesBelow(const std::string& folder)
{
    std::vector<std::string> out;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory())
            out.push_back(fs::relative(entry.path(), folder).string());
    }
    std::ranges::sort(out);
    return out;
}

/// One card for the tests that only read it.
class DemoCard : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<TemporaryFolder>();
        s_result = writeDemoCard(s_folder->path(), coarse);
    }
    static void TearDownTestSuite() { s_folder.reset(); }
    static std::vector<MRVMedia> medias() { return scanFolder(s_folder->path()).medias; }

    static inline std::unique_ptr<TemporaryFolder> s_folder;
    static inline DemoCardResult s_result;
};

TEST_F(DemoCard, everyRecordingIsListedAndAllKindsAreThere)
{
    ASSERT_EQ(s_result.error, std::nullopt);
    EXPECT_EQ(filesBelow(s_folder->path()).size(), s_result.written.size());
    std::set<int> kinds;
    std::set<int> directions;
    for (const MRVMedia& media : medias()) {
        kinds.insert(media.mediaDivision());
        directions.insert(mediaDirection(media.path()));
        EXPECT_NE(media.year(), 0) << media.path();
    }
    EXPECT_EQ(medias().size(), s_result.written.size() - 3);
    EXPECT_EQ(kinds, (std::set{0, 1, 2}));
    EXPECT_EQ(directions, (std::set{0, 1, 2}));
}

TEST_F(DemoCard, dataAreasAreReadInStepByBothReaders)
{
    std::set<std::pair<bool, bool>> shapes; // data before the movie, budget used up
    std::set<char> markers;
    for (const MRVMedia& media : medias()) {
        SCOPED_TRACE(media.path());
        const std::string film = contents(media.path());
        const auto top = chunksOf(film, 12, film.size());
        const PlainWalk walk(film);
        EXPECT_TRUE(walk.result);
        EXPECT_EQ(walk.readings.size(), walk.fixes.size() * 10);
        shapes.insert({top[2].id == "JUNK", walk.budgetUsedUp});

        MRVBlackBoxData data;
        EXPECT_TRUE(data.ExtractStreamInformation(media.path()));
        ASSERT_EQ(data.m_GSensors().size(), walk.readings.size());
        ASSERT_EQ(data.m_vGpsData().size(), walk.readings.size());
        for (std::size_t i = 0; i < walk.readings.size(); ++i) {
            EXPECT_EQ(data.m_GSensors()[i].y, static_cast<float>(walk.readings[i].y) / 256);
            EXPECT_EQ(data.m_vGpsData()[i].data().fSpeed, walk.fixes[i / 10].speed);
            EXPECT_TRUE(i == 0 || walk.readings[i].time == walk.readings[i - 1].time + 100);
        }
        markers.insert(walk.fixes[0].km);

        // As many seconds of picture, sound and data.
        const auto header = chunksOf(film, top[0].body + 4, top[0].body + top[0].size);
        EXPECT_EQ(numberAt<std::uint32_t>(film, header[0].body + 16), walk.fixes.size() * 2);
        const auto sound = chunksOf(film, header[2].body + 4, header[2].body + header[2].size);
        EXPECT_EQ(numberAt<std::uint32_t>(film, sound[0].body + 32), walk.fixes.size() * 16'000);
    }
    EXPECT_EQ(shapes.size(), 4);
    EXPECT_EQ(markers, (std::set{'9', 'K'}));
}

TEST_F(DemoCard, theDriveGoesOnFromClipToClip)
{
    std::int64_t next = 0;
    double hardest = 0;
    for (const MRVMedia& media : medias()) {
        if (mediaDirection(media.path()) == RearMedia || media.isMotionMedia())
            continue;
        const PlainWalk walk(contents(media.path()));
        EXPECT_TRUE(next == 0 || walk.readings.front().time == next) << media.path();
        next = walk.readings.back().time + 100;
        const auto strongest = std::ranges::min(walk.readings, {}, &PlainWalk::Reading::y);
        if (media.isEventMedia())
            hardest = strongest.y / 256.0;
        else
            EXPECT_GT(strongest.y / 256.0, -0.5) << "an event outside of the event's clip";
    }
    EXPECT_LT(hardest, -0.70) << "the driving threshold of the Y axis";
}

TEST_F(DemoCard, settingsClockAndLogAreAsTheCameraWritesThem)
{
    const std::string settings = s_folder->read("config.bin");
    ASSERT_EQ(settings.size(), 272);
    EXPECT_EQ(settings.substr(0, 8), std::string("\x26\x57\x0C\x19\x01\x00\x00\x00", 8));
    EXPECT_EQ(s_folder->read("timeset.cfg"), "2024/05/17 14:20:00");

    const std::string log = s_folder->read("DrvInfo/marvo_000.drv");
    const auto count = numberAt<std::uint32_t>(log, 0);
    ASSERT_EQ(log.size(), 12 + count * 40);
    EXPECT_GT(count, 50);
}

TEST(Scene, drawsAtAnyMomentAndSize)
{
    const Drive drive;
    for (const int width : {16, 130, 400}) {
        for (const Look look : {Look::Ahead, Look::Back}) {
            const Scene scene(drive, look, width, width * 9 / 16);
            Canvas picture(width, width * 9 / 16);
            for (const double t : {-5.0, 0.0, 42.5, 60.0, 75.5, 96.0, 247.0, 270.0, 671.0})
                scene.draw(picture, t, "2024/05/17 \xFF");
        }
    }
}

TEST_F(DemoCard, isTheSameEveryTimeHoweverManyThreads)
{
    const TemporaryFolder other;
    DemoCardOptions options = coarse;
    options.threads = 7;
    ASSERT_EQ(writeDemoCard(other.path("new/card"), options).error, std::nullopt);
    const auto files = filesBelow(s_folder->path());
    ASSERT_EQ(files, filesBelow(other.path("new/card")));
    for (const std::string& file : files)
        EXPECT_TRUE(s_folder->read(file) == other.read("new/card/" + file)) << file;
}

TEST(DemoCardWriting, leavesAloneWhatIsSomebodysOwn)
{
    const TemporaryFolder card;
    card.write("AlwaysMovie/alwa_20200101_000000_F.avi", "mine");
    card.write("EventMovie/notes.txt", "mine");
    const std::string same = "EventMovie/event_20240517_142126.avi";
    card.write(same, "mine");
    card.write("config.bin", "my settings");
    for (int round = 0; round < 2; ++round) {
        const DemoCardResult result = writeDemoCard(card.path(), coarse);
        ASSERT_EQ(result.error, std::nullopt);
        EXPECT_EQ(result.kept, (std::vector<std::string>{same, "config.bin"}));
        EXPECT_EQ(card.read("config.bin"), "my settings");
        EXPECT_FALSE(fs::exists(card.path("timeset.cfg")));
    }
    EXPECT_EQ(card.read("AlwaysMovie/alwa_20200101_000000_F.avi"), "mine");
    EXPECT_EQ(card.read("EventMovie/notes.txt"), "mine");
    EXPECT_EQ(card.read(same), "mine");
}

TEST(DemoCardWriting, followsNoLinkOutOfTheFolder)
{
    for (const std::string name : {"AlwaysMovie", "EventMovie/event_20240517_142126.avi", "config.bin"}) {
        const TemporaryFolder outside;
        outside.write("mine", "mine");
        const TemporaryFolder card;
        fs::create_directories(fs::path(card.path(name)).parent_path());
        fs::create_symlink(outside.path(name == "AlwaysMovie" ? "" : "mine"), card.path(name));
        EXPECT_EQ(writeDemoCard(card.path(), coarse).error, "'" + card.path(name) + "' is a link");
        EXPECT_EQ(outside.read("mine"), "mine");
        EXPECT_EQ(filesBelow(outside.path()), std::vector<std::string>{"mine"});
    }
}

TEST_F(DemoCard, anOldOneIsWrittenAnew)
{
    const TemporaryFolder card;
    fs::copy(s_folder->path(), card.path(), fs::copy_options::recursive);
    const std::string& first = s_result.written.front();
    fs::resize_file(card.path(first), 2000);
    card.write("config.bin", "changed");
    card.write("timeset.cfg", "2030/01/01 00:00:00");
    const DemoCardResult again = writeDemoCard(card.path(), coarse);
    EXPECT_EQ(again.written, s_result.written);
    EXPECT_TRUE(card.read(first) == s_folder->read(first));
    EXPECT_TRUE(card.read("config.bin") == s_folder->read("config.bin"));
}

} // namespace
} // namespace marvo::demo
