// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/AtomicFile.h"
#include "TemporaryFolder.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <csignal>

namespace marvo {

namespace {

using test::TemporaryFolder;

std::ptrdiff_t entriesIn(const std::string& folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

/// Root may do anything; for a while the test is nobody.
class WithoutPrivileges
{
public:
    WithoutPrivileges() { EXPECT_EQ(m_wasRoot ? ::seteuid(65534) : 0, 0); }
    ~WithoutPrivileges() { EXPECT_EQ(m_wasRoot ? ::seteuid(0) : 0, 0); }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    bool m_wasRoot = ::geteuid() == 0;
};

TEST(AtomicFile, createsAndReplaces)
{
    const TemporaryFolder folder;
    for (const char* content : {"first, long", "second", ""}) {
        EXPECT_FALSE(writeFileAtomically(folder.path("a"), content));
        EXPECT_EQ(folder.read("a"), content);
    }
    EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST(AtomicFile, takesPiecesAndShowsThemOnlyAtCommit)
{
    const TemporaryFolder folder;
    folder.write("a", "old");
    AtomicFile file;
    EXPECT_TRUE(file.write("before it is open"));
    ASSERT_FALSE(file.open(folder.path("a")));
    for (int i = 0; i < 1000; ++i)
        EXPECT_FALSE(file.write("0123456789"));
    EXPECT_EQ(folder.read("a"), "old");
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(folder.read("a").size(), 10000U);
    EXPECT_TRUE(file.commit());

    ASSERT_FALSE(file.open(folder.path("a")));
    file.write("discarded");
    file.discard();
    {
        AtomicFile forgotten;
        ASSERT_FALSE(forgotten.open(folder.path("a")));
        forgotten.write("forgotten");
    }
    EXPECT_EQ(folder.read("a").size(), 10000U);
    EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST(AtomicFile, keepsPermissionsAndLinks)
{
    const TemporaryFolder folder;
    folder.write("real/a", "old");
    ::chmod(folder.path("real/a").c_str(), 0640);
    folder.makeFolder("links");
    ASSERT_EQ(::symlink("../real/a", folder.path("links/relative").c_str()), 0);
    ASSERT_EQ(::symlink(folder.path("links/relative").c_str(), folder.path("links/twice").c_str()), 0);
    ASSERT_EQ(::symlink("../real/b", folder.path("links/toNew").c_str()), 0);
    ASSERT_EQ(::symlink("loop", folder.path("links/loop").c_str()), 0);

    EXPECT_FALSE(writeFileAtomically(folder.path("links/twice"), "new"));
    EXPECT_FALSE(writeFileAtomically(folder.path("links/toNew"), "fresh"));
    EXPECT_EQ(writeFileAtomically(folder.path("links/loop"), "x"), std::errc::too_many_symbolic_link_levels);
    EXPECT_EQ(folder.read("real/a"), "new");
    EXPECT_EQ(folder.read("real/b"), "fresh");
    EXPECT_EQ(std::filesystem::status(folder.path("real/a")).permissions(), std::filesystem::perms(0640));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("links/twice")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("links/toNew")));
    EXPECT_EQ(entriesIn(folder.path("real")), 2);
}

TEST(AtomicFile, tellsWhyAFileCannotBeWritten)
{
    const TemporaryFolder folder;
    folder.write("file");
    ::chmod(folder.path().c_str(), 0755);
    ::chmod(folder.write("protected", "kept").c_str(), 0444);
    ::chmod(folder.makeFolder("closed").c_str(), 0555);
    ::chmod(folder.makeFolder("open").c_str(), 0777);
    ::chmod(folder.write("open/protected", "kept").c_str(), 0444);
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    ::chmod(folder.path("pipe").c_str(), 0666);
    const std::pair<std::string, std::errc> rows[] = {
        {"", std::errc::no_such_file_or_directory},
        {folder.path(), std::errc::is_a_directory},
        {folder.path("new/"), std::errc::is_a_directory},
        {folder.path("missing/a"), std::errc::no_such_file_or_directory},
        {folder.path("file/a"), std::errc::not_a_directory},
        {folder.path("closed/a"), std::errc::permission_denied},
        {folder.path("protected"), std::errc::permission_denied},
        {folder.path("open/protected"), std::errc::permission_denied},
        {folder.path(std::string(10000, 'x')), std::errc::filename_too_long},
        {folder.path("pipe"), std::errc::no_such_device_or_address}, // it has no reader
        {"/dev/full", std::errc::no_space_on_device},
    };
    const WithoutPrivileges nobody;
    for (const auto& [path, error] : rows)
        EXPECT_EQ(writeFileAtomically(path, "x"), error) << path.substr(0, 100);
    EXPECT_EQ(folder.read("open/protected"), "kept");
    EXPECT_EQ(entriesIn(folder.path("open")), 1);
}

class InPlace : public testing::Test
{
protected:
    /// A file that may be written in a folder that takes no other: the folder refuses the temporary.
    std::string fileInClosedFolder(std::string_view content) const
    {
        ::chmod(m_folder.path().c_str(), 0755);
        const std::string path = m_folder.write("closed/a", content);
        ::chmod(path.c_str(), 0666);
        ::chmod(m_folder.path("closed").c_str(), 0555);
        return path;
    }
    ~InPlace() override { ::chmod(m_folder.path("closed").c_str(), 0755); }

    TemporaryFolder m_folder;
};

TEST_F(InPlace, writesWhereTheFolderTakesNoTemporary)
{
    const std::string path = fileInClosedFolder("old and long");
    const WithoutPrivileges nobody;
    AtomicFile file;
    ASSERT_FALSE(file.open(path));
    file.write("n");
    file.write("ew");
    EXPECT_EQ(m_folder.read("closed/a"), "old and long");
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(m_folder.read("closed/a"), "new");
}

TEST_F(InPlace, putsTheOldContentBackWhenWritingFailsHalfWay)
{
    const std::string old(150, 'o');
    const std::string path = fileInClosedFolder(old);
    const WithoutPrivileges nobody;
    AtomicFile file;
    ASSERT_FALSE(file.open(path));
    file.write(std::string(400, 'n'));
    // Files grow to so many bytes and no further, as on a disk that fills up half way through a write.
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{.rlim_cur = 200, .rlim_max = before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(file.commit(), std::errc::file_too_large);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(m_folder.read("closed/a"), old);
}

TEST_F(InPlace, writesWhereTheFolderWillNotHaveTheFileReplaced)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs another user's file";
    ::chmod(m_folder.path().c_str(), 0755);
    ::chmod(m_folder.write("sticky/a", "old").c_str(), 0666);
    ::chmod(m_folder.path("sticky").c_str(), 01777);
    const WithoutPrivileges nobody;
    EXPECT_FALSE(writeFileAtomically(m_folder.path("sticky/a"), "new"));
    EXPECT_EQ(m_folder.read("sticky/a"), "new");
    EXPECT_EQ(entriesIn(m_folder.path("sticky")), 1);
}

} // namespace

} // namespace marvo
