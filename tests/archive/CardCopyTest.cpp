// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/CardCopy.h"
#include "archive/Archive.h"
#include "archive/ArchiveCheck.h"
#include "archive/ArchiveLayout.h"
#include "archive/Gate.h"
#include "archive/WorkControl.h"
#include "cli/RunCli.h"
#include "MountedFolder.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include <sys/stat.h>

namespace marvo {

namespace {

using testing::IsEmpty;

class CardCopyTest : public testing::Test
{
protected:
    CardCopyResult copy() { return copyTo({"archive"}); }

    CardCopyResult copyTo(const std::vector<std::string>& names)
    {
        CardCopyOptions options{
            .card = m_folder.makeFolder("card"), .car = "car", .archives = {}, .cardIdentifier = {}};
        for (const std::string& name : names)
            options.archives.push_back(m_folder.path(name));
        return copyCard(options, m_control, m_onProgress);
    }

    ArchiveCheckResult check() { return checkArchive(m_folder.path("archive"), m_control); }

    GateResult gate()
    {
        return compareWithArchives(m_folder.path("card"), "car", {m_folder.path("archive")}, m_control,
                                   m_onGate);
    }

    /// What is found, as "kind path".
    std::vector<std::string> findings()
    {
        constexpr const char* kinds[] = {"changed",      "missing",      "added",   "unreadable",
                                         "list-missing", "list-damaged", "in-part", "deleted"};
        std::vector<std::string> texts;
        for (const ArchiveFinding& finding : check().findings)
            texts.push_back(std::string(kinds[static_cast<int>(finding.what)]) + " " + finding.path);
        return texts;
    }

    /// What sha256sum says to each list of the archive.
    bool doSumsHold() const
    {
        return std::system(
                   ("cd '" + m_folder.path("archive") +
                    "' && find . -name SHA256SUMS -not -path '*/~*' | while read -r f; do (cd \"${f%/*}\" && "
                    "sha256sum -c --strict --quiet SHA256SUMS) || exit 1; done")
                       .c_str()) == 0;
    }

