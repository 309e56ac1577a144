// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Everything that writes a file, with each of its calls to the system failing in turn, and the process ending
// at it.
#include "capture/CaptureFile.h"
#include "card/ClockFile.h"
#include "cli/RunCli.h"
#include "demo/OutputFile.h"
#include "faults/FaultySystem.h"
#include "logs/LogBytes.h"
#include "logs/LogExport.h"
#include "settings/SettingFile.h"
#include "support/AtomicFile.h"
#include "support/Termination.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#include <sys/wait.h>

namespace marvo {

namespace {

using test::faultySystem;

const std::shared_ptr<const DrivingLog>& longLog()
{
    static const std::shared_ptr<const DrivingLog> log = [] {
        const test::TemporaryFolder folder;
        return DrivingLog::read(folder.write("a.drv", test::drivingLog(5'000, 5'000)), flashDataLog()).log;
    }();
    return log;
}

struct Writing
{
    const char* name;
    std::function<bool(const std::string& path)> write; ///< true when it says that it has been done
    bool replaces = true;
};

const Writing writings[] = {
    {"settings",
     [](const std::string& path) {
         _FILEDATA record;
         fillDefaultFileData(record);
         return !saveSettingFile(record, path);
     }},
    {"clock",
     [](const std::string& path) {
         return !writeClockFile(path, {2026, 11, 23, 8, 30, 0}, ClockFilePlace::Any);
     }},
    {"export",
     [](const std::string& path) {
         const std::vector<std::string> titles(longLog()->description().columns.size(), "t");
         return !exportLog(*longLog(), titles, path);
     }},
    {"demo",
     [](const std::string& path) {
         demo::OutputFile file(path);
         file.write(std::string(1000, 'a'));
         file.overwrite(10, std::vector<std::uint8_t>(4));
         file.write("end");
         return !file.commit();
     }},
    {"capture",
     [](const std::string& path) {
         const test::TemporaryFolder folder;
         const CaptureFile picture("",
                                   ::open(folder.write("p.jpg", std::string(99'999, 'j')).c_str(), O_RDONLY));
         return !picture.copyTo(path);
     },
     false},
};

class WritingFaults : public testing::TestWithParam<Writing>
{
protected:
    /// Also notes how many calls it takes.
    WritingFaults()
    {
        prepare();
        faultySystem.changes = 0;
        EXPECT_TRUE(GetParam().write(m_path));
        m_calls = faultySystem.changes;
        m_new = m_folder.read("card/file");
    }
    ~WritingFaults() override { faultySystem = {}; }

    void prepare()
    {
        faultySystem = {};
        std::filesystem::remove_all(m_folder.path("card"));
        m_folder.makeFolder("card");
        if (GetParam().replaces)
            m_folder.write("card/file", m_old);
    }

    /// The file is the old one or the new one, and alone.
    void expectWhole(int call, std::optional<bool> done = {})
    {
        const std::string seen = m_folder.read("card/file");
        const bool isThere = std::filesystem::exists(m_path);
        EXPECT_TRUE(seen == m_new || (GetParam().replaces ? seen == m_old : !isThere))
            << seen.size() << " bytes after a fault at call " << call;
        EXPECT_TRUE(done != true || seen == m_new) << "done, it said, after a fault at call " << call;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.path("card")), {}), isThere)
            << "a temporary stays after a fault at call " << call;
    }

    /// Writes in a process that gets the signal at one of its calls; true when it died of it.
    bool writeAndDie(int call, int signal, bool foldersClosed = false)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            cleanUpOnTermination();
            faultySystem = {};
            faultySystem.signalledChange = call;
            faultySystem.signal = signal;
            faultySystem.foldersClosed = foldersClosed;
            ::_exit(GetParam().write(m_path) ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == signal : WEXITSTATUS(status) == 0);
        return WIFSIGNALED(status);
    }

    test::TemporaryFolder m_folder;
    std::string m_path = m_folder.path("card/file");
    std::string m_old = std::string(300, 'o');
    std::string m_new;
    int m_calls = 0;
};

TEST_P(WritingFaults, aDiskThatFillsUpLeavesTheOldFile)
{
    for (int call = 0; call <= m_calls; ++call) {
        prepare();
        faultySystem.fullFrom = call == 0 ? -1 : call; // from the first one on
        expectWhole(call, GetParam().write(m_path));
    }
}

TEST_P(WritingFaults, aCardThatFailsAtAnyCallLeavesOneWholeFile)
{
    int failures = 0;
    for (int call = 1; call <= m_calls; ++call) {
        prepare();
        faultySystem.failingChange = call;
        const bool done = GetParam().write(m_path);
        failures += done ? 0 : 1;
        expectWhole(call, done);
    }
    EXPECT_GE(failures, 4); // making, writing, syncing, renaming
}

TEST_P(WritingFaults, aProcessThatIsEndedLeavesOneWholeFile)
{
    for (int call = 1; call <= m_calls; ++call) {
        prepare();
        EXPECT_TRUE(writeAndDie(call, SIGTERM));
        expectWhole(call);
    }
    // Where no temporary can be; what needs a new file cannot be written there at all.
    for (int call = 1; GetParam().replaces && call <= m_calls + 1; ++call) {
        prepare();
        writeAndDie(call, SIGTERM, true);
        expectWhole(call);
    }
}

/// As by a power cut: what stays is removed when the next file is written, but not what is still being
/// written.
TEST_P(WritingFaults, whatAKilledProcessLeftIsClearedAway)
{
    for (int call = 1; call <= m_calls; ++call) {
        prepare();
        EXPECT_TRUE(writeAndDie(call, SIGKILL));
        const std::string seen = m_folder.read("card/file");
        EXPECT_TRUE(seen == m_new || seen == (GetParam().replaces ? m_old : std::string())) << call;
        AtomicFile meanwhile;
        ASSERT_FALSE(meanwhile.open(m_folder.path("card/meanwhile")));
        std::filesystem::remove(m_path);
        EXPECT_TRUE(GetParam().write(m_path));
        EXPECT_FALSE(meanwhile.commit());
        EXPECT_EQ(m_folder.read("card/file"), m_new);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.path("card")), {}), 2) << call;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, WritingFaults, testing::ValuesIn(writings),
                         [](const auto& writing) { return std::string(writing.param.name); });

/// The whole tool, ended at whatever moment.
TEST(EndedCommand, LeavesOneWholeFile)
{
    const test::TemporaryFolder folder;
    const std::string log = folder.write("a.drv", test::drivingLog(60'000, 60'000));
    const std::string csv = folder.makeFolder("card") + "/out.csv";
    ASSERT_EQ(test::runCli({"log", log, "--csv", csv}).exitCode, 0);
    const std::string whole = folder.read("card/out.csv");
    int ended = 0;
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::dup2(::open("/dev/null", O_WRONLY), 1);
            ::execl(MARVO_CLI, MARVO_CLI, "log", log.c_str(), "--csv", csv.c_str(), nullptr);
            ::_exit(127);
        }
        std::this_thread::sleep_for(std::chrono::microseconds((round * 7919) % 20'000));
        ::kill(child, SIGTERM);
        int status = 0;
        ::waitpid(child, &status, 0);
        ended += WIFSIGNALED(status) ? 1 : 0;
        ASSERT_EQ(folder.read("card/out.csv"), whole);
        ASSERT_EQ(std::distance(std::filesystem::directory_iterator(folder.path("card")), {}), 1);
    }
    EXPECT_GT(ended, 0);
}

} // namespace

} // namespace marvo
