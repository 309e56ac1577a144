// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/DesktopPrograms.h"

#include <QProcess>
#include <QStandardPaths>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace marvo {

bool startDiskUtility()
{
    // The desktops' own programs, the most common first.
    for (const char* name : {"gnome-disks", "partitionmanager", "blivet-gui", "gparted"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (!program.isEmpty() && QProcess::startDetached(program, {}))
            return true;
    }
    return false;
}

bool openInDefaultProgram(const std::string& path)
{
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    if (::posix_spawn_file_actions_init(&files) != 0)
        return false;
    if (::posix_spawnattr_init(&attributes) != 0) {
        ::posix_spawn_file_actions_destroy(&files);
        return false;
    }
    ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    // In its own session it outlives this application and its terminal.
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);

    std::string program = "xdg-open";
    std::string file = path;
    std::array<char*, 3> arguments{program.data(), file.data(), nullptr};
    pid_t process = 0;
    const int error =
        ::posix_spawnp(&process, program.c_str(), &files, &attributes, arguments.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&files);
    if (error != 0)
        return false;

    int status = 0;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR)
            return true; // somebody else has collected it: it was started
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace marvo
