// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/WorkControl.h"
#include "cli/RunCli.h"
#include "evidence/BagCheck.h"
#include "evidence/BagWriter.h"
#include "support/ByteSource.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include <sys/stat.h>

namespace marvo {

namespace {

class PackageTest : public testing::Test
{
protected:
    PackageTest()
    {
        BagWriter writer(m_control);
        EXPECT_FALSE(writer.open(m_bag));
        EXPECT_FALSE(writer.add("recordings/a.avi", "bytes of a"));
        EXPECT_FALSE(writer.add("readings.csv", ""));
        EXPECT_FALSE(writer.commit({{"External-Description", "two\nlines"}}));
        m_fingerprint = writer.fingerprint();
    }

    BagCheckResult check() { return checkBag(m_bag, std::nullopt, m_control); }

    test::TemporaryFolder m_folder;
    std::string m_bag = m_folder.path("bag");
    WorkControl m_control;
    Sha256Sum m_fingerprint{};
};

TEST_F(PackageTest, othersAcceptIt)
{
    EXPECT_TRUE(check().holds());
    EXPECT_EQ(check().asPacked, 5U);
    EXPECT_TRUE(checkBag(m_bag, m_fingerprint, m_control).holds());
    EXPECT_EQ(std::system(("cd " + m_bag +
                           " && sha256sum -c --strict --quiet manifest-sha256.txt && "
                           "sha256sum -c --strict --quiet tagmanifest-sha256.txt")
                              .c_str()),
              0);
    const test::CliRun run = test::runCli({"verify", m_bag, "--fingerprint", hexText(m_fingerprint)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, testing::HasSubstr(hexText(m_fingerprint)));
    EXPECT_EQ(test::runCli({"verify", m_bag, "--fingerprint", std::string(64, '0')}).exitCode, 1);
    EXPECT_EQ(test::runCli({"verify", m_bag, "--fingerprint", "12"}).exitCode, 2);
}

TEST_F(PackageTest, everyBitThatFlipsIsFound)
{
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_bag)) {
        if (!entry.is_regular_file())
            continue;
        const std::string name = entry.path().string().substr(m_folder.path().size() + 1);
        const std::string content = m_folder.read(name);
        for (std::size_t bit = 0; bit < content.size() * 8; ++bit) {
            std::string flipped = content;
            flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
            m_folder.write(name, flipped);
            ASSERT_FALSE(check().holds()) << name << " bit " << bit;
        }
        m_folder.write(name, content);
    }
    EXPECT_TRUE(check().holds());
}

TEST_F(PackageTest, whatIsDoneToItIsFound)
{
    const std::string manifest = m_folder.read("bag/manifest-sha256.txt");
    const std::pair<const char*, std::function<void()>> attempts[] = {
        {"added", [&] { m_folder.write("bag/data/x", "x"); }},
        {"added tag file", [&] { m_folder.write("bag/x.txt", "x"); }},
        {"removed", [&] { std::filesystem::remove(m_folder.path("bag/data/readings.csv")); }},
        {"no list", [&] { std::filesystem::remove(m_folder.path("bag/manifest-sha256.txt")); }},
        {"link in place of a file",
         [&] {
             std::filesystem::rename(m_folder.path("bag/data/recordings/a.avi"), m_folder.path("a.avi"));
             std::filesystem::create_symlink(m_folder.path("a.avi"),
                                             m_folder.path("bag/data/recordings/a.avi"));
         }},
        {"link in place of a folder",
         [&] {
             std::filesystem::rename(m_folder.path("bag/data/recordings"), m_folder.path("r"));
             std::filesystem::create_symlink(m_folder.path("r"), m_folder.path("bag/data/recordings"));
         }},
        {"pipe", [&] { ::mkfifo(m_folder.path("bag/data/pipe").c_str(), 0600); }},
        {"pipe in place of a list",
         [&] {
             std::filesystem::remove(m_folder.path("bag/manifest-sha256.txt"));
             ::mkfifo(m_folder.path("bag/manifest-sha256.txt").c_str(), 0600);
         }},
        {"path upward",
         [&] {
             m_folder.write("bag/manifest-sha256.txt", manifest + manifest.substr(0, 66) + "data/../../a\n");
         }},
        {"listed twice", [&] { m_folder.write("bag/manifest-sha256.txt", manifest + manifest); }},
    };
    const std::string whole = m_folder.path("whole");
    std::filesystem::copy(m_bag, whole, std::filesystem::copy_options::recursive);
    for (const auto& [name, change] : attempts) {
        // Also where the tag files have no sums.
        for (const bool hasTagList : {true, false}) {
            std::filesystem::remove_all(m_bag);
            std::filesystem::copy(whole, m_bag, std::filesystem::copy_options::recursive);
            if (!hasTagList)
                std::filesystem::remove(m_folder.path("bag/tagmanifest-sha256.txt"));
            EXPECT_TRUE(check().holds());
            EXPECT_EQ(checkBag(m_bag, m_fingerprint, m_control).holds(), hasTagList);
            change();
            EXPECT_TRUE(!check().holds() || (!hasTagList && name == std::string_view("added tag file")))
                << name;
            for (const char* aside : {"a.avi", "r"})
                std::filesystem::remove_all(m_folder.path(aside));
        }
    }
}

TEST_F(PackageTest, isThereWholeOrNotAtAll)
{
    const auto entries = [this] {
        return std::distance(std::filesystem::directory_iterator(m_folder.path()), {});
    };
    const auto before = entries();
    MemorySource tooShort(std::as_bytes(std::span("short")));
    const std::pair<const char*, std::function<std::error_code(BagWriter&)>> failures[] = {
        {"source ends", [&](BagWriter& writer) { return writer.add("a", tooShort, 100); }},
        {"upward", [](BagWriter& writer) { return writer.add("../a", "x"); }},
        {"hidden", [](BagWriter& writer) { return writer.add(".a", "x"); }},
        {"not ASCII", [](BagWriter& writer) { return writer.add("\xC3\xA4", "x"); }},
        {"twice", [](BagWriter& writer) { return writer.add("b", "y"); }},
    };
    for (const auto& [name, fail] : failures) {
        BagWriter writer(m_control);
        EXPECT_FALSE(writer.open(m_folder.path("new")));
        EXPECT_FALSE(writer.add("b", "x"));
        EXPECT_TRUE(fail(writer)) << name;
        EXPECT_TRUE(writer.commit({})) << name;
    }
    EXPECT_EQ(entries(), before);
    BagWriter again(m_control);
    EXPECT_EQ(again.open(m_bag), std::errc::file_exists);
    EXPECT_TRUE(check().holds());
}

} // namespace

} // namespace marvo
