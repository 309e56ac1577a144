// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/cut/FilmCutting.h"

#include "demo/DataArea.h"
#include "demo/Recording.h"
#include "film/ClipIndexReading.h"
#include "media/AviHeader.h"
#include "recording/MRVBlackBoxData.h"
#include "support/FileSource.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using namespace marvo;
using namespace marvo::test;

namespace {

constexpr int seconds = 4;

std::string contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Ten readings a second, each with numbers of its own, and fixes of both trailers.
demo::Bytes someData(demo::DataAreaEnd end)
{
    std::vector<demo::DataRecord> records;
    for (int i = 0; i < seconds * 10; ++i) {
        records.push_back(_AVI_GSENSOR_DATA_T{i * 100, i, -i, 256 + i, 30});
        if (i % 10 == 8) { // the last reading of a second has to wait for the next fix
            const _AVI_GPS_DATA_T header{.nTimestamp = i * 100,
                                         .dwExtLength = 0,
                                         .nQualityIndicator = 1,
                                         .fLatitude = 3730.0 + i,
                                         .fLongitude = 12700.0 + i,
                                         .fSpeed = 1.5 * i,
                                         .KM = static_cast<unsigned char>(i % 20 == 8 ? '9' : 'K')};
            records.push_back(demo::GpsRecord{header, "$GPRMC,0000" + std::to_string(i) + ",A\r\n"});
        }
    }
    return demo::dataAreaChunks(records, end);
}

struct Film
{
    demo::DataAreaPlace place = demo::DataAreaPlace::BeforeMovie;
    demo::DataAreaEnd end = demo::DataAreaEnd::BudgetZero;
};

void writeFilm(const std::string& path, const Film& film)
{
    demo::RecordingOptions options;
    options.frameCount = seconds * options.framesPerSecond;
    options.dataChunks = someData(film.end);
    options.dataPlace = film.place;
    ASSERT_EQ(demo::writeRecording(path, options), std::nullopt);
}

/// Every reading with what belongs to it, a line each.
std::vector<std::string> readingsOf(const std::string& path)
{
    MRVBlackBoxData data;
    data.ExtractStreamInformation(path);
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < data.m_GSensors().size(); ++i) {
        const auto raw = data.m_vGSensorData()[i].data();
        std::ostringstream line;
        line << raw.nTimestamp << ' ' << raw.xAxis << ' ' << raw.yAxis << ' ' << raw.zAxis;
        if (i < data.m_vGpsData().size()) {
            const auto fix = data.m_vGpsData()[i].data();
            line << " at " << fix.nTimestamp << ' ' << fix.fLatitude << ' ' << fix.fLongitude << ' '
                 << fix.fSpeed << ' ' << fix.KM;
        }
        lines.push_back(line.str());
    }
    return lines;
}

std::string pictureBytes(const std::string& path)
{
    const ClipIndex index = readClipIndex(path);
    const std::string bytes = contents(path);
    std::string pictures;
    for (const ClipChunk& chunk : index.chunks) {
        if (chunk.stream == index.video)
            pictures += bytes.substr(chunk.offset, chunk.size);
    }
    return pictures;
}

/// The header tells of as many pictures as there are, and the index agrees.
void expectWholeFilm(const std::string& path, std::uint64_t pictures)
{
    const auto header = readAviHeader(path);
    ASSERT_TRUE(std::holds_alternative<AviHeader>(header)) << path;
    EXPECT_EQ(std::get<AviHeader>(header).totalFrames, pictures);
    EXPECT_TRUE(std::get<AviHeader>(header).hasIndex);
    const ClipIndex index = readClipIndex(path);
    EXPECT_EQ(index.picturesTold, pictures);
    EXPECT_EQ(std::ranges::count(index.chunks, index.video, &ClipChunk::stream), static_cast<long>(pictures));
}

void overwrite(std::string& bytes, std::size_t at, std::string_view with)
{
    bytes.replace(at, with.size(), with);
}

} // namespace

TEST(RepairTest, CopiesASoundRecordingByteForByte)
{
    const TemporaryFolder folder;
    for (const auto place : {demo::DataAreaPlace::BeforeMovie, demo::DataAreaPlace::AfterIndex}) {
        writeFilm(folder.path("a.avi"), {.place = place});
        const std::string out = folder.path(place == demo::DataAreaPlace::BeforeMovie ? "b.avi" : "c.avi");
        EXPECT_EQ(repairRecording(folder.path("a.avi"), out).pictures, seconds * 10);
        EXPECT_TRUE(contents(out) == contents(folder.path("a.avi")));
        EXPECT_EQ(repairRecording(folder.path("a.avi"), out).error, std::errc::file_exists);
        EXPECT_EQ(repairRecording(folder.path("a.avi"), folder.path("a.avi")).fault, CutFault::CannotWrite);
    }
}

