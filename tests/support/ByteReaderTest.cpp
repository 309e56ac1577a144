// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/ByteReader.h"
#include "support/FileSource.h"
#include "support/Utf8.h"
#include "TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace marvo {
namespace {

TEST(ByteReader, ReadsNumbersAndRemembersAShortage)
{
    const std::string raw("\x01\x02\x03\x04\xFE\xFF\x00\x00\x00\x00\x00\x00\xF0\x3F\x80\x01\x02", 17);
    ByteReader reader(raw.data(), raw.size());
    EXPECT_EQ(reader.littleEndian<std::uint16_t>(), 0x0201);
    EXPECT_EQ(reader.bigEndian<std::uint16_t>(), 0x0304);
    EXPECT_EQ(reader.littleEndian<std::int16_t>(), -2);
    EXPECT_EQ(reader.littleEndian<double>(), 1.0);
    EXPECT_EQ(reader.littleEndian<std::int8_t>(), -128);
    EXPECT_EQ(reader.remaining(), 2U);
    EXPECT_TRUE(reader.ok());
    EXPECT_EQ(reader.littleEndian<std::uint32_t>(), 0U);
    EXPECT_FALSE(reader.ok());
    EXPECT_EQ(reader.littleEndian<std::uint8_t>(), 0) << "after a shortage nothing fits any more";
    EXPECT_FALSE(reader.ok());

    ByteReader skipping(raw.data(), raw.size());
    skipping.skip(std::numeric_limits<std::size_t>::max());
    EXPECT_FALSE(skipping.ok());
}

TEST(Utf8, TellsWellFormedText)
{
    for (const char* text : {"", "plain", "\xEC\xB9\xB4\xEB\xA9\x94\xEB\x9D\xBC", "\xF0\x9F\x9A\x97",
                             "\xF4\x8F\xBF\xBF", "0123456789abcdef\xE2\x82\xAC"})
        EXPECT_TRUE(isValidUtf8(text)) << testing::PrintToString(text);
    // Above U+10FFFF, overlong, a surrogate, lone bytes, cut short.
    for (const char* text : {"\xF4\x90\x80\x80", "\xC0\x80", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
                             "\xED\xA0\x80", "\x80", "\xFF", "a\xC3", "0123456789abcdef\xE2\x82"})
        EXPECT_FALSE(isValidUtf8(text)) << testing::PrintToString(text);
    EXPECT_EQ(utf8Length("a\xC3\xA9\xF0\x9F\x9A\x97z"), 4U);
    EXPECT_EQ(utf8Length("a\xFF\xC3"), 3U);
}

std::string read(FileSource& file, std::uint64_t offset, std::size_t count)
{
    std::string text(count, '?');
    text.resize(file.readAt(offset, std::as_writable_bytes(std::span(text))));
    return text;
}

TEST(FileSource, ReadsAnywhereInARegularFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.path("file");
    const int descriptor = ::open(path.c_str(), O_CREAT | O_RDWR, 0600);
    ASSERT_EQ(::write(descriptor, "0123456789", 10), 10);
    FileSource file(path);
    EXPECT_TRUE(file.isOpen());
    EXPECT_EQ(read(file, 3, 4), "3456");
    EXPECT_EQ(read(file, 8, 4), "89");
    EXPECT_EQ(read(file, std::numeric_limits<std::uint64_t>::max(), 4), "");
    EXPECT_EQ(file.error(), "");

    ASSERT_EQ(::lseek(descriptor, 4, SEEK_SET), 4);
    FileSource rest(descriptor);
    EXPECT_EQ(read(rest, 0, 99), "456789") << "a descriptor is read from where it stands";
}

TEST(FileSource, TakesNothingElseAndNeverWaits)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    const std::pair<std::string, std::string> cases[] = {
        {folder.path("pipe"), "Not a regular file"},
        {"/dev/zero", "Not a regular file"},
        {folder.path(), "Is a directory"},
        {folder.path("nothing"), "No such file or directory"},
        {"", "No such file or directory"}};
    for (const auto& [path, error] : cases) {
        FileSource file(path);
        EXPECT_FALSE(file.isOpen()) << path;
        EXPECT_EQ(file.error(), error) << path;
        EXPECT_EQ(read(file, 0, 10), "") << path;
    }
}

} // namespace
} // namespace marvo
