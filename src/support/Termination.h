// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace marvo {

/// From now on a process that is asked to end (SIGTERM, SIGINT, SIGHUP) removes its temporary files first,
/// and ends by that signal as before; what was ignored at the start stays so. A file that grows beyond the
/// process' limit becomes a failed write (SIGXFSZ). Once, when the program starts, before any thread.
void cleanUpOnTermination();

/// A file that is removed when the process is asked to end while this object lives. It may be noted before it
/// exists: its name must be one that nothing else will ever have.
///
/// There is room for some dozens at a time, far more than are ever being written; what finds none is left
/// behind by such an end.
class TemporaryNote
{
public:
    TemporaryNote() = default;
    ~TemporaryNote() { drop(); }
    TemporaryNote(const TemporaryNote&) = delete;
    TemporaryNote& operator=(const TemporaryNote&) = delete;

    /// The folder is a descriptor, which stays open until drop().
    void take(int folder, std::string_view name);
    void drop();

private:
    int m_slot = -1;
};

/// While one lives an end that is asked for waits: for the moments in which a file is half one thing and half
/// another. Any thread.
class TerminationPause
{
public:
    TerminationPause();
    ~TerminationPause();
    TerminationPause(const TerminationPause&) = delete;
    TerminationPause& operator=(const TerminationPause&) = delete;
};

} // namespace marvo
