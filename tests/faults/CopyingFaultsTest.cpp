// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// A card is copied while each call to the system fails in turn, and while the process is killed at it.
#include "archive/ArchiveCheck.h"
#include "archive/ArchiveLayout.h"
#include "archive/CardCopy.h"
#include "archive/Gate.h"
#include "archive/WorkControl.h"
#include "faults/FaultySystem.h"
#include "support/Termination.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

namespace marvo {

namespace {

using test::faultySystem;

class CopyingFaults : public testing::Test
{
protected:
    CopyingFaults()
    {
        write("EventMovie/event_20260102_030405.avi", std::string(3'000, 'e'));
        write("AlwaysMovie/alwa_20260103_030405_F.avi", std::string(2'000, 'f'));
        write("config.bin", "new settings");
        // What an earlier copy left: another day, other settings, a recording in part.
        m_folder.write("old/config.bin", "old settings");
        EXPECT_TRUE(copy(m_folder.path("old")).isComplete());
        m_folder.write("old/EventMovie/event_20260102_030405.avi", std::string(3'000, 'e'));
        faultySystem.readableUpTo = 1'000;
        faultySystem.readError = EIO;
        EXPECT_EQ(copy(m_folder.path("old")).problems.size(), 1U);
        faultySystem = {};
        std::filesystem::copy(m_folder.path("archive"), m_folder.path("before"),
                              std::filesystem::copy_options::recursive);
        EXPECT_TRUE(copy().isComplete());
        m_calls = countCalls();
    }
    ~CopyingFaults() override { faultySystem = {}; }

    void write(const std::string& name, const std::string& bytes)
    {
        m_folder.write("card/" + name, bytes);
        m_names.push_back(name);
    }

    CardCopyResult copy(std::string card = {})
    {
        if (card.empty())
            card = m_folder.path("card");
        WorkControl control;
        return copyCard(
            {.card = card, .car = "car", .archives = {m_folder.path("archive")}, .cardIdentifier = "id"},
            control);
    }

    void reset()
    {
        faultySystem = {};
        std::filesystem::remove_all(m_folder.path("archive"));
        std::filesystem::copy(m_folder.path("before"), m_folder.path("archive"),
                              std::filesystem::copy_options::recursive);
        faultySystem = {}; // which has counted these calls
    }

    int countCalls()
    {
        reset();
        EXPECT_TRUE(copy().isComplete());
        return faultySystem.changes;
    }

    /// The archive holds now, and all of the card is in it after a second copy.
    void expectSafe(int call, const char* what)
    {
        faultySystem = {};
        SCOPED_TRACE(std::string(what) + " at call " + std::to_string(call));
        WorkControl control;
        const ArchiveCheckResult now = checkArchive(m_folder.path("archive"), control);
        for (const ArchiveFinding& finding : now.findings)
            EXPECT_FALSE(isFault(finding.what)) << finding.path << " " << static_cast<int>(finding.what);
        EXPECT_TRUE(copy().isComplete());
        const ArchiveCheckResult then = checkArchive(m_folder.path("archive"), control);
        EXPECT_TRUE(then.holds()) << then.findings.front().path;
        EXPECT_EQ(then.unfinished, 0U);
        for (const std::string& name : m_names) {
            const std::string day = m_folder.path("archive/car/" + dayFolderOf(name) + "/");
            const std::string content = m_folder.read("card/" + name);
            EXPECT_TRUE(read(day + name) == content || read(day + "~2/" + name) == content) << name;
        }
        EXPECT_EQ(read(m_folder.path("archive/car/undated/config.bin")), "old settings");
    }

    static std::string read(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    test::TemporaryFolder m_folder;
    std::vector<std::string> m_names;
    int m_calls = 0;
};

TEST_F(CopyingFaults, aKillAtAnyCallLosesNothing)
{
    ASSERT_GT(m_calls, 20);
    for (const int signal : {SIGKILL, SIGTERM}) {
        for (int call = 1; call <= m_calls; ++call) {
            reset();
            const pid_t child = ::fork();
            if (child == 0) {
                cleanUpOnTermination();
                faultySystem.signalledChange = call;
                faultySystem.signal = signal;
                ::_exit(copy().isComplete() ? 0 : 1);
            }
            int status = 0;
            ::waitpid(child, &status, 0);
            EXPECT_TRUE(WIFSIGNALED(status)) << call;
            expectSafe(call, signal == SIGKILL ? "SIGKILL" : "SIGTERM");
        }
    }
}

TEST_F(CopyingFaults, aDiskThatFailsOrIsFullAtAnyCallIsToldAndLosesNothing)
{
    int told = 0;
    for (int call = 1; call <= m_calls; ++call) {
        reset();
        faultySystem.failingChange = call;
        const CardCopyResult failing = copy();
        told += failing.isComplete() ? 0 : 1;
        // What is said to be complete must be so.
        WorkControl control;
        faultySystem = {};
        EXPECT_TRUE(!failing.isComplete() || checkArchive(m_folder.path("archive"), control).holds());
        expectSafe(call, "EIO");
        reset();
        faultySystem.fullFrom = call;
        copy();
        expectSafe(call, "full");
    }
    EXPECT_GT(told, 10);
}

TEST_F(CopyingFaults, aCardThatStopsReadingKeepsWhatItGave)
{
    reset();
    faultySystem.readableUpTo = 2'500;
    faultySystem.readError = EIO;
    const CardCopyResult result = copy();
    faultySystem = {};
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0].path, "EventMovie/event_20260102_030405.avi");
    EXPECT_EQ(result.problems[0].kind, CardCopyProblem::Kind::ReadInPart);
    const std::string partial = "archive/car/2026/2026-01-02/~partial/";
    // That of the earlier copy, and that of this one.
    EXPECT_EQ(m_folder.read(partial + "EventMovie/event_20260102_030405.avi").size(), 1'000U);
    EXPECT_EQ(m_folder.read(partial + "~2/EventMovie/event_20260102_030405.avi").size(), 2'500U);
    WorkControl control;
    EXPECT_TRUE(checkArchive(m_folder.path("archive"), control).holds());
    EXPECT_FALSE(
        compareWithArchives(m_folder.path("card"), "car", {m_folder.path("archive")}, control).isOpen());
    expectSafe(0, "in part");
    // The whole has taken their place.
    EXPECT_FALSE(std::filesystem::exists(m_folder.path(partial + "~2/EventMovie/event_20260102_030405.avi")));
}

} // namespace

} // namespace marvo
