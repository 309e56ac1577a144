// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MRVMedia.h"
#include "media/MediaScan.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace marvo {

namespace {

struct NameCase
{
    std::string fileName;
    int mediaDivision;
    const char* time;
    bool listed;
};

constexpr const char* unknown = "00000000000000";

const NameCase nameCases[] = {
    {"alwa_20130526_134502_F.avi", 0, "20130526134502", true},
    {"alwa_20130526_134502.avi", 0, "20130526134502", true},
    {"motion_20130526_134502.avi", 1, "20130526134502", true},
    {"event_20130526_134502.avi", 2, "20130526134502", true},
    // Names of another length than their kind has.
    {"motion_20130526_134502_F.avi", 0, unknown, false},
    {"event_20130526_134502_F.avi", 0, unknown, false},
    {"motion_20130526_1345.avi", 1, unknown, false},
    {"event_20130526_13450.avi", 2, unknown, false},
    {"event_20130526_134502x.avi", 2, "20130526134502", true},
    {"alwa_20130526_13450.avi", 0, unknown, false},
    {"alwa_20130526_134502_FR.avi", 0, unknown, false},
    {std::string(10000, 'x') + ".avi", 0, unknown, false},
    {"event_20131326_134502.avi", 2, unknown, true},
    {"alwa_19700101_000000.avi", 0, "19700101000000", true},
    {"alwa_27001231_235959.avi", 0, "27001231235959", true},
    {"alwa_20130231_134502.avi", 0, "20130231134502", true},
    {"alwa_20130526_240000.avi", 0, "20130526240000", true},
    {"alwa_20130526_136060.avi", 0, "20130526136060", true},
    {"alwa_20135x26_134502.avi", 0, "20130526134502", true},
    {"alwa_20130526_xx4502.avi", 0, "20130526004502", true},
    {"alwa_20130526_+14502.avi", 0, "20130526004502", true},
    {"alwa_20130526_ 14502.avi", 0, "20130526004502", true},
    {"alwa_20130526x134502.avi", 0, "20130526134502", true},
    {"alwa_20130526_134502.x.avi", 0, "20130526134502", true},
    // A character counts once however many bytes it has, each byte once that belongs to none.
    {"alwa_20130526\355\225\234134502\355\225\234.avi", 0, "20130526134502", true},
    {"alwa_20130\303\25106_134502.avi", 0, unknown, true},
    {"alwa_20137\303\25106_134502.avi", 0, "20130706134502", true},
    {"alwa_20130526\377134502\303\50.avi", 0, "20130526134502", true},
};

TEST(Media, tellsKindAndTimeByItsName)
{
    for (const NameCase& expected : nameCases) {
        SCOPED_TRACE(expected.fileName);
        const std::string path = "/card/AlwaysMovie/" + expected.fileName;
        const MRVMedia media(path);
        EXPECT_EQ(media.mediaDivision(), expected.mediaDivision);
        EXPECT_EQ(media.yyyymmddhhmiss(), expected.time);
        EXPECT_EQ(createMediaByPath(path).has_value(), expected.listed);
    }
    for (const char* name :
         {"abcd_20130526_134502.avi", "ALWA_20130526_134502.AVI", "alwa_19691231_235959.avi",
          "alwa_27010101_000000.avi", "alwa_20130026_134502.avi", "alwa_20130500_134502.avi",
          "alwa_20130532_134502.avi", "alwa_20130526_250000.avi", "alwa_20130526_136100.avi",
          "alwa_20130526_130061.avi", "alwa_2o130526_134502.avi"}) {
        EXPECT_TRUE(createMediaByPath(name)) << name;
        EXPECT_EQ(MRVMedia(name).yyyymmddhhmiss(), unknown) << name;
    }
}

TEST(Media, readsEveryPartOfItsTime)
{
    const MRVMedia media("/card/AlwaysMovie/alwa_20130526_134502_F.avi");
    EXPECT_EQ(std::tuple(media.year(), media.month(), media.day()), std::tuple(2013, 5, 26));
    EXPECT_EQ(std::tuple(media.hour(), media.minute(), media.second()), std::tuple(13, 45, 2));
}

TEST(Media, groupNameDropsTwoCharactersNotBytes)
{
    EXPECT_EQ(MRVMedia("/a/x\xED\x95\x9C\xC3\xA9.avi").mediaGroupName(), "x");
    EXPECT_EQ(MRVMedia("/a/xy.avi").mediaGroupName(), "");
    EXPECT_EQ(MRVMedia("/a/x.avi").mediaGroupName(), "");
}

TEST(Media, makesItsPathAbsoluteAndSplitsIt)
{
    const std::string here = std::filesystem::current_path();
    struct
    {
        std::string given, path, dir, mediaName, extension;
    } const cases[] = {
        {"/a/b.avi", "/a/b.avi", "/a", "b", "avi"},
        {"/b.AVI", "/b.AVI", "/", "b", "AVI"},
        {"a/b.avi", here + "/a/b.avi", here + "/a", "b", "avi"},
        {"./b.avi", here + "/b.avi", here, "b", "avi"},
        {"//a/././/b.avi/", "/a/b.avi", "/a", "b", "avi"},
        {"/a/link/../b.avi", "/a/link/../b.avi", "/a/link/..", "b", "avi"},
        {"/a/.avi", "/a/.avi", "/a", ".avi", ""},
        {"/a/.b.avi", "/a/.b.avi", "/a", ".b", "avi"},
        {"/a.avi/b", "/a.avi/b", "/a.avi", "b", ""},
        {"/a/b.", "/a/b.", "/a", "b", ""},
        {"/", "/", "/", "", ""},
    };
    for (const auto& expected : cases) {
        const MRVMedia media(expected.given);
        EXPECT_EQ(media.path(), expected.path);
        EXPECT_EQ(media.dir(), expected.dir) << expected.given;
        EXPECT_EQ(media.mediaName(), expected.mediaName) << expected.given;
        EXPECT_EQ(media.extension(), expected.extension) << expected.given;
    }
}

TEST(Media, staysUsableWithoutACurrentDirectory)
{
    const std::filesystem::path before = std::filesystem::current_path();
    {
        const test::TemporaryFolder folder;
        std::filesystem::current_path(folder.path());
    }
    EXPECT_EQ(MRVMedia("a//b.avi").path(), "a/b.avi");
    EXPECT_EQ(MRVMedia("b.avi").mediaName(), "b");
    std::filesystem::current_path(before);
}

TEST(Media, comparesByTimeThenByKindHighestFirst)
{
    const MRVMedia always("/c/alwa_20130526_134502.avi");
    const MRVMedia motion("/c/motion_20130526_134502.avi");
    const MRVMedia event("/c/event_20130526_134502.avi");
    const MRVMedia later("/c/alwa_20130526_134503.avi");
    const MRVMedia lateYear("/c/event_20140101_000000.avi");
    const MRVMedia none("/c/abcd_20130526_134502.avi");
    EXPECT_LT(event.compareDate(motion), 0);
    EXPECT_LT(motion.compareDate(always), 0);
    EXPECT_GT(always.compareDate(event), 0);
    EXPECT_LT(always.compareDate(later), 0);
    EXPECT_LT(later.compareDate(lateYear), 0);
    EXPECT_LT(none.compareDate(event), 0);
    EXPECT_EQ(always.compareDate(MRVMedia("/c/alwa_20130526_134502_R.avi")), 0);
}

TEST(MediaDirection, isReadFromTheLastSixCharacters)
{
    const std::pair<std::string_view, int> rows[] = {
        {"/c/alwa_20130526_134502_F.avi", FrontMedia},
        {"/c/alwa_20130526_134502_R.avi", RearMedia},
        {"/c/x_r.AVI", RearMedia},
        {"/c/x_f.aVi", FrontMedia},
        {"_F.avi", FrontMedia},
        {"F.avi", UnknownMedia},
        {"", UnknownMedia},
        {"/c/x.avi", UnknownMedia},
        {"/c/x_F.avi.part", UnknownMedia},
        {"/c/x-F.avi", UnknownMedia},
        {"/c/x_\xC6.avi", UnknownMedia},
    };
    for (const auto& [path, direction] : rows) {
        EXPECT_EQ(mediaDirection(path), direction) << path;
        EXPECT_EQ(isFrontMedia(path), direction == FrontMedia) << path;
        EXPECT_EQ(isRearMedia(path), direction == RearMedia) << path;
    }
}

} // namespace

} // namespace marvo