    test::TemporaryFolder m_folder;
    WorkControl m_control;
    std::function<void(const CardCopyProgress&)> m_onProgress;
    std::function<void(const GateProgress&)> m_onGate;
};

TEST_F(CardCopyTest, everyRegularFileGoesToItsDay)
{
    const std::string day = "2026/2026-01-02/";
    const std::pair<std::string, std::string> places[] = {
        {"AlwaysMovie/alwa_20260102_030405_F.avi", day},
        {"MotionMovie/motion_20260102_030405_R.avi", day}, // not a name that the list takes
        {"EventMovie/20260102030405.tmp", day},
        {"x/20260102/alwa_20261302_030405.avi", "undated/"}, // no such month; folders do not count
        {"a_020260102.avi", "undated/"},
        {"config.bin", "undated/"},
        {"empty", "undated/"},
        {".hidden/\xFF\x01 file", "undated/"},
        {"new\nline and back\\slash\r", "undated/"},
        {".Trash-1000/files/event_20260102_000000.avi", day},
    };
    for (const auto& [name, place] : places)
        m_folder.write("card/" + name, name == "empty" ? "" : "content of " + name);
    m_folder.write("card/SHA256SUMS", "a file of the card");
    std::filesystem::create_symlink("/etc/passwd", m_folder.path("card/link"));
    std::filesystem::create_symlink("..", m_folder.path("card/folder-link"));
    ASSERT_EQ(::mkfifo(m_folder.path("card/pipe").c_str(), 0600), 0);
    const timespec times[2] = {{.tv_sec = 1'000'000'000, .tv_nsec = 0},
                               {.tv_sec = 1'111'111'111, .tv_nsec = 5}};
    ::utimensat(AT_FDCWD, m_folder.path("card/config.bin").c_str(), times, 0);

    const CardCopyResult result = copyTo({"archive", "second"});
    EXPECT_EQ(result.files, std::size(places) + 1);
    EXPECT_EQ(result.problems.size(), 3U); // the links and the pipe
    for (const auto& [name, place] : places) {
        EXPECT_EQ(m_folder.read("archive/car/" + place + name), m_folder.read("card/" + name)) << name;
        EXPECT_EQ(m_folder.read("second/car/" + place + name), m_folder.read("card/" + name)) << name;
    }
    EXPECT_EQ(m_folder.read("archive/car/undated/~2/SHA256SUMS"), "a file of the card");
    struct stat facts;
    ASSERT_EQ(::stat(m_folder.path("archive/car/undated/config.bin").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mtim.tv_sec, 1'111'111'111);
    EXPECT_TRUE(doSumsHold());
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_EQ(result.archives[0].notReadAgain, 0U);
    // Links are in no archive.
    EXPECT_FALSE(gate().isOpen());
    for (const char* name : {"card/link", "card/folder-link", "card/pipe"})
        std::filesystem::remove(m_folder.path(name));
    EXPECT_TRUE(gate().isOpen());
}

TEST_F(CardCopyTest, nothingIsWrittenTwiceAndNothingOverwritten)
{
    m_folder.write("card/config.bin", "one");
    m_folder.write("card/EventMovie/event_20260102_030405.avi", "event");
    EXPECT_TRUE(copy().isComplete());
    EXPECT_EQ(copy().archives[0].copied, 0U);
    for (const char* content : {"two", "six", "one", "two"}) {
        m_folder.write("card/config.bin", content);
        EXPECT_TRUE(copy().isComplete());
    }
    EXPECT_EQ(m_folder.read("archive/car/undated/config.bin"), "one");
    EXPECT_EQ(m_folder.read("archive/car/undated/~2/config.bin"), "two");
    EXPECT_EQ(m_folder.read("archive/car/undated/~3/config.bin"), "six");
    EXPECT_FALSE(std::filesystem::exists(m_folder.path("archive/car/undated/~4")));
    // A file that the user put there, and one that went.
    m_folder.write("archive/car/undated/own.txt", "mine");
    m_folder.write("card/own.txt", "yours");
    std::filesystem::remove(
        m_folder.path("archive/car/2026/2026-01-02/EventMovie/event_20260102_030405.avi"));
    EXPECT_TRUE(copy().isComplete());
    EXPECT_EQ(m_folder.read("archive/car/undated/own.txt"), "mine");
    EXPECT_EQ(m_folder.read("archive/car/undated/~2/own.txt"), "yours");
    EXPECT_THAT(findings(), testing::ElementsAre("added car/undated/own.txt"));
    EXPECT_TRUE(doSumsHold());
}

TEST_F(CardCopyTest, foldersThatLieWithinEachOtherAreRefused)
{
    m_folder.write("card/sub/file", "content");
    for (const auto& archives : std::vector<std::vector<std::string>>{
             {"card"}, {"card/new"}, {"card/sub"}, {"."}, {"archive", "archive"}, {"missing/archive"}, {}}) {
        EXPECT_EQ(copyTo(archives).end, CardCopyResult::End::NotBegun);
    }
    EXPECT_FALSE(std::filesystem::exists(m_folder.path("card/new")));
    EXPECT_FALSE(std::filesystem::exists(m_folder.path("card/.marvo")));
    EXPECT_FALSE(std::filesystem::exists(m_folder.path("missing")));
}

TEST_F(CardCopyTest, twoCopiesAtOnceShareAnArchive)
{
    for (int i = 0; i < 200; ++i) {
        m_folder.write("card/a" + std::to_string(i), "same " + std::to_string(i));
        m_folder.write("card2/a" + std::to_string(i),
                       i % 2 == 0 ? "same " + std::to_string(i) : "other " + std::to_string(i));
    }
    std::jthread other([this] {
        WorkControl control;
        EXPECT_TRUE(copyCard({.card = m_folder.path("card2"),
                              .car = "car",
                              .archives = {m_folder.path("archive")},
                              .cardIdentifier = {}},
                             control)
                        .isComplete());
    });
    EXPECT_TRUE(copy().isComplete());
    other.join();
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_EQ(check().asCopied, 300U);
    EXPECT_TRUE(doSumsHold());
    EXPECT_TRUE(gate().isOpen());
}

TEST_F(CardCopyTest, aCancelledCopyGoesOn)
{
    for (int i = 0; i < 50; ++i)
        m_folder.write("card/" + std::to_string(i), std::string(3'000'000, static_cast<char>('a' + i % 20)));
    std::stop_source stop;
    WorkControl control(stop.get_token());
    const CardCopyOptions options{.card = m_folder.path("card"),
                                  .car = "car",
                                  .archives = {m_folder.path("archive")},
                                  .cardIdentifier = {}};
    const CardCopyResult cancelled = copyCard(options, control, [&](const CardCopyProgress& progress) {
        if (progress.files == 30)
            stop.request_stop();
    });
    EXPECT_EQ(cancelled.end, CardCopyResult::End::Cancelled);
    EXPECT_THAT(findings(), IsEmpty());
    const CardCopyResult rest = copy();
    EXPECT_TRUE(rest.isComplete());
    EXPECT_EQ(rest.archives[0].there, cancelled.archives[0].copied);
    EXPECT_GT(cancelled.archives[0].copied, 0U);
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(CardCopyTest, anArchiveThatIsFullOrReadOnlyIsTold)
{
    test::mountForThisProcessAlone();
    m_folder.write("card/EventMovie/event_20260102_030405.avi", std::string(9'000, 'e'));
    m_folder.write("card/AlwaysMovie/alwa_20260102_030405_F.avi", std::string(99'000, 'a'));
    {
        test::MountedFolder small(m_folder.makeFolder("archive"));
        if (!small.isMounted)
            GTEST_SKIP() << "needs the rights of an administrator";
        const CardCopyResult result = copyTo({"archive", "second"});
        EXPECT_FALSE(result.isComplete());
        EXPECT_EQ(result.archives[0].error, std::errc::no_space_on_device);
        EXPECT_EQ(result.archives[0].copied, 1U); // the event, which goes first
        EXPECT_EQ(result.archives[1].copied, 2U);
        EXPECT_THAT(findings(), IsEmpty());
        ASSERT_TRUE(small.makeReadOnly());
        EXPECT_EQ(copy().end, CardCopyResult::End::NotBegun);
        EXPECT_THAT(findings(), IsEmpty());
    }
}

TEST_F(CardCopyTest, whatIsDoneToAnArchiveIsFound)
{
    const std::string day = "car/2026/2026-01-02/";
    for (const char* name : {"changed", "flipped", "missing", "shorter", "linked"})
        m_folder.write("card/" + std::string(name) + "_20260102.avi", "content of " + std::string(name));
    m_folder.write("card/alone_20260103.avi", "content");
    EXPECT_TRUE(copy().isComplete());
    const std::string list = m_folder.read("archive/" + day + "SHA256SUMS");
    m_folder.write("archive/" + day + "changed_20260102.avi", "content of CHANGED");
    m_folder.write("archive/" + day + "shorter_20260102.avi", "content");
    std::filesystem::remove(m_folder.path("archive/" + day + "missing_20260102.avi"));
    std::filesystem::rename(m_folder.path("archive/" + day + "linked_20260102.avi"),
                            m_folder.path("elsewhere"));
    std::filesystem::create_symlink(m_folder.path("elsewhere"),
                                    m_folder.path("archive/" + day + "linked_20260102.avi"));
    m_folder.write("archive/note.txt", "added");
    m_folder.write("archive/" + day + "sub/note.txt", "added");
    m_folder.write("archive/.Trash-1000/files/x", "no part of it");
    std::filesystem::remove_all(m_folder.path("archive/car/2026/2026-01-03"));
    m_folder.write("archive/" + day + "SHA256SUMS",
                   list + std::string(64, '0') + "  ../../../../card/config.bin\nnonsense\n");
    EXPECT_THAT(findings(),
                testing::ElementsAre(
                    "list-damaged " + day + "SHA256SUMS", "changed " + day + "changed_20260102.avi",
                    "changed " + day + "linked_20260102.avi", "missing " + day + "missing_20260102.avi",
                    "changed " + day + "shorter_20260102.avi", "added " + day + "sub/note.txt",
                    "list-missing car/2026/2026-01-03/SHA256SUMS", "added note.txt"));
    // Lines that cannot be read stay when others are merged in.
    m_folder.write("card/new_20260102.avi", "new");
    copy();
    EXPECT_THAT(m_folder.read("archive/" + day + "SHA256SUMS"), testing::HasSubstr("nonsense\n"));
}

/// A way in which somebody could lose a file by formatting the card.
struct GateAttempt
{
    const char* name;
    std::function<void(const test::TemporaryFolder&)> change;
};

const std::string recording = "EventMovie/event_20260102_030405.avi";

void keepTimes(const std::string& file, const std::function<void()>& change)
{
    struct stat facts;
    ::stat(file.c_str(), &facts);
    change();
    const timespec times[2] = {facts.st_atim, facts.st_mtim};
    ::utimensat(AT_FDCWD, file.c_str(), times, 0);
}

const GateAttempt attempts[] = {
    {"changedOnTheCard", [](const auto& folder) { folder.write("card/" + recording, "longer than before"); }},
    {"sameSizeAndTime",
     [](const auto& folder) {
         keepTimes(folder.path("card/" + recording), [&] { folder.write("card/" + recording, "EVENT"); });
     }},
    {"damagedInTheArchive",
     [](const auto& folder) {
         const std::string copy = "archive/car/2026/2026-01-02/" + recording;
         keepTimes(folder.path(copy), [&] { folder.write(copy, "evenT"); });
     }},
    {"goneFromTheArchive",
     [](const auto& folder) {
         std::filesystem::remove(folder.path("archive/car/2026/2026-01-02/" + recording));
     }},
    {"linkInTheArchive",
     [](const auto& folder) {
         const std::string copy = folder.path("archive/car/2026/2026-01-02/" + recording);
         std::filesystem::remove(copy);
         std::filesystem::create_symlink(folder.path("card/" + recording), copy);
     }},
    {"newFile", [](const auto& folder) { folder.write("card/x", ""); }},
    {"folderThatCannotBeEntered",
     [](const auto& folder) {
         std::string deep = "card";
         for (int depth = 0; depth < 70; ++depth)
             deep += "/d";
         folder.write(deep + "/file", "x");
     }},
};

class GateTest : public CardCopyTest, public testing::WithParamInterface<GateAttempt>
{};

TEST_P(GateTest, staysShut)
{
    m_folder.write("card/" + recording, "event");
    m_folder.write("card/z_20260102.avi", "z");
    ASSERT_TRUE(copy().isComplete());
    ASSERT_TRUE(gate().isOpen());
    GetParam().change(m_folder);
    EXPECT_FALSE(gate().isOpen());
}

TEST_P(GateTest, staysShutWhenItHappensMeanwhile)
{
    const std::string_view name = GetParam().name;
    if (name.ends_with("Archive") || name == "sameSizeAndTime")
        GTEST_SKIP() << "was compared before";
    m_folder.write("card/" + recording, "event");
    m_folder.write("card/z_20260102.avi", "z");
    ASSERT_TRUE(copy().isComplete());
    m_onGate = [this, done = false](const GateProgress& progress) mutable {
        if (progress.path.starts_with("z") && !std::exchange(done, true))
            GetParam().change(m_folder);
    };
    EXPECT_FALSE(gate().isOpen());
}

INSTANTIATE_TEST_SUITE_P(Attempts, GateTest, testing::ValuesIn(attempts),
                         [](const auto& attempt) { return std::string(attempt.param.name); });

TEST(ArchiveCommand, CopiesComparesAndVerifies)
{
    const test::TemporaryFolder folder;
    folder.write("card/a_20260102.avi", "content");
    const std::string card = folder.path("card");
    const std::string archive = folder.path("archive");
    EXPECT_EQ(test::runCli({"archive", "copy", card, archive}).exitCode, 2); // whose car?
    EXPECT_EQ(test::runCli({"archive", "copy", card, archive, "--car", "../x"}).exitCode, 2);
    EXPECT_EQ(test::runCli({"archive", "copy", card, archive, "--car", "12GA3456"}).exitCode, 0);
    EXPECT_EQ(test::runCli({"archive", "compare", card, archive, "--car", "12GA3456"}).exitCode, 0);
    EXPECT_EQ(test::runCli({"archive", "verify", archive}).exitCode, 0);
    folder.write("archive/12GA3456/2026/2026-01-02/a_20260102.avi", "CONTENT");
    EXPECT_EQ(test::runCli({"archive", "compare", card, archive, "--car", "12GA3456"}).exitCode, 1);
    const test::CliRun verified = test::runCli({"archive", "verify", archive});
    EXPECT_EQ(verified.exitCode, 1);
    EXPECT_THAT(verified.output, testing::HasSubstr("Changed     12GA3456/2026/2026-01-02/a_20260102.avi"));
    EXPECT_EQ(test::runCli({"archive", "verify", folder.path("none")}).exitCode, 1);
}

} // namespace

} // namespace marvo
