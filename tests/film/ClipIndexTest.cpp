// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/ClipIndexReading.h"

#include <gmock/gmock.h>

#include <cstring>
#include <string>

using namespace marvo;

namespace {

std::string number(std::size_t value)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>(value >> 8 * i);
    return bytes;
}

std::string chunk(const std::string& id, const std::string& body)
{
    return id + number(body.size()) + body + std::string(body.size() & 1, '\0');
}

std::string list(const std::string& kind, const std::string& body) { return chunk("LIST", kind + body); }

std::string stream(const std::string& kind, std::size_t length)
{
    return list("strl", chunk("strh", kind + std::string(16, '\0') + number(1) + number(30) + number(0) +
                                          number(length) + std::string(12, '\0')) +
                            chunk("strf", std::string(40, 'f')));
}

const std::string KeyPicture("\0\0\0\1\x67 key", 9);
const std::string OtherPicture("\0\0\0\1\x41 other", 11); // its unit is no key picture's

struct Parts
{
    int pictures = 4; ///< the first and every second after it a key picture
    std::size_t told = 4;
    bool hasIndex = true;
    bool countsFromFile = false;
    int flags = -1;          ///< of all rows; -1: as they are
    std::string second = {}; ///< a further RIFF part
};

std::string film(const Parts& parts)
{
    const std::string start =
        list("hdrl", stream("vids", parts.told) + stream("auds", 9)) + chunk("JUNK", "odd");
    std::string movie;
    std::string rows;
    for (int i = 0; i < parts.pictures; ++i) {
        for (const char* id : {"00dc", "01wb"}) {
            const bool isPicture = id[1] == '0';
            const std::string body = !isPicture ? "sound" : i % 2 == 0 ? KeyPicture : OtherPicture;
            const std::size_t base = parts.countsFromFile ? 12 + start.size() + 8 : 0;
            const bool isKey = parts.flags < 0 ? !isPicture || i % 2 == 0 : parts.flags > 0;
            rows += id + number(isKey ? 0x10 : 0) + number(base + 4 + movie.size()) + number(body.size());
            movie += chunk(id, body);
        }
    }
    const std::string body = start + list("movi", movie) + (parts.hasIndex ? chunk("idx1", rows) : "");
    return chunk("RIFF", "AVI " + body) + parts.second;
}

ClipIndex read(const std::string& bytes)
{
    MemorySource source(std::as_bytes(std::span(bytes)));
    return readClipIndex(source, bytes.size());
}

/// The chunks as text: what stands in the file where each is said to be, key pictures in capitals.
std::string chunksOf(const std::string& bytes)
{
    std::string text;
    for (const ClipChunk& one : read(bytes).chunks) {
        const std::string body = bytes.substr(one.offset, one.size);
        const bool isPicture = one.stream == 0 && (body == KeyPicture || body == OtherPicture);
        text += isPicture ? (one.isKey ? "K" : "o") : one.stream == 1 && body == "sound" ? "s" : "?";
    }
    return text;
}

} // namespace

TEST(ClipIndexTest, FindsEveryChunkHoweverTheFilmIsIndexed)
{
    EXPECT_EQ(chunksOf(film({})), "KsosKsos");
    EXPECT_EQ(chunksOf(film({.countsFromFile = true})), "KsosKsos");
    EXPECT_EQ(chunksOf(film({.hasIndex = false})), "KsosKsos");
    EXPECT_EQ(chunksOf(film({.flags = 1})), "KsosKsos") << "every picture marked";
    EXPECT_EQ(chunksOf(film({.flags = 0})), "KsosKsos") << "none marked";
    EXPECT_EQ(chunksOf(film({.told = 5})), "KsosKsos")
        << "an index that differs from the header is not believed";
    const std::string more =
        list("rec ", chunk("00dc", KeyPicture) + chunk("ix00", "index") + chunk("01wb", "sound"));
    EXPECT_EQ(chunksOf(film({.second = chunk("RIFF", "AVIX" + list("movi", more))})), "KsosKsosKs");
    const ClipIndex index = read(film({}));
    ASSERT_EQ(index.streams.size(), 2);
    EXPECT_EQ(index.streams[0].rate, 30);
    EXPECT_EQ(index.streams[1].kind, ClipStream::Kind::Sound);
    EXPECT_EQ(index.streams[1].format.size(), 40);
}

TEST(ClipIndexTest, GivesWhatStandsBeforeACutAndNothingBeyondTheFile)
{
    const std::string whole = film({.pictures = 30, .told = 30});
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const std::string cut = whole.substr(0, size);
        for (const ClipChunk& one : read(cut).chunks)
            ASSERT_LE(one.offset + one.size, size);
        ASSERT_THAT(chunksOf(cut), testing::Not(testing::HasSubstr("?"))) << size;
    }
    // Every number turned into the largest one, one after the other.
    for (std::size_t at = 0; at + 4 <= whole.size(); ++at) {
        std::string spoilt = whole;
        std::memset(spoilt.data() + at, 0xFF, 4);
        for (const ClipChunk& one : read(spoilt).chunks)
            ASSERT_LE(one.offset + one.size, whole.size());
    }
    EXPECT_TRUE(readClipIndex("/nowhere").chunks.empty());
}
