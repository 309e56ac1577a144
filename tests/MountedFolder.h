// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <array>
#include <string>

namespace marvo::test {

/// Lets this process alone see what it mounts. Before any thread is started.
inline void mountForThisProcessAlone()
{
    if (::unshare(CLONE_NEWNS) == 0)
        ::mount("", "/", "", MS_REC | MS_PRIVATE, "");
}

/// A folder as a file system of its own of 64 KiB, which can be full or read-only like a card. Takes the
/// rights of an administrator.
class MountedFolder
{
public:
    explicit MountedFolder(std::string folder) : m_folder(std::move(folder))
    {
        isMounted = ::mount("marvo-test", m_folder.c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    ~MountedFolder()
    {
        if (isMounted)
            ::umount2(m_folder.c_str(), MNT_DETACH);
    }
    MountedFolder(const MountedFolder&) = delete;
    MountedFolder& operator=(const MountedFolder&) = delete;

    bool makeReadOnly() { return ::mount("", m_folder.c_str(), "", MS_REMOUNT | MS_RDONLY, "") == 0; }
    /// False when there is still room afterwards.
    bool fill()
    {
        const int filler = ::open((m_folder + "/filler").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        std::array<char, 4096> page{};
        ssize_t written = 0;
        do
            written = ::write(filler, page.data(), page.size());
        while (written > 0);
        const bool isFull = written < 0 && errno == ENOSPC;
        ::close(filler);
        return isFull;
    }

    bool isMounted = false;

private:
    std::string m_folder;
};

} // namespace marvo::test