TEST(RepairTest, MakesAFilmOfWhatACutOrAPowerCutHasLeft)
{
    const TemporaryFolder folder;
    writeFilm(folder.path("whole.avi"), {});
    const std::string whole = contents(folder.path("whole.avi"));
    const std::string pictures = pictureBytes(folder.path("whole.avi"));
    const std::size_t movie = whole.find("movi") - 8;
    const std::size_t index = whole.rfind("idx1");
    const std::vector<std::string> readings = readingsOf(folder.path("whole.avi"));
    std::string unfinished = whole.substr(0, index);
    overwrite(unfinished, whole.find("avih") + 8 + 16, std::string(4, '\0')); // no pictures told,
    overwrite(unfinished, whole.find("strh") + 8 + 32, std::string(4, '\0'));
    overwrite(unfinished, movie + 4, std::string(4, '\0')); // and the list's size not filled in
    std::vector<std::string> films{unfinished};
    for (std::size_t size = 0; size < whole.size(); size += 611)
        films.push_back(whole.substr(0, size));
    for (std::size_t i = 0; i < films.size(); ++i) {
        SCOPED_TRACE(films[i].size());
        folder.write("damaged.avi", films[i]);
        const std::string out = folder.path("repaired" + std::to_string(i) + ".avi");
        const CutResult result = repairRecording(folder.path("damaged.avi"), out);
        EXPECT_TRUE(contents(folder.path("damaged.avi")) == films[i]) << "the recording is never changed";
        if (result.fault != CutFault::None) {
            EXPECT_EQ(result.fault, CutFault::NoFilm);
            EXPECT_LT(films[i].size(), movie + 12 + 4096) << "there is a picture";
            EXPECT_EQ(FileSource(out).isOpen(), false);
            continue;
        }
        expectWholeFilm(out, result.pictures);
        EXPECT_TRUE(pictures.starts_with(pictureBytes(out)));
        EXPECT_EQ(readingsOf(out), readings);
        if (i == 0) {
            EXPECT_EQ(result.pictures, seconds * 10);
        }
    }
}

TEST(ClipTest, HasThePicturesAndTheReadingsOfItsTime)
{
    const TemporaryFolder folder;
    int number = 0;
    for (const Film film : {Film{}, Film{demo::DataAreaPlace::AfterIndex, demo::DataAreaEnd::EndOfFile}}) {
        const std::string path = folder.path("film" + std::to_string(number) + ".avi");
        writeFilm(path, film);
        const std::vector<std::string> readings = readingsOf(path);
        for (const auto& [from, to] : {std::pair(0, 4000),
                                       {0, 100},
                                       {950, 1900},
                                       {1900, 1901},
                                       {3333, 99'000},
                                       {-5, 250},
                                       {2000, 3950}}) {
            SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(to));
            const std::string out = folder.path("clip" + std::to_string(++number) + ".avi");
            const CutResult result = cutClip(path, from, to, out);
            ASSERT_EQ(result.fault, CutFault::None);
            const int first = std::max(from, 0) / 100; // pictures and readings: ten a second each
            const int end = std::min((to + 99) / 100, seconds * 10);
            EXPECT_EQ(result.pictures, end - first);
            EXPECT_EQ(result.earlierMs, std::max(from, 0) - first * 100);
            expectWholeFilm(out, result.pictures);
            EXPECT_NE(pictureBytes(path).find(pictureBytes(out)), std::string::npos);
            EXPECT_EQ(readingsOf(out),
                      std::vector<std::string>(readings.begin() + first, readings.begin() + end));
        }
    }
    const std::string path = folder.path("film0.avi");
    EXPECT_EQ(cutClip(path, 4000, 5000, folder.path("none.avi")).fault, CutFault::NothingThere);
    EXPECT_EQ(cutClip(folder.path("gone.avi"), 0, 5000, folder.path("none.avi")).fault, CutFault::CannotRead);
    EXPECT_EQ(cutClip(path, 0, 1000, folder.path("no/none.avi")).fault, CutFault::CannotWrite);
    std::stop_source stop;
    stop.request_stop();
    CutOptions stopped;
    stopped.stop = stop.get_token();
    EXPECT_EQ(cutClip(path, 0, 1000, folder.path("none.avi"), stopped).fault, CutFault::Stopped);
    EXPECT_FALSE(FileSource(folder.path("none.avi")).isOpen());
}

TEST(ClipTest, BeginsAtAKeyPictureAndTakesTheSoundToTheSample)
{
    const TemporaryFolder folder;
    const auto path = folder.path("film.avi");
    writeFilm(path, {});
    std::string bytes = contents(path);
    // As if it were not motion JPEG: only every tenth picture is a key picture.
    for (const ClipChunk& chunk : readClipIndex(path).chunks) {
        static int picture = 0;
        if (chunk.stream == 0)
            overwrite(bytes, chunk.offset,
                      picture++ % 10 == 0 ? std::string("\0\0\1\x65", 4) : std::string("\0\0\1\x41", 4));
    }
    folder.write("film.avi", bytes);
    const CutResult result = cutClip(path, 1730, 2300, folder.path("clip.avi"));
    ASSERT_EQ(result.fault, CutFault::None);
    EXPECT_EQ(result.earlierMs, 730);
    EXPECT_EQ(result.pictures, 13);
    EXPECT_EQ(readingsOf(folder.path("clip.avi")).size(), 13);
    std::uint64_t sound = 0;
    for (const ClipChunk& chunk : readClipIndex(folder.path("clip.avi")).chunks)
        sound += chunk.stream == 1 ? chunk.size : 0;
    EXPECT_EQ(sound, 2 * 16'000 * 13 / 10);
    CutOptions silent;
    silent.withSound = false;
    ASSERT_EQ(cutClip(path, 0, 100, folder.path("silent.avi"), silent).fault, CutFault::None);
    for (const ClipChunk& chunk : readClipIndex(folder.path("silent.avi")).chunks)
        EXPECT_EQ(chunk.stream, 0);
}
