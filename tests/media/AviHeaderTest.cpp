// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/AviHeader.h"
#include "demo/Recording.h"
#include "recording/RecordingBytes.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

using namespace marvo;

namespace {

class AviHeaderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_FALSE(demo::writeRecording(m_folder.path("film.avi"), {})); // 20 frames, 10 a second
        m_whole = m_folder.read("film.avi");
    }

    std::variant<AviHeader, AviFault> read(const std::string& bytes) const
    {
        return readAviHeader(m_folder.write("film.avi", bytes));
    }
    /// The whole film with one number written over, so many bytes after the first appearance of an id.
    std::string with(const std::string& id, std::size_t distance, std::uint32_t value) const
    {
        std::string bytes = m_whole;
        return bytes.replace(bytes.find(id) + distance, 4, test::Bytes().number(value).data);
    }

    test::TemporaryFolder m_folder;
    std::string m_whole;
};

} // namespace

TEST_F(AviHeaderTest, TellsWhatPlayingNeeds)
{
    const auto header = std::get<AviHeader>(read(m_whole));
    EXPECT_EQ(header.durationMs, 2000);
    EXPECT_EQ(header.streamDurationMs, 2000);
    EXPECT_EQ(std::string(header.videoCodec.data(), 4), "MJPG");
    EXPECT_EQ(header.width, 160U);
    EXPECT_EQ(header.height, 120U);
    EXPECT_EQ(header.audioStreams, 1);
    EXPECT_TRUE(header.hasIndex);
    // A length found by going through the file is cut down to whole seconds; one that is far off is believed.
    EXPECT_EQ(header.durationMsBeside(0), 2000);
    EXPECT_EQ(header.durationMsBeside(1000), 2000);
    EXPECT_EQ(header.durationMsBeside(9000), 9000);
}

TEST_F(AviHeaderTest, CutAnywhereItEndsWithAnAnswer)
{
    const std::size_t movie = m_whole.find("movi");
    for (std::size_t size = 0; size < movie + 40; size += size < 100 ? 1 : 3) {
        const auto result = read(m_whole.substr(0, size));
        const AviFault* fault = std::get_if<AviFault>(&result);
        if (size == 0)
            EXPECT_EQ(*fault, AviFault::Empty);
        else if (size < 12)
            EXPECT_EQ(*fault, AviFault::NotAvi) << size;
        else if (fault != nullptr)
            EXPECT_EQ(*fault, AviFault::NoVideo) << size;
        else
            EXPECT_FALSE(std::get<AviHeader>(result).hasIndex) << size;
    }
    // Anywhere in the index: it is not there for a player.
    EXPECT_FALSE(std::get<AviHeader>(read(m_whole.substr(0, m_whole.size() - 1))).hasIndex);
}

TEST_F(AviHeaderTest, NumbersOutOfAllProportionTellNoDuration)
{
    const std::size_t body = 8;
    auto header = std::get<AviHeader>(read(with("avih", body, 0xFFFF'FFFF)));
    EXPECT_EQ(header.durationMs, 85'899'346); // a day: allowed
    header = std::get<AviHeader>(read(with("avih", body + 16, 0xFFFF'FFFF)));
    EXPECT_EQ(header.durationMs, 0);
    EXPECT_EQ(header.durationMsBeside(0), 2000) << "the stream's own length stands in";
    header = std::get<AviHeader>(read(with("strh", body + 24, 0)));
    EXPECT_EQ(header.streamDurationMs, 0);
    header = std::get<AviHeader>(read(with("strh", body + 20, 0xFFFF'FFFF)));
    EXPECT_EQ(header.streamDurationMs, 0);
    EXPECT_TRUE(std::holds_alternative<AviFault>(read(with("hdrl", -4, 4)))); // a list without a body
    EXPECT_TRUE(std::holds_alternative<AviHeader>(read(with("LIST", 4, 0xFFFF'FFFF))));
}

TEST_F(AviHeaderTest, SpoiltBytesNeverHarm)
{
    std::mt19937 random(7);
    const std::size_t end = m_whole.find("movi") + 64;
    for (int i = 0; i < 500; ++i) {
        std::string bytes = m_whole.substr(0, end);
        for (int k = 0; k < 8; ++k)
            bytes[random() % end] = static_cast<char>(random());
        const auto result = read(bytes);
        if (const auto* header = std::get_if<AviHeader>(&result)) {
            EXPECT_GE(header->durationMs, 0);
            EXPECT_GE(header->durationMsBeside(0), 0);
        }
    }
}
