// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/FilmReader.h"
#include "film/VirtualFilmBuilder.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>

using namespace marvo;
using testing::ElementsAre;

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Block
{
    int track;
    std::int64_t ms;
    bool isKey;
    Bytes body;
    bool operator==(const Block&) const = default;
};

/// A reader of Matroska of the test's own: what a player would be given.
struct ReadFilm
{
    std::vector<Block> blocks;
    std::map<std::int64_t, std::uint64_t> cues; ///< where the cluster of a time is said to stand
    std::map<std::uint64_t, std::int64_t> clusters;
    double durationMs = 0;
    std::uint64_t unitNs = 0;

    explicit ReadFilm(const Bytes& all) { elements(all, 0, all.size()); }

private:
    std::uint64_t m_segment = 0;
    std::int64_t m_clusterMs = 0;
    std::int64_t m_cueMs = 0;

    static std::uint64_t number(const Bytes& all, std::size_t at, std::size_t width)
    {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < width; ++i)
            value = value << 8 | all.at(at + i);
        return value;
    }
    void elements(const Bytes& all, std::size_t at, std::size_t end)
    {
        while (at < end) {
            const auto widthOf = [&] { return static_cast<std::size_t>(std::countl_zero(all.at(at)) + 1); };
            const std::size_t start = at;
            const std::size_t idWidth = widthOf();
            const std::uint64_t id = number(all, at, idWidth);
            at += idWidth;
            const std::size_t sizeWidth = widthOf();
            const std::size_t size = number(all, at, sizeWidth) & ((std::uint64_t{1} << 7 * sizeWidth) - 1);
            at += sizeWidth;
            ASSERT_LE(at + size, end) << std::hex << id;
            if (id == 0x18538067)
                m_segment = at;
            if (id == 0x1F43B675)
                clusters[start - m_segment] = static_cast<std::int64_t>(number(all, at + 2, 8));
            if (id == 0xE7)
                m_clusterMs = static_cast<std::int64_t>(number(all, at, size));
            if (id == 0xB3)
                m_cueMs = static_cast<std::int64_t>(number(all, at, size));
            if (id == 0xF1)
                cues[m_cueMs] = number(all, at, size);
            if (id == 0x4489)
                durationMs = std::bit_cast<double>(number(all, at, size));
            if (id == 0x2AD7B1)
                unitNs = number(all, at, size);
            if (id == 0xA3)
                blocks.push_back(
                    {all[at] & 0x7F, m_clusterMs + static_cast<std::int16_t>(number(all, at + 1, 2)),
                     (all[at + 3] & 0x80) != 0, Bytes(all.begin() + at + 4, all.begin() + at + size)});
            for (const std::uint64_t master :
                 {0x1A45DFA3, 0x18538067, 0x1549A966, 0x1C53BB6B, 0xBB, 0xB7, 0x1F43B675}) {
                if (id == master)
                    elements(all, at, at + size);
            }
            at += size;
        }
    }
};

/// A clip of 30 pictures a second and 8,000 samples of one byte in pieces of a fifth of a second. What a
/// chunk holds tells clip and chunk.
class VirtualFilmTest : public testing::Test
{
protected:
    test::TemporaryFolder m_folder;
    VirtualFilmBuilder m_builder{0};
    std::vector<Block> m_expected;

    std::string path(int clip) const { return m_folder.path("clip" + std::to_string(clip)); }

    ClipIndex makeClip(int clip, int pictures, int keyEvery, int soundPieces = 5, std::uint8_t width = 64)
    {
        ClipIndex index;
        ClipStream video{ClipStream::Kind::Video, 1, 30, 0, Bytes(40)};
        video.format[4] = width;
        ClipStream sound{
            ClipStream::Kind::Sound, 1, 8000, 1, {1, 0, 1, 0, 0x40, 0x1F, 0, 0, 0x40, 0x1F, 0, 0}};
        sound.format.insert(sound.format.end(), {1, 0, 8, 0});
        index.streams = {video, sound};
        std::ofstream file(path(clip), std::ios::binary);
        std::uint64_t at = 0;
        const auto put = [&](std::uint8_t stream, std::size_t size, bool isKey) {
            Bytes body(size, static_cast<std::uint8_t>(clip * 64 + index.chunks.size()));
            file.write("some head", 9);
            index.chunks.push_back({at + 9, static_cast<std::uint32_t>(size), stream, isKey});
            file.write(reinterpret_cast<const char*>(body.data()), static_cast<std::streamsize>(size));
            at += 9 + size;
        };
        for (int i = 0; i < pictures; ++i) {
            put(0, 100 + static_cast<std::size_t>(i), i % keyEvery == 0);
            if (i % 6 == 0 && i / 6 < soundPieces)
                put(1, 1600, true);
        }
        return index;
    }
    static Bytes readAll(FilmReader& reader, std::uint64_t size)
    {
        Bytes all(size);
        EXPECT_EQ(reader.readAt(0, std::as_writable_bytes(std::span(all))), size);
        return all;
    }
    static std::vector<std::int64_t> times(const std::vector<Block>& blocks, int track)
    {
        std::vector<std::int64_t> found;
        for (const Block& block : blocks) {
            if (block.track == track)
                found.push_back(block.ms);
        }
        return found;
    }
};

} // namespace

TEST_F(VirtualFilmTest, HoldsEveryPictureOfEveryClipAtItsOwnTime)
{
    std::vector<ClipIndex> clips = {makeClip(0, 60, 15), makeClip(1, 31, 10, 7), makeClip(2, 90, 1)};
    clips[2].chunks[4].size = 0; // a picture that only repeats the one before
    const std::vector<std::int64_t> starts = {0, 2000, 3500};
    for (int i = 0; i < 3; ++i)
        m_builder.append(path(i), clips[i], starts[i]);
    const auto film = m_builder.finish();
    FilmReader reader(film);
    const Bytes all = readAll(reader, film->sizeBytes());
    const ReadFilm read(all);

    std::vector<std::int64_t> pictures;
    for (int clip = 0; clip < 3; ++clip) {
        std::int64_t number = 0;
        for (std::size_t i = 0; i < clips[clip].chunks.size(); ++i) {
            const ClipChunk& chunk = clips[clip].chunks[i];
            if (chunk.stream != 0)
                continue;
            const std::int64_t ms = starts[clip] + number++ * 1000 / 30;
            if (chunk.size == 0)
                continue;
            pictures.push_back(ms);
            const Block expected{1, ms, chunk.isKey,
                                 Bytes(chunk.size, static_cast<std::uint8_t>(clip * 64 + i))};
            EXPECT_THAT(read.blocks, testing::Contains(expected)) << clip << " " << i;
        }
    }
    std::vector<std::int64_t> withRepeats = pictures; // which a player reads on into, and never shows
    for (std::int64_t ms = 200; ms <= 28'800; ms += std::max<std::int64_t>(100, ms / 8))
        withRepeats.push_back(6500 + ms);
    EXPECT_EQ(times(read.blocks, 1), withRepeats);
    // Sound that goes on beyond the clip's 1,033 ms stays away, and what is left is in the order of time.
    // Where there is none, and after the end, there is silence: a player would wait for it.
    std::vector<std::int64_t> sound = {0,    200,  400,  600,  800,  1000, 1200, 1400, 1600, 1800, 2000, 2200,
                                       2400, 2600, 2800, 3000, 3033, 3233, 3500, 3700, 3900, 4100, 4300};
    for (std::int64_t ms = 4500; ms < 35'300; ms += 200)
        sound.push_back(ms);
    EXPECT_EQ(times(read.blocks, 2), sound);
    EXPECT_THAT(read.blocks, testing::Contains(Block{2, 7500, true, Bytes(1600, 0x80)}));
    EXPECT_EQ(film->lengthMs(), 6500);
    EXPECT_EQ(read.durationMs, 35'100);
    ASSERT_GT(read.cues.size(), 9);
    for (const auto& [ms, position] : read.cues)
        EXPECT_EQ(read.clusters.at(position), ms);

    // Read in any other pieces it is the same.
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
        const std::size_t at = random() % all.size();
        Bytes piece(std::min<std::size_t>(random() % 700, all.size() - at));
        ASSERT_EQ(reader.readAt(at, std::as_writable_bytes(std::span(piece))), piece.size());
        ASSERT_TRUE(std::equal(piece.begin(), piece.end(), all.begin() + at)) << at;
    }

    // The picture shown, the one before and the one after, at every moment and across clips.
    for (std::int64_t ms = 0; ms < 6500; ++ms) {
        const auto after = std::ranges::upper_bound(pictures, ms);
        ASSERT_EQ(film->pictureAt(ms), *(after - 1)) << ms;
        ASSERT_EQ(film->pictureAfter(ms), after != pictures.end() ? std::optional(*after) : std::nullopt);
        ASSERT_EQ(film->pictureBefore(ms),
                  after - pictures.begin() > 1 ? std::optional(*(after - 2)) : std::nullopt);
    }
    EXPECT_EQ(film->clipAt(1999), 0);
    EXPECT_EQ(film->clipAt(2000), 1);
    EXPECT_EQ(film->clipAt(99'999), 2);

    // At another speed only the units change.
    FilmReader halfReader(film, 0.5);
    const ReadFilm half(readAll(halfReader, film->sizeBytes()));
    EXPECT_EQ(half.blocks, read.blocks);
    EXPECT_EQ(half.unitNs, 2'000'000);
    EXPECT_EQ(read.unitNs, 1'000'000);

    const auto keys = film->keyPictures(264);
    FilmReader keyReader(keys);
    const ReadFilm readKeys(readAll(keyReader, keys->sizeBytes()));
    EXPECT_TRUE(std::ranges::all_of(readKeys.blocks, &Block::isKey));
    std::vector<std::int64_t> keyTimes = times(readKeys.blocks, 1);
    keyTimes.resize(17);
    EXPECT_THAT(keyTimes, ElementsAre(0, 500, 1000, 1500, 2000, 2333, 2666, 3000, 3500, 3766, 4033, 4300,
                                      4566, 4833, 5100, 5366, 5633));
}

TEST_F(VirtualFilmTest, TellsWhichClipCannotBeReadAnyMore)
{
    for (int i = 0; i < 3; ++i)
        m_builder.append(path(i), makeClip(i, 30, 10), i * 1000);
    const auto film = m_builder.finish();
    std::filesystem::resize_file(path(1), 900);
    std::filesystem::remove(path(2));
    FilmReader reader(film);
    Bytes all(film->sizeBytes());
    const std::size_t count = reader.readAt(0, std::as_writable_bytes(std::span(all)));
    EXPECT_LT(count, all.size() * 2 / 3);
    ASSERT_TRUE(reader.fault());
    EXPECT_EQ(reader.fault()->clip, 1);
    EXPECT_EQ(reader.fault()->errorNumber, 0);
    for (std::size_t at = count + 1; !reader.fault() || reader.fault()->clip == 1; at += 50) {
        ASSERT_LT(at, all.size());
        reader.readAt(at, std::as_writable_bytes(std::span(all).first(50)));
    }
    EXPECT_EQ(reader.fault()->clip, 2);
    EXPECT_EQ(reader.fault()->errorNumber, ENOENT);
    reader.readAt(0, std::as_writable_bytes(std::span(all).first(50)));
    EXPECT_FALSE(reader.fault());
}

TEST_F(VirtualFilmTest, TakesOnlyWhatAPlayerCanGoOnWith)
{
    const ClipIndex first = makeClip(0, 30, 10);
    m_builder.append(path(0), first, 0);
    EXPECT_TRUE(m_builder.fits(makeClip(1, 10, 10)));
    EXPECT_FALSE(m_builder.fits(makeClip(1, 10, 10, 5, 65))) << "another width";
    ClipIndex other = first;
    other.streams[0].format[16] = 'M';
    EXPECT_FALSE(m_builder.fits(other)) << "another codec";
    other = first;
    other.streams[1].format[4] ^= 1;
    EXPECT_FALSE(m_builder.fits(other)) << "another rate of sound";
    other.streams.pop_back();
    EXPECT_TRUE(m_builder.fits(other)) << "without sound the film goes on in silence";

    // What a header may claim.
    const auto lengthWith = [&](std::uint32_t scale, std::uint32_t rate) {
        other.streams[0].scale = scale;
        other.streams[0].rate = rate;
        return VirtualFilmBuilder::lengthMs(other);
    };
    EXPECT_EQ(lengthWith(1001, 30000), 1001);
    EXPECT_EQ(lengthWith(1'000'000'000, 4'000'000'000), 7500);
    EXPECT_EQ(lengthWith(0, 30), 0);
    EXPECT_EQ(lengthWith(1, 0), 0);
    EXPECT_EQ(lengthWith(1, 0xFFFF'FFFF), 0);
    EXPECT_EQ(lengthWith(0xFFFF'FFFF, 1), 0);
    other = first;
    for (ClipChunk& chunk : other.chunks)
        chunk.size = chunk.stream == 0 ? 0 : 0xFFFF'FFFF;
    EXPECT_FALSE(VirtualFilmBuilder::isPlayable(other));
    EXPECT_FALSE(VirtualFilmBuilder::isPlayable({}));
}
